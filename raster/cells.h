// What is covered of a few vertical lines per pixel, as intervals of y.
//
// It becomes pixels once, in one colour, so that it does not matter how often anything was covered.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kurv::raster {

// Pixels that lie in columns or in rows: that of column x and row y is pixels[x * x_step + y *
// y_step].
struct PixelGrid {
  std::uint32_t* pixels = nullptr;
  int width = 0;
  int height = 0;
  std::ptrdiff_t x_step = 1;
  std::ptrdiff_t y_step = 0;
};

// Each line stands for the cell of the picture round it, which is as wide as the lines are apart.
class Cells {
 public:
  Cells(int width, int height);

  int width() const { return m_width; }
  int height() const { return m_height; }
  int per_pixel() const { return 1 << m_per_pixel_log2; }
  int count() const { return m_width << m_per_pixel_log2; }
  bool is_empty() const { return m_first >= m_end; }

  // Only while it is empty, and once before anything is added.
  void set_per_pixel_log2(int value);
  // Covers cell `first` + i from top[i] to bottom[i], in pixels; nothing where the one is not above
  // the other.
  void cover(int first, std::span<const float> top, std::span<const float> bottom);
  // Blends the colour onto the pixels, as many as this was made for, and forgets what was covered.
  void flush(const PixelGrid& grid, std::uint32_t colour);
  void clear();

 private:
  struct Interval {
    float top;
    float bottom;
  };
  // Intervals that do not touch each other.
  struct Cell {
    static constexpr int kMost = 4;
    int count = 0;
    Interval intervals[kMost];

    std::span<const Interval> held() const { return {intervals, static_cast<std::size_t>(count)}; }
  };
  // What a full cell has no room for; it may touch anything.
  struct Spilled {
    int cell;
    Interval interval;
  };
  // How far up and down the cells of a pixel column reach, together and each of them.
  struct Extent {
    float outer_top;
    float outer_bottom;
    float inner_top;
    float inner_bottom;
  };

  void insert(int place, Interval interval);
  std::span<const Interval> held_by(int place);
  Extent sum_column(int column);
  void blend_column(const PixelGrid& grid, int column, std::uint32_t colour);

  int m_width;
  int m_height;
  int m_per_pixel_log2 = 0;
  std::vector<Cell> m_cells;
  std::vector<Spilled> m_spilled;
  std::size_t m_next_spilled = 0;  // of those in the order of their cells, while flushing
  std::vector<Interval> m_joined;  // of the cell that is asked for, with what has spilled
  int m_first = 0;                 // cells that hold anything are m_first..m_end-1
  int m_end = 0;
  std::vector<int> m_cover;  // of the cells in a column, what begins in each row
  std::vector<int> m_carry;  // and what of it begins in the row below
};

}  // namespace kurv::raster
