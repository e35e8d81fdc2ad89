#include "app/csv/data_rows.h"

#include <algorithm>

namespace kurv::app {

DataRows::DataRows(const CsvTable& table, const CsvDialect& dialect, std::size_t every)
    : m_first(dialect.first_row),
      m_total(table.rows() - dialect.first_row - dialect.left_out.size()),
      m_every(every) {
  const std::vector<std::uint32_t>& left_out = dialect.left_out;
  // Rows that are left out at the end alone leave no gap.
  if (left_out.empty() || left_out.front() >= m_first + m_total) return;
  m_rows.reserve(m_total);
  auto next = left_out.begin();
  for (std::size_t row = m_first; row < table.rows(); ++row) {
    if (next != left_out.end() && *next == row) {
      ++next;
    } else {
      m_rows.push_back(static_cast<std::uint32_t>(row));
    }
  }
}

}  // namespace kurv::app
