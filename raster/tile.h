// A strip of a few pixel columns on its way from intervals of y to pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/canvas.h"

namespace kurv::raster {

// In pixels from the top of the picture; nothing where `top` is not above `bottom`.
struct Interval {
  float top;
  float bottom;
};

// Pixel columns side by side, so that what happens to a row happens to all of them at once. Each is
// the sum of its cells: 2^n vertical lines, all of which together cover it.
class Tile {
 public:
  static constexpr int kColumns = 16;

  Tile(int canvas_width, int canvas_height);

  int canvas_width() const { return m_width; }
  int canvas_height() const { return m_height; }

  // One interval for each cell of the tile, in their order, kColumns << log2 of either.
  void add(const float* top, const float* bottom, int per_pixel_log2);
  // One more for one of the cells.
  void add(int cell, Interval interval, int per_pixel_log2);
  // Blends the colour onto the canvas, where the tile begins at the pixel column `left`, and
  // empties the tile. `per_pixel_log2` is that of everything that was added.
  void flush(const Canvas& canvas, int left, std::uint32_t colour, int per_pixel_log2);

 private:
  // What begins in a row, by column, of 256 for all the height of a row.
  using Row = std::array<std::int16_t, kColumns>;

  void begin_at(int row, int column, int part) {
    Row* const changes = m_changes.data() + row;
    changes[0][static_cast<std::size_t>(column)] += static_cast<std::int16_t>(256 - part);
    changes[1][static_cast<std::size_t>(column)] += static_cast<std::int16_t>(part);
  }
  void end_at(int row, int column, int part) {
    Row* const changes = m_changes.data() + row;
    changes[0][static_cast<std::size_t>(column)] -= static_cast<std::int16_t>(256 - part);
    changes[1][static_cast<std::size_t>(column)] -= static_cast<std::int16_t>(part);
  }

  int m_width;
  int m_height;
  std::vector<Row> m_changes;
  // Rows from m_begin to m_end hold changes.
  int m_begin;
  int m_end = 0;
};

}  // namespace kurv::raster
