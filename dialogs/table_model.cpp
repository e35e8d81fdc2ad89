#include "dialogs/table_model.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <QApplication>
#include <QColor>
#include <QIcon>
#include <QScopeGuard>
#include <QStyle>
#include <QTextDocument>
#include <cmath>
#include <limits>
#include <utility>

namespace kurv {

namespace {

// Dark on light, on any desktop, so that a mark is readable whatever the colours of the table.
constexpr QRgb kMarkedBackground = 0xFFFFD7D7;
constexpr QRgb kMarkedText = 0xFF7A0000;
// Longer texts are cut off, because their layout would be slow and no cell is that wide.
constexpr qsizetype kMaxCellLength = 200;

QString to_qstring(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The value of a cell's text; an empty text is a missing value. Infinities are refused: one would
// make the limits of its axis infinite, and the whole graph could not be drawn.
std::optional<Double> parse_cell(std::string_view text, char decimal_separator) {
  text = trim_blanks(text);
  if (text.empty()) return std::numeric_limits<Double>::quiet_NaN();
  const std::optional<Double> number = text_to_number(text, decimal_separator);
  return number && std::isinf(*number) ? std::nullopt : number;
}

std::optional<Double> value_at(const GraphDocument& document, int row, int column) {
  const Matrix<Double>& data = table_data(document);
  if (row > data.upper_point() || column > data.upper_column()) return std::nullopt;
  return data(column, row);
}

// Appends nothing for a missing value.
void append_value(String& text, const ControlState& state, int row, int column) {
  const std::optional<Double> value = value_at(state.document, row, column);
  if (value && !std::isnan(*value)) append_number(text, *value, state.decimal_separator);
}

// 0 where there is none.
unsigned last_step(const ControlState& state) {
  const Step* const step = state.history.last_done();
  return step ? step->number : 0;
}

std::string_view name_of(const GraphDocument& document, int column) {
  if (column < document.yVarName.lower() || column > document.yVarName.upper()) return {};
  return trim_blanks(document.yVarName(column));
}

}  // namespace

ControlState* TableModel::state() const {
  Client* const client = m_window.client();
  return client ? &client->control().state() : nullptr;
}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : m_size.rows;
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : m_size.columns;
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

const QString* TableModel::mark_at(int row, int column) const {
  const ControlState* const graph = state();
  if (!graph || m_marks.count() == 0 || row > table_size(graph->document).rows) return nullptr;
  return m_marks.find(point_of_row(graph->document, row), column);
}

void TableModel::append_cell(String& text, int row, int column) const {
  const ControlState* const graph = state();
  if (!graph) return;
  if (row == 0) {
    text += name_of(graph->document, column);
  } else if (const QString* const mark = mark_at(row, column)) {
    text += mark->toStdString();
  } else {
    append_value(text, *graph, row, column);
  }
}

QString TableModel::text_at(int row, int column) const {
  String text;
  append_cell(text, row, column);
  return to_qstring(text);
}

QString TableModel::reason(int row, int column, const QString& text) const {
  const ControlState& graph = *state();
  String value;
  append_value(value, graph, row, column);
  const bool is_number = parse_cell(text.toStdString(), graph.decimal_separator).has_value();
  return (is_number ? tr("Not stored: at least two points need different values of x.")
                    : tr("Not a number.")) +
         u' ' +
         (value.empty() ? tr("The graph has no value here.")
                        : tr("The graph still has %1 here.").arg(to_qstring(value)));
}

QVariant TableModel::mark_data(int row, int column, const QString& text, int role) const {
  switch (role) {
    case Qt::BackgroundRole:
      return QColor(kMarkedBackground);
    case Qt::ForegroundRole:
      return QColor(kMarkedText);
    case Qt::DecorationRole:
      return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return reason(row, column, text);
    default:
      return {};
  }
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !state()) return {};
  const int row = index.row() + 1;
  const int column = index.column() + 1;
  switch (role) {
    case Qt::DisplayRole:
      return text_at(row, column).left(kMaxCellLength);
    case Qt::EditRole:
      return text_at(row, column);
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    default:
      break;
  }
  const QString* const mark = mark_at(row, column);
  return mark ? mark_data(row, column, *mark, role) : QVariant();
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool is_text = role == Qt::DisplayRole;
  if (orientation == Qt::Vertical) return is_text ? QVariant(section + 1) : QVariant();
  if (!state() || !(is_text || role == Qt::ToolTipRole)) return {};
  const QString name = text_at(0, section + 1);
  // Converted, because Qt shows a tool tip that looks like markup as markup.
  return is_text ? name : Qt::convertFromPlainText(name);
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  Q_EMIT typed(index.row() + 1, index.column() + 1, value.toString());
  return true;
}

// -- Search ---------------------------------------------------------------------------------------

// Compares values, because making the texts of millions of cells would take seconds.
QModelIndex TableModel::find(const CellPattern& pattern, const QModelIndex& from,
                             bool is_forward) const {
  const ControlState* const graph = state();
  const bool has_marks = m_marks.count() > 0;
  if (!graph || !from.isValid() || !(has_marks || pattern.is_number())) return {};
  const GraphDocument& document = graph->document;
  const auto matches = [&](int row, int column) {
    const QString* const mark = has_marks ? mark_at(row, column) : nullptr;
    if (mark) return pattern.matches(*mark);
    const std::optional<Double> value = value_at(document, row, column);
    return value && pattern.matches(*value);
  };
  int row = from.row() + 1;
  int column = from.column() + 1;
  for (int i = 0; i < m_size.rows * m_size.columns; ++i) {
    if (matches(row, column)) return index(row - 1, column - 1);
    row += is_forward ? 1 : -1;
    if (row >= 1 && row <= m_size.rows) continue;
    row = is_forward ? 1 : m_size.rows;
    column = 1 + (column + (is_forward ? 0 : m_size.columns - 2)) % m_size.columns;
  }
  return {};
}

QModelIndex TableModel::nearest_x(Double number) const {
  if (!state()) return {};
  Double least = std::numeric_limits<Double>::infinity();
  QModelIndex nearest;
  for (int row = 1; row <= m_size.rows; ++row) {
    const std::optional<Double> x = value_at(state()->document, row, 1);
    if (!x || mark_at(row, 1) || !(std::abs(*x - number) < least)) continue;
    least = std::abs(*x - number);
    nearest = index(row - 1, 0);
  }
  return nearest;
}

// -- Changes --------------------------------------------------------------------------------------

bool TableModel::is_current() const {
  const ControlState* const graph = state();
  return graph && table_size(graph->document) == m_size &&
         graph->document.data_revision == m_revision;
}

// Rows and columns are inserted and removed at the end, so that the current cell stays.
void TableModel::set_rows(int rows) {
  if (rows > m_size.rows) {
    beginInsertRows({}, m_size.rows, rows - 1);
    m_size.rows = rows;
    endInsertRows();
  } else if (rows < m_size.rows) {
    beginRemoveRows({}, rows, m_size.rows - 1);
    m_size.rows = rows;
    endRemoveRows();
  }
}

void TableModel::set_columns(int columns) {
  if (columns > m_size.columns) {
    beginInsertColumns({}, m_size.columns, columns - 1);
    m_size.columns = columns;
    endInsertColumns();
  } else if (columns < m_size.columns) {
    beginRemoveColumns({}, columns, m_size.columns - 1);
    m_size.columns = columns;
    endRemoveColumns();
  }
}

void TableModel::emit_changes() {
  if (m_size.rows == 0 || m_size.columns == 0) return;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_size.columns - 1);
  Q_EMIT dataChanged(index(0, 0), index(m_size.rows - 1, m_size.columns - 1));
}

