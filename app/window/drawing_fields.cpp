#include "app/window/drawing_fields.h"

#include <KurvGraph/limits.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <utility>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/cell_check.h"
#include "app/window/check_box_style.h"
#include "app/window/named_widget.h"

namespace kurv::app {

namespace {

constexpr int kRowNumber = -1;
constexpr const char* kRowNumberText = "Row number";

// In the order of their box.
enum class Style { kLines, kMarkers, kBoth };

// Of the box of rows: the entry that takes the N below. The other one takes all, or what a graph
// can hold of them.
constexpr int kEvery = 1;

// A name may be as long as the file.
QString elided(const std::string& text) {
  constexpr qsizetype kMaxBytes = 200;
  const auto size = static_cast<qsizetype>(text.size());
  const QString result = QString::fromUtf8(text.data(), std::min(size, kMaxBytes));
  return size > kMaxBytes ? result + QChar(0x2026) : result;
}

QLabel* caption(const QString& text, QWidget* buddy) {
  auto* const label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

// The least N with which a graph can hold the rows.
int default_every(std::size_t rows) {
  return rows <= kMaxPoints ? 1 : static_cast<int>((rows - 1) / kMaxPoints + 1);
}

// The name of a column with what there is to know of it: "state (words)".
QString label_of(ReadTable& read, std::size_t column) {
  const QString name = elided(read.survey.names[column]);
  const ColumnKind kind = read.survey.kinds[column];
  const std::uint32_t refused = refused_cells(read.columns.survey(column));
  QStringList remarks;
  if (kind != ColumnKind::kNumbers) remarks << elided(kind_name(kind));
  if (refused > 0) {
    remarks << QString::number(refused) + " not understood";
  }
  return remarks.isEmpty() ? name : name + " (" + remarks.join(", ") + ')';
}

bool lacks_curves(ReadTable& read) {
  try {
    check_has_curves(read);
    return false;
  } catch (const UserError&) {
    return true;
  }
}

}  // namespace

DrawingFields::DrawingFields(const QString& title, QWidget* parent)
    : QWidget(parent),
      m_x(named("cboX", new QComboBox)),
      m_curves(named("lstCurves", new QListWidget)),
      m_all(named("cmdAll", new QPushButton("&All"))),
      m_none(named("cmdNone", new QPushButton("&None"))),
      m_rows(named("cboRows", new QComboBox)),
      m_every(named("spnEvery", new QSpinBox)),
      m_sort(named("chkSort", new QCheckBox("&Sort the points by x"))),
      m_style(named("cboStyle", new QComboBox)),
      m_title(named("txtTitle", new QLineEdit(title))) {
  m_style->addItems({"Lines", "Markers", "Both"});
  m_rows->addItems({"All rows", "Every N-th row"});
  m_rows->setAccessibleName("Rows to take");
  // Return in a field presses "Import" only.
  for (QPushButton* button : {m_all, m_none}) button->setAutoDefault(false);
  for (QWidget* const widget : {static_cast<QWidget*>(m_curves), static_cast<QWidget*>(m_sort)}) {
    make_boxes_visible(*widget);
  }
  for (QComboBox* const box : {m_x, m_rows}) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  }
  m_every->setRange(1, std::numeric_limits<int>::max());
  auto* const columns = new QHBoxLayout(this);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->addLayout(make_x_column(), 1);
  columns->addLayout(make_curve_column(), 1);
  connect_fields();
}

QBoxLayout* DrawingFields::make_x_column() {
  auto* const column = new QVBoxLayout;
  column->addWidget(caption("&X axis", m_x));
  column->addWidget(m_x);
  column->addWidget(m_sort);
  column->addWidget(m_rows);
  column->addWidget(caption("Take &every N-th row, N =", m_every));
  column->addWidget(m_every);
  column->addWidget(caption("St&yle", m_style));
  column->addWidget(m_style);
  column->addWidget(caption("&Title", m_title));
  column->addWidget(m_title);
  column->addStretch();
  return column;
}

QBoxLayout* DrawingFields::make_curve_column() {
  auto* const column = new QVBoxLayout;
  column->addWidget(caption("&Curves", m_curves));
  column->addWidget(m_curves, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(m_all);
  buttons->addWidget(m_none);
  buttons->addStretch();
  column->addLayout(buttons);
  return column;
}

void DrawingFields::connect_fields() {
  connect(m_x, &QComboBox::currentIndexChanged, this, [this] {
    if (m_is_filling) return;
    const int x = m_x->currentData().toInt();
    m_has_chosen_rows = x == kRowNumber;
    m_chosen_x.reset();
    if (x >= 0) m_chosen_x = m_names[static_cast<std::size_t>(x)];
    hide_x_among_curves();
    m_selection_changed();
  });
  connect(m_curves, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
    if (m_is_filling) return;
    const auto column = static_cast<std::size_t>(item->data(Qt::UserRole).toInt());
    m_chosen_curves[m_names[column]] = item->checkState() == Qt::Checked;
    m_selection_changed();
  });
  connect(m_rows, &QComboBox::currentIndexChanged, this, [this] { m_selection_changed(); });
  connect(m_every, &QSpinBox::valueChanged, this, [this] {
    if (m_is_filling) return;
    m_has_chosen_every = true;
    m_rows->setCurrentIndex(kEvery);
    m_selection_changed();
  });
  connect(m_all, &QPushButton::clicked, this, [this] { check_all(Qt::Checked); });
  connect(m_none, &QPushButton::clicked, this, [this] { check_all(Qt::Unchecked); });
  connect(m_title, &QLineEdit::textChanged, this, [this] { m_title_or_style_changed(); });
  connect(m_sort, &QCheckBox::toggled, this, [this] {
    select_style();
    m_selection_changed();
  });
  connect(m_style, &QComboBox::currentIndexChanged, this, [this] {
    m_has_chosen_style = true;
    m_title_or_style_changed();
  });
}

void DrawingFields::show_table(ReadTable* read) {
  const QScopedValueRollback<bool> filling(m_is_filling, true);
  m_x->clear();
  m_curves->clear();
  m_names.clear();
  m_x->addItem(kRowNumberText, kRowNumber);
  if (read == nullptr) return;
  m_names = read->survey.names;
  fill_columns(*read);
  select_x(*read);
  hide_x_among_curves();
  check_all(Qt::Checked);
  restore_checks();
  fill_rows(read->survey.rows);
}

void DrawingFields::fill_rows(std::size_t rows) {
  m_rows->setItemText(0, rows > kMaxPoints ? "Keep all peaks" : "All rows");
  if (!m_has_chosen_every) m_every->setValue(default_every(rows));
}

void DrawingFields::fill_columns(ReadTable& read) {
  for (std::size_t i = 0; i < m_names.size(); ++i) {
    const ColumnKind kind = read.survey.kinds[i];
    const int column = static_cast<int>(i);
    if (kind == ColumnKind::kNumbers) m_x->addItem(elided(m_names[i]), column);
    if (kind == ColumnKind::kDates) m_x->addItem(elided(m_names[i]) + " (dates)", column);
    const bool drawable = kind == ColumnKind::kNumbers;
    auto* const item = new QListWidgetItem(label_of(read, i), m_curves);
    item->setData(Qt::UserRole, column);
    item->setToolTip(item->text().toHtmlEscaped());
    item->setFlags(drawable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                            : Qt::NoItemFlags);
    if (drawable) item->setCheckState(Qt::Unchecked);
  }
}

void DrawingFields::select_x(ReadTable& read) {
  const std::optional<std::size_t> x = lacks_curves(read) ? 0 : read.survey.x;
  int index = x ? m_x->findData(static_cast<int>(*x)) : 0;
  if (m_has_chosen_rows) index = 0;
  for (int i = 1; m_chosen_x && i < m_x->count(); ++i) {
    if (m_names[static_cast<std::size_t>(m_x->itemData(i).toInt())] == *m_chosen_x) index = i;
  }
  m_x->setCurrentIndex(index);
}

// Those that the user has ticked or not, by their names.
void DrawingFields::restore_checks() {
  for (int row = 0; row < m_curves->count() && !m_chosen_curves.empty(); ++row) {
    QListWidgetItem* const item = m_curves->item(row);
    if (!item->flags().testFlag(Qt::ItemIsUserCheckable)) continue;
    const auto column = static_cast<std::size_t>(item->data(Qt::UserRole).toInt());
    const auto chosen = m_chosen_curves.find(m_names[column]);
    if (chosen == m_chosen_curves.end()) continue;
    item->setCheckState(chosen->second ? Qt::Checked : Qt::Unchecked);
  }
}

void DrawingFields::hide_x_among_curves() {
  const int x = m_x->currentData().toInt();
  for (int row = 0; row < m_curves->count(); ++row) {
    QListWidgetItem* const item = m_curves->item(row);
    item->setHidden(item->data(Qt::UserRole).toInt() == x);
  }
}

// As many as a graph holds.
void DrawingFields::check_all(Qt::CheckState state) {
  std::size_t count = 0;
  for (int row = 0; row < m_curves->count(); ++row) {
    QListWidgetItem* const item = m_curves->item(row);
    if (!item->flags().testFlag(Qt::ItemIsUserCheckable)) continue;
    const bool fits = item->isHidden() || ++count <= kMaxCurves;
    item->setCheckState(fits ? state : Qt::Unchecked);
  }
}

Selection DrawingFields::selection() const {
  Selection selection;
  const bool is_each = m_rows->currentIndex() != kEvery;
  selection.every = is_each ? 1 : static_cast<std::size_t>(m_every->value());
  selection.sort = m_sort->isChecked();
  const int x = m_x->currentData().toInt();
  selection.row_numbers = x < 0;
  if (x >= 0) selection.x = m_names[static_cast<std::size_t>(x)];
  for (int row = 0; row < m_curves->count(); ++row) {
    const QListWidgetItem& item = *m_curves->item(row);
    if (item.isHidden() || item.checkState() != Qt::Checked) continue;
    selection.y.push_back(m_names[static_cast<std::size_t>(item.data(Qt::UserRole).toInt())]);
  }
  return selection;
}

bool DrawingFields::offers_curves() const {
  for (int row = 0; row < m_curves->count(); ++row) {
    const QListWidgetItem& item = *m_curves->item(row);
    if (!item.isHidden() && item.flags().testFlag(Qt::ItemIsUserCheckable)) return true;
  }
  return false;
}

void DrawingFields::write_title_and_style(GraphChoice& choice) const {
  choice.title = on_one_line(m_title->text().toStdString());
  const auto style = static_cast<Style>(m_style->currentIndex());
  choice.lines = style != Style::kMarkers;
  choice.markers = style != Style::kLines;
}

void DrawingFields::show_order(bool is_unsorted) {
  m_is_unsorted = is_unsorted;
  select_style();
}

void DrawingFields::select_style() {
  if (m_has_chosen_style) return;
  const QSignalBlocker not_the_user(m_style);
  const bool has_markers = m_is_unsorted && !m_sort->isChecked();
  m_style->setCurrentIndex(static_cast<int>(has_markers ? Style::kMarkers : Style::kLines));
}

void DrawingFields::focus_first() {
  m_x->setFocus();
}

}  // namespace kurv::app
