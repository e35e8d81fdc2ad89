#include "raster/strip_accumulator.h"

#include "raster/fast_min_max.h"

namespace kurv::raster {

StripAccumulator::StripAccumulator(int height)
    : m_height(height), m_deltas(static_cast<std::size_t>(height) + 2), m_begin(height) {}

void StripAccumulator::clear() {
  for (int y = m_begin; y <= m_end + 1; ++y) m_deltas[static_cast<std::size_t>(y)] = {};
  m_begin = m_height;
  m_end = 0;
}

// The edges of an interval, in units: each is split between the row that contains it and the next.
void StripAccumulator::add_edges(int from, int to, int column) {
  Row* const rows = m_deltas.data();
  const auto add = [=](int row, int delta) {
    std::int16_t& sum = rows[row][static_cast<std::size_t>(column)];
    sum = static_cast<std::int16_t>(sum + delta);
  };
  add(from >> kUnitsLog2, kUnits - from % kUnits);
  add((from >> kUnitsLog2) + 1, from % kUnits);
  add(to >> kUnitsLog2, to % kUnits - kUnits);
  add((to >> kUnitsLog2) + 1, -(to % kUnits));
}

void StripAccumulator::add(const float* top, const float* bottom, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int count = kWidth << per_pixel_log2;
  std::array<int, kWidth * 16> from, to;
  int first = m_height * kUnits, last = 0;
  for (int i = 0; i < count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    from[index] = static_cast<int>(fast_min(fast_max(top[i], 0), height) * kUnits);
    // An empty interval ends where it begins.
    to[index] =
        std::max(from[index], static_cast<int>(fast_min(fast_max(bottom[i], 0), height) * kUnits));
    first = std::min(first, from[index]);
    last = std::max(last, from[index] < to[index] ? to[index] : 0);
  }
  if (first >= last) return;
  m_begin = std::min(m_begin, first >> kUnitsLog2);
  m_end = std::max(m_end, last >> kUnitsLog2);
  // Subcolumns of the same pixel are not added in succession: each addition would wait for the one
  // before it.
  for (int in_pixel = 0; in_pixel < 1 << per_pixel_log2; ++in_pixel) {
    for (int column = 0; column < kWidth; ++column) {
      const auto i = static_cast<std::size_t>((column << per_pixel_log2) + in_pixel);
      add_edges(from[i], to[i], column);
    }
  }
}

void StripAccumulator::add(int subcolumn, Interval interval, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int from = static_cast<int>(fast_min(fast_max(interval.top, 0), height) * kUnits);
  const int to = static_cast<int>(fast_min(fast_max(interval.bottom, 0), height) * kUnits);
  if (from >= to) return;
  m_begin = std::min(m_begin, from >> kUnitsLog2);
  m_end = std::max(m_end, to >> kUnitsLog2);
  add_edges(from, to, subcolumn >> per_pixel_log2);
}

}  // namespace kurv::raster
