// Polylines whose x never goes back, however dense they are.
//
// Such a line with round joints covers one interval of each vertical line across it, from the
// lowest to the highest of the discs that its pen passes through. So what is covered is kept as
// intervals of y on a few vertical lines per pixel, exact in y, and becomes pixels once, in one
// colour: a point costs the same whether it stands alone in its pixel or among a hundred, and a
// joint is no darker than the line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/strokes.h"

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

// A polyline: its segment i goes from point i - 1 to point i, and is there where drawn[i] is not
// zero. All three have the same length; drawn[0] counts for nothing.
struct Polyline {
  std::span<const float> x;
  std::span<const float> y;
  std::span<const std::uint8_t> drawn;
};

// What is covered of the vertical lines. One colour and one pen at a time.
class Columns {
 public:
  Columns(int width, int height) : m_width(width), m_height(height) {}

  // Whether add() takes lines with these x: finite, and none below the one before it.
  static bool is_ascending(std::span<const float> x);
  // Whether it takes this pen; it would need time in proportion to the square of a wide one.
  static bool is_narrow(const Pen& pen) { return pen.half_width <= 64; }

  // A segment that begins or ends at a NaN is not drawn, and an infinite y stands for the largest
  // finite number. What is visible of a segment is exact however far its ends are away. The pen
  // stays the same until the next flush.
  void add(const Pen& pen, const Polyline& line);
  // Blends what has been added onto the pixels, as many as this was made for, and forgets it.
  void flush(const PixelGrid& grid, std::uint32_t colour);
  void clear();

 private:
  // What is covered of one vertical line: intervals of y that do not touch each other.
  struct Cell {
    static constexpr int kMost = 4;
    int count = 0;
    float top[kMost];
    float bottom[kMost];
  };
  // Where the points of a line and the nodes meet. It is kept, because curves share their x.
  struct Abscissae {
    std::vector<float> x;         // as given
    std::vector<float> at;        // the same in nodes
    std::vector<int> nearest;     // the node nearest to each point
    std::vector<int> segment;     // the last segment that passes each node
    std::vector<float> fraction;  // how much of it lies before the node
  };

  void use_pen(const Pen& pen);
  void place(std::span<const float> x);
  void add_run(int first, int end);
  void add_far_segment(Point from, Point to);
  void begin_trace(int first, int last);
  void trace(int node, float y);
  void dilate(int first, int last);
  void insert(int cell, float top, float bottom);
  void blend_column(const PixelGrid& grid, int column, std::uint32_t colour);

  int m_width;
  int m_height;
  Pen m_pen{0, 0};
  int m_per_pixel_log2 = 0;
  int m_per_pixel = 0;  // cells
  int m_reach = 0;      // how many cells on either side of a node its discs cover
  int m_last_node = 0;
  float m_rim = 0;            // how far a disc reaches beyond the outermost node on its side
  std::vector<float> m_disc;  // half the height of a disc, by the distance of the cell
  std::vector<Cell> m_cells;
  int m_first_cell = 0;  // those that hold anything are m_first_cell..m_end_cell-1
  int m_end_cell = 0;
  Abscissae m_abscissae;
  std::vector<float> m_y;    // of the points, in pixels
  std::vector<float> m_low;  // of the line at each node
  std::vector<float> m_high;
  std::vector<float> m_top;  // of the dilated line in each cell
  std::vector<float> m_bottom;
  std::vector<int> m_cover;  // of the cells in a column, what begins in each row
  std::vector<int> m_carry;  // and what of it begins in the row below
};

}  // namespace kurv::raster
