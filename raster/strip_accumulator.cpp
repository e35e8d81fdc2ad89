#include "raster/strip_accumulator.h"

#include "raster/fast_min_max.h"

namespace kurv::raster {

Tile::Tile(int height)
    : m_height(height), m_changes(static_cast<std::size_t>(height) + 2), m_begin(height) {}

void Tile::clear() {
  for (int y = m_begin; y <= m_end + 1; ++y) m_changes[static_cast<std::size_t>(y)] = {};
  m_begin = m_height;
  m_end = 0;
}

// An interval in parts of rows.
void Tile::change(int from, int to, int column) {
  Row* const rows = m_changes.data();
  const auto add = [=](int row, int change) {
    std::int16_t& sum = rows[row][static_cast<std::size_t>(column)];
    sum = static_cast<std::int16_t>(sum + change);
  };
  add(from >> kPartsLog2, kParts - from % kParts);
  add((from >> kPartsLog2) + 1, from % kParts);
  add(to >> kPartsLog2, to % kParts - kParts);
  add((to >> kPartsLog2) + 1, -(to % kParts));
}

void Tile::add(const float* top, const float* bottom, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int count = kColumns << per_pixel_log2;
  std::array<int, kColumns * 16> from, to;
  int first = m_height * kParts, last = 0;
  for (int i = 0; i < count; ++i) {
    const auto place = static_cast<std::size_t>(i);
    from[place] = static_cast<int>(fast_min(fast_max(top[i], 0), height) * kParts);
    // An interval that is none ends where it begins.
    to[place] =
        std::max(from[place], static_cast<int>(fast_min(fast_max(bottom[i], 0), height) * kParts));
    first = std::min(first, from[place]);
    last = std::max(last, from[place] < to[place] ? to[place] : 0);
  }
  if (first >= last) return;
  m_begin = std::min(m_begin, first >> kPartsLog2);
  m_end = std::max(m_end, last >> kPartsLog2);
  // Neighbours in the same column would wait for each other.
  for (int in_pixel = 0; in_pixel < 1 << per_pixel_log2; ++in_pixel) {
    for (int column = 0; column < kColumns; ++column) {
      const auto i = static_cast<std::size_t>((column << per_pixel_log2) + in_pixel);
      change(from[i], to[i], column);
    }
  }
}

void Tile::add(int cell, Interval interval, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int from = static_cast<int>(fast_min(fast_max(interval.top, 0), height) * kParts);
  const int to = static_cast<int>(fast_min(fast_max(interval.bottom, 0), height) * kParts);
  if (from >= to) return;
  m_begin = std::min(m_begin, from >> kPartsLog2);
  m_end = std::max(m_end, to >> kPartsLog2);
  change(from, to, cell >> per_pixel_log2);
}

}  // namespace kurv::raster
