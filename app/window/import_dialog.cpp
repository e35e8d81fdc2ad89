#include "app/window/import_dialog.h"

#include <KurvGraph/screen_fit.h>
#include <KurvGraph/text.h>
#include <KurvGraph/wheel_guard.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <new>
#include <utility>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/window/drawing_fields.h"
#include "app/window/folder_options.h"
#include "app/window/import_views.h"
#include "app/window/named_widget.h"
#include "app/window/picture_preview.h"
#include "app/window/table_option_fields.h"
#include "app/window/table_option_texts.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// So that ticking several boxes in a row makes the data once, and typing reads the file once.
constexpr int kEvaluationDelay = 100;  // ms
constexpr int kReadingDelay = 250;     // ms

QString qt_text(const std::string& text) {
  return QString::fromStdString(text);
}

QString shown_name(const std::filesystem::path& name) {
  return qt_text(on_one_line(to_utf8(name.string())));
}

QString counted(int count, const QString& what) {
  return QString::number(count) + ' ' + what + (count == 1 ? "" : "s");
}

// What the command line takes to draw the only column of numbers is a choice of x here.
QString sentence_of(std::string text) {
  constexpr std::string_view kAdvice = "choose --x row --y 1";
  const std::size_t at = text.find(kAdvice);
  if (at != std::string::npos) {
    text.replace(at, kAdvice.size(), "choose the row number as \"X axis\"");
  }
  return capitalised(qt_text(in_dialog_words(text)));
}

QLabel* plain_label(const char* name) {
  auto* const label = named(name, new QLabel);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

// In a scroll area. Its views and lists become smaller before the page scrolls, for which a scroll
// area asks heightForWidth() where labels are wrapped.
class PageLayout final : public QVBoxLayout {
 public:
  using QVBoxLayout::QVBoxLayout;
  int heightForWidth(int width) const override {
    if (m_is_asked) return QVBoxLayout::heightForWidth(width);
    const QScopedValueRollback<bool> asked(m_is_asked, true);
    return minimumHeightForWidth(width);
  }

 private:
  mutable bool m_is_asked = false;  // minimumHeightForWidth() calls heightForWidth()
};

class WaitCursor {
 public:
  WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

// Resets those that do not matter for this kind of file.
void drop_unfit(TableOptions& options, const TableReader& reader) {
  if (!reader.is_workbook()) return options.sheet.reset();
  options.encoding.reset();
  options.separator.reset();
  options.comment.reset();
}

}  // namespace

ImportDialog::ImportDialog(const std::string& path, std::string bytes, QWidget* parent)
    : QDialog(parent),
      m_path(path),
      m_reader(std::move(bytes)),
      m_views(new ImportViews),
      m_picture(named("imgPreview", new PicturePreview)),
      m_options(new TableOptionFields),
      m_drawing(new DrawingFields(shown_name(std::filesystem::path(path).stem()))),
      m_dialect(plain_label("lblDialect")),
      m_summary(plain_label("lblSummary")),
      m_notes(plain_label("lblNotes")),
      m_notes_area(named("scrNotes", new QScrollArea)) {
  setObjectName("ImportDialog");
  setWindowTitle("Import " + shown_name(std::filesystem::path(path).filename()));
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new_scroller(make_page()), 1);
  layout->addLayout(make_buttons());
  // A button must be in the dialog to become its default.
  m_import->setDefault(true);
  const QSize comfortable(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 48);
  // A large font must not push the buttons off the screen.
  resize(comfortable.boundedTo(screen()->availableSize() * 0.9));
  fit_to_screen(*this);
  guard_wheel(*this);
  connect_parts();
  read_as_before();
  if (!m_read) m_views->show_lines();
  m_drawing->focus_first();
}

ImportDialog::~ImportDialog() {
  // The views show the table.
  m_views->show_table(nullptr, {});
}

// On the left how the file is written, on the right what is drawn of it.
QWidget* ImportDialog::make_page() {
  auto* const grid = new QGridLayout;
  auto* const file = new QVBoxLayout;
  file->addWidget(m_views, 1);
  file->addWidget(m_dialect);
  grid->addLayout(file, 0, 0);
  grid->addWidget(m_picture, 0, 1);
  grid->addWidget(m_options, 1, 0);
  grid->addWidget(m_drawing, 1, 1);
  grid->setColumnStretch(0, 4);
  grid->setColumnStretch(1, 3);
  grid->setRowStretch(0, 1);
  auto* const page = new QWidget;
  auto* const rows = new PageLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addLayout(grid, 1);
  rows->addWidget(m_summary);
  rows->addWidget(make_notes());
  return page;
}

QBoxLayout* ImportDialog::make_buttons() {
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  m_import = named("cmdImport", buttons->addButton("&Import", QDialogButtonBox::AcceptRole));
  named("cmdCancel", buttons->button(QDialogButtonBox::Cancel))->setText("Cance&l");
  connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  auto* const row = new QHBoxLayout;
  row->addWidget(buttons);
  return row;
}

