#include "app/window/option_box.h"

#include <QCompleter>
#include <QLineEdit>
#include <QSignalBlocker>

namespace kurv::app {

namespace {

constexpr const char* kAutomatic = "Automatic";

}  // namespace

OptionBox::OptionBox(const char* name, bool is_editable, QWidget* parent) : QComboBox(parent) {
  setObjectName(name);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  constexpr int kLeastCharacters = 14;
  setMinimumContentsLength(kLeastCharacters);
  addItem(kAutomatic);
  if (!is_editable) return;
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this] { leave_list(); });
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this] {
    if (currentText().trimmed().isEmpty()) choose_automatic();
  });
}

// A new text of the current row would replace what is typed, so that a typed text has no row.
void OptionBox::leave_list() {
  if (currentIndex() < 0) return;
  const QString text = currentText();
  const int cursor = lineEdit()->cursorPosition();
  const QSignalBlocker box(this);
  const QSignalBlocker field(lineEdit());
  setCurrentIndex(-1);
  setEditText(text);
  lineEdit()->setCursorPosition(cursor);
}

void OptionBox::clear_values() {
  while (count() > 1) removeItem(1);
}

void OptionBox::set_automatic_meaning(const QString& meaning) {
  const QString text =
      meaning.isEmpty() ? QString(kAutomatic) : QString(kAutomatic) + " (" + meaning + ')';
  if (itemText(0) == text) return;
  const QSignalBlocker blocker(this);
  if (currentText() != itemText(currentIndex())) leave_list();
  setItemText(0, text);
  // The field may be too narrow for it.
  setItemData(0, text, Qt::ToolTipRole);
  if (isEditable() && currentIndex() == 0) lineEdit()->setCursorPosition(0);
}

int OptionBox::row() const {
  if (currentIndex() >= 0 && currentText() == itemText(currentIndex())) return currentIndex();
  const QString text = currentText().trimmed();
  return text.isEmpty() ? 0 : findText(text, Qt::MatchFixedString);
}

std::optional<int> OptionBox::value() const {
  const int chosen = row();
  if (chosen <= 0) return std::nullopt;
  return itemData(chosen).toInt();
}

QString OptionBox::typed() const {
  return row() < 0 ? currentText().trimmed() : QString();
}

void OptionBox::choose_automatic() {
  setCurrentIndex(0);
}

void OptionBox::choose(int value) {
  if (const int found = findData(value); found > 0) setCurrentIndex(found);
}

void OptionBox::type(const QString& text) {
  setCurrentIndex(-1);
  setEditText(text);
}

void OptionBox::on_change(std::function<void()> changed) {
  connect(this, &QComboBox::currentTextChanged, this,
          [changed = std::move(changed)] { changed(); });
}

}  // namespace kurv::app
