#include "qt/widget/qt_shell.h"

#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <algorithm>

#include "dialogs/shared_windows.h"
#include "qt/widget/font_dialog.h"

namespace kurv {

namespace {

// The bit of a save dialog's flags that asks before a file is replaced.
constexpr int kOverwritePrompt = 2;

// A dialog that may be destroyed, together with its parent, before it is answered.
template <class Dialog>
class Modal {
 public:
  explicit Modal(QWidget* parent) : m_dialog(new Dialog(parent)) { fit_to_screen(*m_dialog); }
  ~Modal() { delete m_dialog.data(); }
  Modal(const Modal&) = delete;
  Modal& operator=(const Modal&) = delete;

  Dialog* operator->() const { return m_dialog.data(); }
  Dialog* get() const { return m_dialog.data(); }

  // What exec() returned, or `gone`.
  int answer(int gone) {
    // The dialog exists now; it may be destroyed when its event loop ends.
    Dialog* const dialog = m_dialog.data();
    guard_wheel(*dialog);
    const int result = dialog->exec();
    return m_dialog ? result : gone;
  }
  bool accepted() { return answer(QDialog::Rejected) == QDialog::Accepted; }

 private:
  QPointer<Dialog> m_dialog;
};

bool can_show_dialogs() {
  return QCoreApplication::instance() && !QCoreApplication::closingDown();
}

// Texts come from files and hosts: they are never taken for markup.
void show_plain(QWidget& dialog) {
  for (QLabel* label : dialog.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
}

QMessageBox::Icon icon_of(int flags) {
  if (flags == kYesNoQuestion) return QMessageBox::Question;
  return flags == kExclamation ? QMessageBox::Warning : QMessageBox::Critical;
}

// Sets the filters up and follows the user's choice among them, so that the name is complete before
// the dialog asks whether to replace a file.
void set_filters(QFileDialog& dialog, const String& filter, const String& default_extension) {
  const QStringList filters = name_filters(filter);
  const QString otherwise = shown_text(default_extension);
  const auto follow = [&dialog, otherwise](const QString& chosen) {
    dialog.setDefaultSuffix(extension_of(chosen, otherwise));
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
  dialog.setNameFilters(filters);
  follow(filters.value(0));
}

FileChoice choice_of(Modal<QFileDialog>& dialog) {
  if (!dialog.accepted()) return {};
  const QStringList files = dialog->selectedFiles();
  if (files.isEmpty()) return {};
  const auto index = dialog->nameFilters().indexOf(dialog->selectedNameFilter());
  return {files.first().toStdString(), static_cast<int>(std::max<qsizetype>(index, 0)) + 1};
}

}  // namespace

QString shown_text(std::string_view text) {
  QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  result.replace(u'\r', u'\n');
  return result;
}

QStringList name_filters(std::string_view filter) {
  const QStringList parts = shown_text(filter).split(u'|');
  QStringList result;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
    for (QString& pattern : patterns) {
      pattern = pattern.trimmed();
      // In Qt *.* would match only names with a dot.
      if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
    }
    // The toolkit takes the patterns from the parentheses at the end of a caption.
    QString caption = parts[i].trimmed();
    if (caption.endsWith(u')')) caption.truncate(caption.lastIndexOf(u'('));
    result << caption.trimmed() + QStringLiteral(" (") + patterns.join(u' ') + u')';
  }
  return result;
}

QString extension_of(const QString& name_filter, const QString& otherwise) {
  const qsizetype open = name_filter.lastIndexOf(u'(');
  const QString first = name_filter.mid(open + 1).section(u')', 0, 0).section(u' ', 0, 0);
  const QString extension = first.mid(first.lastIndexOf(u'.') + 1);
  const bool known = open >= 0 && first.contains(u'.') && !extension.contains(u'*') &&
                     !extension.contains(u'?') && !extension.isEmpty();
  return known ? extension : otherwise;
}

QWidget* dialog_parent(const QWidget* owner) {
  if (!owner) return nullptr;
  QWidget* const own = owner->window();
  QWidget* const modal = QApplication::activeModalWidget();
  QWidget* const front = modal ? modal : QApplication::activeWindow();
  // A closed window may stay the active one until it is destroyed.
  if (!front || !front->isVisible()) return own;
  // A dialog behind a modal one could not be answered, and one with a parent of another window
  // would be destroyed with that.
  for (QWidget* widget = front; widget; widget = widget->parentWidget()) {
    if (widget == own) return front;
  }
  return own;
}

Answer QtShell::message_box(std::string_view text, int flags, std::string_view title) {
  const bool question = flags == kYesNoQuestion;
  if (!can_show_dialogs()) return question ? Answer::kNo : Answer::kOk;
  Modal<QMessageBox> box(dialog_parent(m_owner));
  box->setIcon(icon_of(flags));
  box->setWindowTitle(shown_text(title));
  box->setTextFormat(Qt::PlainText);
  box->setText(shown_text(text));
  if (question) {
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
  } else {
    box->setStandardButtons(QMessageBox::Ok);
  }
  fit_text_to_screen(*box.get());
  const int answer = box.answer(QMessageBox::No);
  if (!question) return Answer::kOk;
  return answer == QMessageBox::Yes ? Answer::kYes : Answer::kNo;
}

String QtShell::input_prompt(std::string_view text, std::string_view title,
                             std::string_view default_text) {
  if (!can_show_dialogs()) return {};
  Modal<QInputDialog> prompt(dialog_parent(m_owner));
  prompt->setInputMode(QInputDialog::TextInput);
  prompt->setWindowTitle(shown_text(title));
  prompt->setLabelText(shown_text(text));
  prompt->setTextValue(shown_text(default_text));
  show_plain(*prompt.get());
  fit_text_to_screen(*prompt.get());
  return prompt.accepted() ? prompt->textValue().toStdString() : String();
}

void QtShell::beep() {
  if (can_show_dialogs()) QApplication::beep();
}

FileChoice QtShell::open_file(const OpenDialog& settings) {
  if (!can_show_dialogs()) return {};
  Modal<QFileDialog> dialog(dialog_parent(m_owner));
  if (!settings.title.empty()) dialog->setWindowTitle(shown_text(settings.title));
  dialog->setAcceptMode(QFileDialog::AcceptOpen);
  dialog->setFileMode(QFileDialog::ExistingFile);
  set_filters(*dialog.get(), settings.filter, settings.default_extension);
  const FileChoice choice = choice_of(dialog);
  m_chosen_file = choice.path;
  return choice;
}

FileChoice QtShell::save_file(const SaveDialog& settings) {
  if (!can_show_dialogs()) return {};
  Modal<QFileDialog> dialog(dialog_parent(m_owner));
  if (!settings.title.empty()) dialog->setWindowTitle(shown_text(settings.title));
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setOption(QFileDialog::DontConfirmOverwrite, (settings.flags & kOverwritePrompt) == 0);
  set_filters(*dialog.get(), settings.filter, settings.default_extension);
  if (!settings.file_name.empty()) {
    dialog->selectFile(shown_text(settings.file_name));
  } else if (!m_proposed_file.empty()) {
    dialog->selectFile(QFile::decodeName(m_proposed_file.c_str()));
  }
  const FileChoice choice = choice_of(dialog);
  m_chosen_file = choice.path;
  return choice;
}

std::optional<Font> QtShell::choose_font(const Font& preset) {
  return choose_font(preset, "Font");
}

std::optional<Font> QtShell::choose_font(const Font& preset, std::string_view title) {
  if (!can_show_dialogs()) return {};
  Modal<FontDialog> dialog(dialog_parent(m_owner));
  dialog->setWindowTitle(shown_text(title));
  dialog->set_font(preset);
  scroll_on_small_screen(*dialog.get());
  if (!dialog.accepted()) return {};
  return dialog->chosen_font();
}

// Qt offers an image in every format that it can write, PNG and BMP among them. setImage() replaces
// the content in one step; without an image the clipboard is cleared.
void QtShell::copy_picture(std::string_view bitmap) {
  if (!can_show_dialogs()) return;
  QClipboard* const clipboard = QApplication::clipboard();
  QImage image;
  if (image.loadFromData(reinterpret_cast<const uchar*>(bitmap.data()),
                         static_cast<int>(bitmap.size()), "BMP")) {
    clipboard->setImage(image);
  } else {
    clipboard->clear();
  }
}

void QtShell::load_windows() {
  if (m_client) kurv::load_windows(*m_client);
}

void QtShell::show_window(Window window, Integer page) {
  if (m_client && can_show_dialogs()) kurv::show_window(window, *m_client, page);
}

void QtShell::unload_windows() {
  kurv::unload_windows();
}

void QtShell::release_windows() {
  if (m_client) kurv::release_windows(*m_client);
}

}  // namespace kurv