// Visible only where there are notes, and a few lines high.
QScrollArea* ImportDialog::make_notes() {
  m_notes->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  m_notes_area->setWidget(m_notes);
  m_notes_area->setWidgetResizable(true);
  m_notes_area->setFrameShape(QFrame::NoFrame);
  m_notes_area->setFixedHeight(fontMetrics().height() * 4);
  m_notes_area->setAccessibleName("What was left out");
  return m_notes_area;
}

void ImportDialog::connect_parts() {
  m_evaluation.setSingleShot(true);
  m_evaluation.setInterval(kEvaluationDelay);
  connect(&m_evaluation, &QTimer::timeout, this, [this] { evaluate(); });
  m_reading.setSingleShot(true);
  m_reading.setInterval(kReadingDelay);
  connect(&m_reading, &QTimer::timeout, this, [this] { read(); });
  m_options->on_change([this] { m_reading.start(); });
  m_drawing->on_selection([this] { m_evaluation.start(); });
  m_drawing->on_title_or_style([this] { show_picture(); });
}

void ImportDialog::read_as_before() {
  TableOptions remembered = FolderOptions().options_for(m_path);
  drop_unfit(remembered, m_reader);
  m_options->set_options(remembered);
  read();
  if (m_options->are_automatic()) return;
  if (m_data) {
    return m_options->set_remark("As for the last table of this folder: " + described(remembered));
  }
  m_options->set_automatic();
  read();
  m_options->set_remark(
      "The choices for the last table of this folder do not fit this one, so they are not used.");
}

void ImportDialog::read() {
  const WaitCursor waiting;
  m_reading.stop();
  m_data.reset();
  m_views->show_table(nullptr, {});
  m_read.reset();
  QString failure;
  try {
    m_read = m_reader.read(m_options->options());
  } catch (const UserError& error) {
    failure = sentence_of(error.what());
  } catch (const std::bad_alloc&) {
    failure = "There is not enough memory for this table.";
  }
  show_table(failure);
  evaluate();
}

void ImportDialog::show_table(const QString& failure) {
  m_failure = failure;
  std::optional<Encoding> encoding = m_options->encoding();
  if (m_read) encoding = m_read->table.source().encoding;
  m_views->show_table(m_read.get(), m_reader.beginning(encoding));
  m_options->show_meaning(m_reader, m_read.get());
  m_drawing->show_table(m_read.get());
  m_dialect->setText(m_read ? qt_text(description(m_read->survey.dialect, m_read->table.source()))
                            : QString());
}

TableData ImportDialog::selected_data() {
  const Selection chosen = m_drawing->selection();
  const auto has_numbers = [](ColumnKind kind) { return kind == ColumnKind::kNumbers; };
  const std::vector<ColumnKind>& kinds = m_read->survey.kinds;
  const bool has_curves = std::any_of(kinds.begin(), kinds.end(), has_numbers);
  // An empty list of names would select all columns.
  if (has_curves && chosen.y.empty()) {
    if (!m_drawing->offers_curves()) check_has_curves(*m_read);
    throw UserError("choose at least one curve.");
  }
  if (chosen.every != m_read->columns.rows().every()) {
    m_read->columns = TableColumns(m_read->table, m_read->survey.dialect, chosen.every);
  }
  TableData result = make_table_data(m_read->columns, chosen, TableReader::kName);
  check_drawable(result, chosen, TableReader::kName);
  return result;
}

void ImportDialog::evaluate() {
  m_evaluation.stop();
  m_data.reset();
  if (m_read) {
    try {
      m_data = selected_data();
      m_drawing->show_order(has_unsorted_x(*m_data));
      const int curves = m_data->values.upper_column() - 1;
      QStringList notes;
      for (const std::string& warning : m_data->warnings) notes << sentence_of(warning);
      show_result(counted(m_data->values.upper_point(), "point") + ", " + counted(curves, "curve"),
                  notes.join('\n'));
    } catch (const UserError& error) {
      show_result(sentence_of(error.what()), {});
    } catch (const std::bad_alloc&) {
      show_result("There is not enough memory for so many points and curves.", {});
    }
  } else {
    show_result(m_failure, {});
  }
  m_import->setEnabled(m_data.has_value());
  show_picture();
}

void ImportDialog::show_picture() {
  if (!m_data) return m_picture->clear();
  m_picture->show_graph(choice(), m_path, *m_data);
}

void ImportDialog::show_result(const QString& summary, const QString& notes) {
  m_summary->setText(summary);
  m_notes->setText(notes);
  m_notes_area->setVisible(!notes.isEmpty());
}

void ImportDialog::accept() {
  if (m_reading.isActive()) read();
  if (m_evaluation.isActive()) evaluate();
  if (!m_data) return;
  FolderOptions().remember(m_path, m_options->options());
  QDialog::accept();
}

GraphChoice ImportDialog::choice() const {
  GraphChoice choice;
  choice.table.selection = m_drawing->selection();
  m_drawing->write_title_and_style(choice);
  return choice;
}

GraphSource ImportDialog::take_source() {
  return {m_path, std::move(m_data)};
}

}  // namespace kurv::app
