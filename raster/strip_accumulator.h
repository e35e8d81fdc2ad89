// Converts intervals of y to coverages, in one strip of the picture: sixteen pixel columns and all
// rows.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/pixel_math.h"

namespace kurv::raster {

// In pixels from the top of the picture; empty where top >= bottom.
struct Interval {
  float top;
  float bottom;
};

// An accumulation buffer: an interval adds its two edges to an array of differences, and a running
// sum down the rows gives the coverages, for sixteen pixel columns at once. A pixel column is the
// sum of its subcolumns, of which there are 2^per_pixel_log2.
class StripAccumulator {
 public:
  static constexpr int kWidth = 16;

  explicit StripAccumulator(int height);

  int height() const { return m_height; }

  // One interval for each subcolumn of the strip, kWidth << per_pixel_log2 in all.
  void add(const float* top, const float* bottom, int per_pixel_log2);
  // One more interval in one of the subcolumns, which must not overlap the others there.
  void add(int subcolumn, Interval interval, int per_pixel_log2);
  // Drops what was added.
  void clear();
  // Calls visit(row, RowCoverage) for each row that may be covered, and clears the buffer.
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
  // Fixed point: the height of a row is kUnits, so that sums are exact.
  static constexpr int kUnitsLog2 = 8;
  static constexpr int kUnits = 1 << kUnitsLog2;
  // By column, by how much the covered height changes from the row before.
  using Row = std::array<std::int16_t, kWidth>;

  // 0..255, from sums of 0..kUnits << per_pixel_log2.
  static U16x8 to_coverage(I16x8 sums, int per_pixel_log2) {
    const auto half = static_cast<std::int16_t>(1 << (per_pixel_log2 - 1));
    return bit_cast_to<U16x8>((sums - (sums >> kUnitsLog2) + half) >> per_pixel_log2);
  }
  void add_edges(int from, int to, int column);

  int m_height;
  std::vector<Row> m_deltas;
  // Rows m_begin..m_end + 1 hold differences.
  int m_begin;
  int m_end = 0;
};

}  // namespace kurv::raster
