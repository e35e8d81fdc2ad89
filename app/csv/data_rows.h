// The rows of a table that are drawn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "app/csv/csv_dialect.h"
#include "app/csv/csv_table.h"

namespace kurv::app {

// Each n-th one of the rows that hold data.
class DataRows {
 public:
  DataRows(const CsvTable& table, const CsvDialect& dialect, std::size_t every);

  std::size_t total() const { return m_total; }
  std::size_t size() const { return m_total == 0 ? 0 : (m_total - 1) / m_every + 1; }
  std::size_t every() const { return m_every; }
  // The table's row, and its number among all data rows, counted from 1.
  std::size_t row(std::size_t index) const {
    const std::size_t at = index * m_every;
    return m_rows.empty() ? m_first + at : m_rows[at];
  }
  std::size_t number(std::size_t index) const { return index * m_every + 1; }

 private:
  std::size_t m_first;
  std::size_t m_total;
  std::size_t m_every;
  // All rows of data; empty where they follow one another.
  std::vector<std::uint32_t> m_rows;
};

}  // namespace kurv::app
