// What the columns of a table hold, before any of them is chosen.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/csv/cell_value.h"
#include "app/csv/csv_table.h"

namespace kurv::app {

// The rows of a table that are drawn: each n-th one behind the header.
class DataRows {
 public:
  DataRows(const CsvTable& table, bool header, std::size_t every)
      : m_first(header ? 1 : 0), m_total(table.rows() - m_first), m_every(every) {}

  std::size_t total() const { return m_total; }
  std::size_t size() const { return m_total == 0 ? 0 : (m_total - 1) / m_every + 1; }
  // The table's row, and its number among all data rows, counted from 1.
  std::size_t row(std::size_t index) const { return m_first + index * m_every; }
  std::size_t number(std::size_t index) const { return index * m_every + 1; }

 private:
  std::size_t m_first;
  std::size_t m_total;
  std::size_t m_every;
};

enum class ColumnKind { kEmpty, kNumbers, kDates, kWords };

// How often a column has fields of a kind, and the row of the first one.
struct Tally {
  std::uint32_t count = 0;
  std::uint32_t first_row = 0;
};

class ColumnSurvey {
 public:
  void take(CellKind kind, std::size_t row);
  // Numbers or dates, if there are any and fewer than one in four of the filled fields is something
  // else: a single "n/a" does not make a column of words, and a few years do not make one of
  // numbers.
  ColumnKind kind() const;
  bool usable() const { return kind() == ColumnKind::kNumbers || kind() == ColumnKind::kDates; }
  std::uint32_t filled() const;
  Tally infinite() const { return tally(CellKind::kInfinite); }
  // The fields that have no place in a column of this kind, infinite numbers apart.
  Tally strays() const;

 private:
  const Tally& tally(CellKind kind) const { return m_tallies[static_cast<std::size_t>(kind)]; }

  std::array<Tally, kCellKinds> m_tallies{};
};

// One for each of the first `columns` columns. Goes over the fields that are there, so that a wide
// header above short rows costs no time.
std::vector<ColumnSurvey> survey_columns(const CsvTable& table, const DataRows& rows,
                                         std::size_t columns, bool decimal_comma);

}  // namespace kurv::app
