// What a column of a table holds, counted by the kinds of its cells.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "app/csv/cell_value.h"

namespace kurv::app {

enum class ColumnKind { kEmpty, kNumbers, kDates, kWords };

// The number of cells of a kind in a column, and the row of the first one.
struct Tally {
  std::uint32_t count = 0;
  std::uint32_t first_row = 0;
};

class ColumnSurvey {
 public:
  // The rows may come in any order.
  void add(CellKind kind, std::size_t row);
  // Numbers or dates, whichever are more, if there are any and fewer than one in four of the filled
  // cells are something else: a few cells such as "n/a" do not make it a column of words.
  ColumnKind kind() const;
  bool usable() const { return kind() == ColumnKind::kNumbers || kind() == ColumnKind::kDates; }
  std::uint32_t filled() const;
  Tally infinite() const { return tally(CellKind::kInfinite); }
  // The filled cells whose value is not of the column's kind, except infinite numbers.
  Tally mismatches() const;

 private:
  const Tally& tally(CellKind kind) const { return m_tallies[static_cast<std::size_t>(kind)]; }

  std::array<Tally, kCellKinds> m_tallies{};
};

}  // namespace kurv::app
