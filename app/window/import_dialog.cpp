#include "app/window/import_dialog.h"

#include <KurvGraph/indicator_style.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/screen_fit.h>
#include <KurvGraph/text.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>
#include <limits>
#include <new>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/window/table_preview.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

constexpr const char* kFile = "the file";
// So that ticking several boxes in a row reads the data once.
constexpr int kEvaluationDelay = 100;  // ms
// Widths of the preview's columns, in digits, and how many of them get one of their own.
constexpr int kNarrowColumn = 8;
constexpr int kWideColumn = 24;
constexpr int kMaxFitted = 150;

QString shown(const std::string& text) {
  return QString::fromStdString(text);
}

template <class Widget>
Widget* named(const char* name, Widget* widget) {
  widget->setObjectName(name);
  return widget;
}

QLabel* caption(const QString& text, QWidget* buddy) {
  auto* const label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

QString counted(int count, const QString& what) {
  return QString::number(count) + ' ' + what + (count == 1 ? "" : "s");
}

QString sentence_of(const std::string& text) {
  return capitalised(shown(in_dialog_words(text)));
}

// Rows beyond what a graph holds are thinned out from the start.
int default_every(std::size_t rows) {
  return rows <= kMaxPoints ? 1 : static_cast<int>((rows - 1) / kMaxPoints + 1);
}

// Qt's Fusion style outlines a check box in a darker shade of the window's colour, in which an
// empty box on a dark desktop cannot be seen.
void outline_boxes(QWidget& widget) {
  QPalette colours = widget.palette();
  colours.setColor(QPalette::Window, Qt::gray);
  widget.setPalette(colours);
}

// Resizes the columns to their contents within limits, so that a long word does not fill the view.
// Only the first columns, because measuring very many takes long.
void fit_columns(QTableView& table) {
  QHeaderView& names = *table.horizontalHeader();
  names.setTextElideMode(Qt::ElideRight);
  names.setHighlightSections(false);
  const int digit = table.fontMetrics().horizontalAdvance(u'0');
  for (int column = 0; column < std::min(names.count(), kMaxFitted); ++column) {
    table.resizeColumnToContents(column);
    const int wanted = table.columnWidth(column) + digit;
    table.setColumnWidth(column, std::clamp(wanted, kNarrowColumn * digit, kWideColumn * digit));
  }
}

// In a scroll area. Its preview and its list become smaller before the page scrolls, for which a
// scroll area asks heightForWidth() where labels are wrapped.
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

QLabel* plain_label(const char* name) {
  auto* const label = named(name, new QLabel);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

}  // namespace

ImportDialog::ImportDialog(const std::string& path, CsvTable table, QWidget* parent)
    : QDialog(parent),
      m_path(path),
      m_table(std::move(table)),
      m_columns(m_table, detect_dialect(m_table), 1),
      m_survey(survey_table(m_columns)),
      m_x(named("cboX", new QComboBox)),
      m_curves(named("lstCurves", new QListWidget)),
      m_all(named("cmdAll", new QPushButton("&All"))),
      m_none(named("cmdNone", new QPushButton("&None"))),
      m_every(named("spnEvery", new QSpinBox)),
      m_sort(named("chkSort", new QCheckBox("&Sort the points by x"))),
      m_title(named("txtTitle", new QLineEdit)),
      m_summary(plain_label("lblSummary")),
      m_notes(plain_label("lblNotes")),
      m_notes_area(named("scrNotes", new QScrollArea)) {
  setObjectName("ImportDialog");
  const std::string name = std::filesystem::path(path).filename().string();
  setWindowTitle("Import " + shown(on_one_line(to_utf8(name))));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  m_import = named("cmdImport", buttons->addButton("&Import", QDialogButtonBox::AcceptRole));
  // Return in a field presses "Import" only.
  for (QPushButton* button : {m_all, m_none}) button->setAutoDefault(false);
  named("cmdCancel", buttons->button(QDialogButtonBox::Cancel))->setText("Cance&l");
  for (QWidget* const widget : {static_cast<QWidget*>(m_curves), static_cast<QWidget*>(m_sort)}) {
    outline_boxes(*widget);
    scale_indicators(*widget);
  }
  fill_fields();

  auto* const fields = new QHBoxLayout;
  fields->addLayout(make_x_fields(), 1);
  fields->addLayout(make_curve_fields(), 1);
  auto* const page = new QWidget;
  auto* const rows = new PageLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(make_preview(), 3);
  rows->addLayout(fields, 2);
  rows->addWidget(m_summary);
  rows->addWidget(make_notes());
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new_scroller(page), 1);
  layout->addWidget(buttons);
  // A button must be in the dialog to become its default.
  m_import->setDefault(true);
  const QSize comfortable(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 38);
  // A large font must not push the buttons off the screen.
  resize(comfortable.boundedTo(screen()->availableSize() * 0.9));
  fit_to_screen(*this);

  connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connect_fields();
  m_x->setFocus();
  evaluate();
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

QWidget* ImportDialog::make_preview() {
  auto* const box = new QWidget;
  auto* const table = named("tblPreview", new QTableView);
  table->setModel(new TablePreview(m_table, m_survey, table));
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setAlternatingRowColors(true);
  table->setTabKeyNavigation(false);
  table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  table->verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
  fit_columns(*table);
  table->setAccessibleName("The first rows of the file");
  const QString rows = m_survey.rows > TablePreview::kMaxRows
                           ? " (of " + QString::number(m_survey.rows) + ", 100 are shown)"
                           : QString();
  auto* const layout = new QVBoxLayout(box);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(caption("&Rows of the file" + rows, table));
  layout->addWidget(table);
  QLabel* const dialect = plain_label("lblDialect");
  dialect->setText(shown(description(m_survey.dialect, m_table.source())));
  layout->addWidget(dialect);
  return box;
}

QVBoxLayout* ImportDialog::make_x_fields() {
  auto* const column = new QVBoxLayout;
  column->addWidget(caption("&X axis", m_x));
  column->addWidget(m_x);
  column->addWidget(m_sort);
  auto* const every = new QHBoxLayout;
  every->addWidget(caption("Take &every N-th row, N =", m_every));
  every->addWidget(m_every);
  every->addStretch();
  column->addLayout(every);
  column->addWidget(caption("&Title", m_title));
  column->addWidget(m_title);
  column->addStretch();
  return column;
}

QVBoxLayout* ImportDialog::make_curve_fields() {
  auto* const column = new QVBoxLayout;
  column->addWidget(caption("&Curves", m_curves));
  column->addWidget(m_curves);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(m_all);
  buttons->addWidget(m_none);
  buttons->addStretch();
  column->addLayout(buttons);
  return column;
}

void ImportDialog::fill_fields() {
  m_x->addItem("Row number", -1);
  m_x->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  for (std::size_t i = 0; i < m_survey.kinds.size(); ++i) {
    const ColumnKind kind = m_survey.kinds[i];
    const QString name = shown(m_survey.names[i]);
    const int column = static_cast<int>(i);
    if (kind == ColumnKind::kNumbers) m_x->addItem(name, column);
    if (kind == ColumnKind::kDates) m_x->addItem(name + " (dates)", column);
    const bool drawable = kind == ColumnKind::kNumbers;
    auto* const item = new QListWidgetItem(drawable ? name : name + " (no numbers)", m_curves);
    item->setData(Qt::UserRole, column);
    item->setFlags(drawable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                            : Qt::NoItemFlags);
    if (drawable) item->setCheckState(Qt::Unchecked);
  }
  m_x->setCurrentIndex(m_survey.x ? m_x->findData(static_cast<int>(*m_survey.x)) : 0);
  hide_x_among_curves();
  check_all(Qt::Checked);
  m_every->setRange(1, std::numeric_limits<int>::max());
  m_every->setValue(default_every(m_survey.rows));
  m_title->setText(shown(on_one_line(to_utf8(std::filesystem::path(m_path).stem().string()))));
}

void ImportDialog::connect_fields() {
  m_evaluation.setSingleShot(true);
  m_evaluation.setInterval(kEvaluationDelay);
  connect(&m_evaluation, &QTimer::timeout, this, [this] { evaluate(); });
  const auto later = [this] { m_evaluation.start(); };
  connect(m_x, &QComboBox::currentIndexChanged, this, [this, later] {
    hide_x_among_curves();
    later();
  });
  connect(m_curves, &QListWidget::itemChanged, this, later);
  connect(m_every, &QSpinBox::valueChanged, this, later);
  connect(m_all, &QPushButton::clicked, this, [this] { check_all(Qt::Checked); });
  connect(m_none, &QPushButton::clicked, this, [this] { check_all(Qt::Unchecked); });
}

void ImportDialog::hide_x_among_curves() {
  const int x = m_x->currentData().toInt();
  for (int row = 0; row < m_curves->count(); ++row) {
    QListWidgetItem* const item = m_curves->item(row);
    item->setHidden(item->data(Qt::UserRole).toInt() == x);
  }
}

// As many as a graph holds.
void ImportDialog::check_all(Qt::CheckState state) {
  std::size_t count = 0;
  for (int row = 0; row < m_curves->count(); ++row) {
    QListWidgetItem* const item = m_curves->item(row);
    if (!item->flags().testFlag(Qt::ItemIsUserCheckable)) continue;
    const bool fits = item->isHidden() || ++count <= kMaxCurves;
    item->setCheckState(fits ? state : Qt::Unchecked);
  }
}

Selection ImportDialog::selection() const {
  Selection selection;
  selection.every = static_cast<std::size_t>(m_every->value());
  const int x = m_x->currentData().toInt();
  selection.row_numbers = x < 0;
  if (x >= 0) selection.x = m_survey.names[static_cast<std::size_t>(x)];
  for (int row = 0; row < m_curves->count(); ++row) {
    const QListWidgetItem& item = *m_curves->item(row);
    if (item.isHidden() || item.checkState() != Qt::Checked) continue;
    selection.y.push_back(
        m_survey.names[static_cast<std::size_t>(item.data(Qt::UserRole).toInt())]);
  }
  return selection;
}

TableData ImportDialog::read() {
  const Selection chosen = selection();
  const auto has_numbers = [](ColumnKind kind) { return kind == ColumnKind::kNumbers; };
  const bool has_curves = std::any_of(m_survey.kinds.begin(), m_survey.kinds.end(), has_numbers);
  // An empty list of names would select all columns.
  if (has_curves && chosen.y.empty()) throw UserError("choose at least one curve.");
  if (chosen.every != m_columns.rows().every()) {
    m_columns = TableColumns(m_table, m_survey.dialect, chosen.every);
  }
  TableData result = make_table_data(m_columns, chosen, kFile);
  check_drawable(result, chosen, kFile);
  return result;
}

void ImportDialog::evaluate() {
  m_evaluation.stop();
  m_data.reset();
  try {
    m_data = read();
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
  m_import->setEnabled(m_data.has_value());
}

void ImportDialog::show_result(const QString& summary, const QString& notes) {
  m_summary->setText(summary);
  m_notes->setText(notes);
  m_notes_area->setVisible(!notes.isEmpty());
}

void ImportDialog::accept() {
  if (m_evaluation.isActive()) evaluate();
  if (m_data) QDialog::accept();
}

GraphChoice ImportDialog::choice() const {
  GraphChoice choice;
  choice.table.selection = selection();
  choice.title = on_one_line(m_title->text().toStdString());
  choice.sort = m_sort->isChecked();
  return choice;
}

GraphSource ImportDialog::take_source() {
  return {m_path, std::move(m_data)};
}

}  // namespace kurv::app
