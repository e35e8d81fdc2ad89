#include "app/window/table_preview.h"

#include <KurvGraph/text.h>

#include <algorithm>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

// One field may be as large as the file.
constexpr std::size_t kMaxBytes = 200;

QString shown(std::string_view text) {
  return QString::fromStdString(on_one_line(to_utf8(text.substr(0, kMaxBytes))));
}

bool is_number(const TableSurvey& survey, int column) {
  const auto index = static_cast<std::size_t>(column);
  return index < survey.kinds.size() && survey.kinds[index] == ColumnKind::kNumbers;
}

}  // namespace

int TablePreview::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return static_cast<int>(std::min<std::size_t>(m_survey.rows, kMaxRows));
}

int TablePreview::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_survey.names.size());
}

QVariant TablePreview::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) {
    const Qt::AlignmentFlag side =
        is_number(m_survey, index.column()) ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant(side | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  const std::size_t row = static_cast<std::size_t>(index.row()) + m_survey.dialect.first_row;
  return shown(m_table.cell(row, static_cast<std::size_t>(index.column())));
}

QVariant TablePreview::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  return shown(m_survey.names[static_cast<std::size_t>(section)]);
}

}  // namespace kurv::app