void TableModel::refresh() {
  const ControlState* const graph = state();
  const TableSize size = graph ? table_size(graph->document) : TableSize();
  const unsigned revision = graph ? graph->document.data_revision : 0;
  if (size != m_size || revision != m_revision) {
    m_marks.resize(size.rows, size.columns);
    m_earlier_marks.clear();
  }
  m_revision = revision;
  set_columns(size.columns);
  set_rows(size.rows);
  emit_changes();
}

void TableModel::commit(ControlState& state, const SetCells& set_cells, Outcome& outcome) {
  const GraphDocument& document = state.document;
  EarlierMarks earlier{{}, last_step(state)};
  // Updated also where the redraw throws, because the edits and the marks are made by then.
  const auto update_revision =
      qScopeGuard([this, &document] { m_revision = document.data_revision; });
  std::vector<CellEdit> edits;
  set_cells([&](int row, int column, std::string_view text) {
    const int point = point_of_row(document, row);
    earlier.cells.push_back({point, column, marked_text(point, column)});
    if (const std::optional<Double> number = parse_cell(text, state.decimal_separator)) {
      edits.push_back({point, column, *number});
      m_marks.clear(point, column);
    } else {
      m_marks.set(point, column, to_qstring(text));
      outcome.has_invalid = true;
    }
  });
  outcome.refusal = apply_table_edits(state, std::move(edits));
  if (outcome.refusal) {
    set_cells([&](int row, int column, std::string_view text) {
      m_marks.set(point_of_row(document, row), column, to_qstring(text));
    });
  }
  if (document.data_revision != m_revision) {
    m_earlier_marks.clear();
  } else {
    keep(std::move(earlier));
  }
}

QString TableModel::marked_text(int point, int column) const {
  const QString* const mark = m_marks.find(point, column);
  return mark ? *mark : QString();
}

// Only what has changed; a text that is empty is another one than none.
void TableModel::keep(EarlierMarks earlier) {
  std::erase_if(earlier.cells, [this](const EarlierMark& cell) {
    const QString now = marked_text(cell.point, cell.column);
    return now == cell.text && now.isNull() == cell.text.isNull();
  });
  if (earlier.cells.empty()) return;
  m_earlier_marks.push_back(std::move(earlier));
  if (m_earlier_marks.size() > std::size_t{kMaxUndoSteps})
    m_earlier_marks.erase(m_earlier_marks.begin());
}

bool TableModel::can_take_back_marks() const {
  const ControlState* const graph = state();
  return graph && !m_earlier_marks.empty() &&
         m_earlier_marks.back().last_step == last_step(*graph) && is_current();
}

void TableModel::take_back_marks() {
  // Backwards, because a cell may have been set twice.
  const std::vector<EarlierMark>& cells = m_earlier_marks.back().cells;
  for (auto cell = cells.rbegin(); cell != cells.rend(); ++cell) {
    if (cell->text.isNull()) {
      m_marks.clear(cell->point, cell->column);
    } else {
      m_marks.set(cell->point, cell->column, cell->text);
    }
  }
  m_earlier_marks.pop_back();
}

}  // namespace kurv
