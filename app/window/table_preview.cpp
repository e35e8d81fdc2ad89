#include "app/window/table_preview.h"

#include <KurvGraph/text.h>

#include <algorithm>

#include "app/base/message_text.h"
#include "app/csv/cell_check.h"
#include "app/window/cell_colours.h"

namespace kurv::app {

namespace {

// One field may be as large as the file.
constexpr std::size_t kMaxFieldBytes = 200;
// A name must not fill the view.
constexpr qsizetype kMaxName = 24;

QString one_line(std::string_view text) {
  return QString::fromStdString(on_one_line(to_utf8(text.substr(0, kMaxFieldBytes))));
}

QString shortened(const QString& name) {
  return name.size() <= kMaxName ? name : name.left(kMaxName - 1) + QChar(0x2026);
}

}  // namespace

int TablePreview::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(std::min<std::size_t>(m_rows.size(), kMaxRows));
}

int TablePreview::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_read.survey.names.size());
}

QVariant TablePreview::data(const QModelIndex& index, int role) const {
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::TextAlignmentRole) {
    const bool is_number = m_read.survey.kinds[column] == ColumnKind::kNumbers;
    return QVariant((is_number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  }
  const std::string_view text =
      m_read.table.cell(m_rows.row(static_cast<std::size_t>(index.row())), column);
  if (role == Qt::DisplayRole) return one_line(text);
  const bool is_remark = role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole;
  if (role != Qt::BackgroundRole && !is_remark) return {};
  return missing_or_refused(text, column, role);
}

QVariant TablePreview::missing_or_refused(std::string_view text, std::size_t column,
                                          int role) const {
  const CellValue cell = read_cell(text, m_read.survey.dialect);
  if (cell.kind == CellKind::kMissing) {
    return role == Qt::BackgroundRole ? QVariant(missing_cell()) : QVariant("missing");
  }
  const std::string_view refusal = refusal_of(cell, m_read.columns.survey(column));
  if (refusal.empty()) return {};
  if (role == Qt::BackgroundRole) return refused_cell();
  return one_line(refusal) + ": counts as missing";
}

QVariant TablePreview::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return role == Qt::DisplayRole ? section + 1 : QVariant();
  const auto column = static_cast<std::size_t>(section);
  const QString name = one_line(m_read.survey.names[column]);
  if (role == Qt::ToolTipRole) return name.toHtmlEscaped();
  if (role != Qt::DisplayRole) return {};
  const QString unit = one_line(m_read.columns.unit(column));
  const QString kind = one_line(kind_name(m_read.survey.kinds[column]));
  return shortened(name) + '\n' + kind + (unit.isEmpty() ? "" : ", " + shortened(unit));
}

}  // namespace kurv::app
