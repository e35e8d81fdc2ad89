// A strip of a few pixel columns on its way from intervals of y to coverages.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/pixel_math.h"

namespace kurv::raster {

// In pixels from the top of the picture; nothing where `top` is not above `bottom`.
struct Interval {
  float top;
  float bottom;
};

// Pixel columns side by side, so that what happens to a row happens to all of them at once. Each is
// the sum of its cells: 2^n vertical lines, all of which together cover it.
class StripAccumulator {
 public:
  static constexpr int kWidth = 16;

  explicit StripAccumulator(int height);

  int height() const { return m_height; }

  // One interval for each cell of the tile, in their order, kColumns << log2 of either.
  void add(const float* top, const float* bottom, int per_pixel_log2);
  // One more for one of the cells.
  void add(int subcolumn, Interval interval, int per_pixel_log2);
  // Forgets what was added.
  void clear();
  // Calls visit(row, RowCoverage) for each row that anything may cover, and empties the tile.
  // `per_pixel_log2` is that of everything that was added.
  template <class Visit>
  void take_rows(int per_pixel_log2, const Visit& visit) {
    I16x8 left{}, right{};
    for (int y = m_begin; y <= m_end + 1; ++y) {
      Row& row = m_deltas[static_cast<std::size_t>(y)];
      const auto deltas = bit_cast_to<std::array<I16x8, 2>>(row);
      left += deltas[0];
      right += deltas[1];
      row = {};
      if (y >= m_height) continue;
      const RowCoverage coverage{to_coverage(left, per_pixel_log2),
                                 to_coverage(right, per_pixel_log2)};
      visit(y, coverage);
    }
    m_begin = m_height;
    m_end = 0;
  }

 private:
  // Parts of a row, so that sums come out exact.
  static constexpr int kUnitsLog2 = 8;
  static constexpr int kUnits = 1 << kUnitsLog2;
  // What begins in a row, by column; all the height of a row is kParts.
  using Row = std::array<std::int16_t, kWidth>;

  // 0 to 255, of sums up to kParts << per_pixel_log2.
  static U16x8 to_coverage(I16x8 sums, int per_pixel_log2) {
    const auto half = static_cast<std::int16_t>(1 << (per_pixel_log2 - 1));
    return bit_cast_to<U16x8>((sums - (sums >> kUnitsLog2) + half) >> per_pixel_log2);
  }
  void add_edges(int from, int to, int column);

  int m_height;
  std::vector<Row> m_deltas;
  // Rows from m_begin to m_end hold changes.
  int m_begin;
  int m_end = 0;
};

}  // namespace kurv::raster
