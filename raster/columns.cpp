#include "raster/columns.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "raster/blend.h"
#include "raster/line_equation.h"
#include "raster/stroke_parts.h"

namespace kurv::raster {
namespace {

constexpr float kNothingLow = std::numeric_limits<float>::infinity();
constexpr float kNothingHigh = -kNothingLow;
// Beyond it single precision no longer tells the pixels of a slope apart.
constexpr float kFar = 1 << 17;  // pixels
// Part of a row, for sums that come out exact.
constexpr int kWhole = 256;

float smaller(float a, float b) {
  return a < b ? a : b;
}
float larger(float a, float b) {
  return a > b ? a : b;
}

bool is_near(float pixels) {
  return std::abs(pixels) < kFar;
}

}  // namespace

bool Columns::is_ascending(std::span<const float> x) {
  float before = -std::numeric_limits<float>::max();
  bool ascending = true;
  for (const float value : x) {
    ascending &= before <= value;
    before = value;
  }
  return ascending && before <= std::numeric_limits<float>::max();
}

// The nodes stand on the edges of the cells; the first visible cell is cell m_reach, which follows
// node m_reach at x = 0.
void Columns::use_pen(const Pen& pen) {
  if (pen.half_width == m_pen.half_width && pen.pixels_per_unit == m_pen.pixels_per_unit) return;
  m_pen = pen;
  m_per_pixel_log2 = 4;
  m_per_pixel = 1 << m_per_pixel_log2;
  m_reach = static_cast<int>(pen.half_width * m_per_pixel + 0.5);
  m_last_node = m_width * m_per_pixel + 2 * m_reach;
  m_rim = static_cast<float>(pen.half_width * m_per_pixel + 0.5 - m_reach);
  m_disc.clear();
  for (int k = 0; k < m_reach; ++k) {
    const double distance = (k + 0.5) / m_per_pixel;
    m_disc.push_back(static_cast<float>(
        std::sqrt(std::max(0.0, pen.half_width * pen.half_width - distance * distance))));
  }
  const auto cells = static_cast<std::size_t>(m_last_node + 1);
  const auto padded = cells + 2 * static_cast<std::size_t>(m_reach) + 2;
  m_cells.assign(cells, Cell{});
  m_low.assign(padded, kNothingLow);
  m_high.assign(padded, kNothingHigh);
  m_top.assign(cells, kNothingLow);
  m_bottom.assign(cells, kNothingHigh);
  m_cover.assign(static_cast<std::size_t>(m_height) + 1, 0);
  m_carry.assign(static_cast<std::size_t>(m_height) + 1, 0);
  m_abscissae.x.clear();
  m_first_cell = m_last_node;
  m_end_cell = 0;
}

void Columns::place(std::span<const float> x) {
  Abscissae& known = m_abscissae;
  if (std::ranges::equal(known.x, x)) return;
  known.x.assign(x.begin(), x.end());
  const std::size_t count = x.size();
  known.at.resize(count);
  known.nearest.resize(count);
  known.segment.assign(static_cast<std::size_t>(m_last_node) + 1, 0);
  known.fraction.assign(static_cast<std::size_t>(m_last_node) + 1, 0);
  const double nodes_per_unit = m_pen.pixels_per_unit * m_per_pixel;
  const auto last = static_cast<float>(m_last_node);
  for (std::size_t i = 0; i < count; ++i) {
    const auto at = static_cast<float>(x[i] * nodes_per_unit + m_reach);
    known.at[i] = at;
    known.nearest[i] = static_cast<int>(std::floor(std::clamp(at + 0.5F, -1.0F, last + 1)));
    if (i == 0) continue;
    const float before = known.at[i - 1];
    const int first = static_cast<int>(std::ceil(std::clamp(before, 0.0F, last + 1)));
    const int end = static_cast<int>(std::floor(std::clamp(at, -1.0F, last)));
    for (int node = first; node <= end; ++node) {
      const auto place = static_cast<std::size_t>(node);
      known.segment[place] = static_cast<int>(i);
      known.fraction[place] =
          at > before ? (static_cast<float>(node) - before) / (at - before) : 0.0F;
    }
  }
}

void Columns::add(const Pen& pen, const Polyline& line) {
  use_pen(pen);
  place(line.x);
  const std::size_t count = line.y.size();
  m_y.resize(count);
  const auto scale = static_cast<float>(pen.pixels_per_unit);
  for (std::size_t i = 0; i < count; ++i) m_y[i] = line.y[i] * scale;
  const auto point = [&line](int i) {
    const auto place = static_cast<std::size_t>(i);
    return Point{line.x[place], line.y[place]};
  };
  const auto near = [&](int i) {
    const auto place = static_cast<std::size_t>(i);
    return is_near(m_y[place]) && is_near(line.x[place] * scale);
  };
  // A run goes on as long as its segments are there and near.
  int first = 0;
  bool was_near = count > 0 && near(0);
  for (int i = 1; i < static_cast<int>(count); ++i) {
    const bool now_near = near(i);
    const bool drawn = line.drawn[static_cast<std::size_t>(i)] != 0;
    if (!drawn || !was_near || !now_near) {
      add_run(first, i);
      first = i;
      if (drawn && !(was_near && now_near)) add_far_segment(point(i - 1), point(i));
    }
    was_near = now_near;
  }
  add_run(first, static_cast<int>(count));
}

void Columns::begin_trace(int first, int last) {
  const int begin = std::max(first - m_reach, 0);
  const int end = std::min(last + 3 * m_reach + 1, static_cast<int>(m_low.size()));
  std::fill(m_low.begin() + begin, m_low.begin() + end, kNothingLow);
  std::fill(m_high.begin() + begin, m_high.begin() + end, kNothingHigh);
}

// Nodes are kept with m_reach empty ones before them and behind them.
void Columns::trace(int node, float y) {
  const auto place = static_cast<std::size_t>(node + m_reach);
  m_low[place] = smaller(m_low[place], y);
  m_high[place] = larger(m_high[place], y);
}

// Points first..end-1, all of which are near, and the segments between them.
void Columns::add_run(int first, int end) {
  if (end - first < 2) return;
  const Abscissae& known = m_abscissae;
  const auto at = [&](int i) { return known.at[static_cast<std::size_t>(i)]; };
  const auto nearest = [&](int i) { return known.nearest[static_cast<std::size_t>(i)]; };
  const int first_node = std::max(nearest(first), 0);
  const int last_node = std::min(nearest(end - 1), m_last_node);
  if (first_node > last_node) return;
  begin_trace(first_node, last_node);
  while (nearest(first) < 0 && nearest(first + 1) < 0) ++first;
  while (nearest(end - 1) > m_last_node && nearest(end - 2) > m_last_node) --end;

  for (int i = first; i < end; ++i) {
    if (nearest(i) >= 0 && nearest(i) <= m_last_node)
      trace(nearest(i), m_y[static_cast<std::size_t>(i)]);
  }
  const auto last = static_cast<float>(m_last_node);
  const int from = static_cast<int>(std::ceil(std::max(at(first), 0.0F)));
  const int to = static_cast<int>(std::ceil(std::min(at(end - 1), last + 1)));
  for (int node = from; node < to; ++node) {
    const auto segment = static_cast<std::size_t>(known.segment[static_cast<std::size_t>(node)]);
    const float before = m_y[segment - 1];
    trace(node, before + known.fraction[static_cast<std::size_t>(node)] * (m_y[segment] - before));
  }
  dilate(first_node, last_node);
}

// The visible part of a segment with an end that is far away.
void Columns::add_far_segment(Point from, Point to) {
  if (std::isnan(from.x) || std::isnan(from.y) || std::isnan(to.x) || std::isnan(to.y)) return;
  const double scale = m_pen.pixels_per_unit;
  const double margin = (m_pen.half_width + 2) / scale;
  const Window window{{-margin, -margin}, {m_width / scale + margin, m_height / scale + margin}};
  const std::optional<VisiblePart> part = visible_part(finite(from), finite(to), window);
  if (!part) return;
  const auto node_of = [&](double x) { return x * scale * m_per_pixel + m_reach; };
  const double begin = node_of(part->from.x), end = node_of(part->to.x);
  const auto nearest = [&](double node) {
    return static_cast<int>(std::clamp(std::floor(node + 0.5), 0.0, double(m_last_node)));
  };
  begin_trace(nearest(begin), nearest(end));
  trace(nearest(begin), static_cast<float>(part->from.y * scale));
  trace(nearest(end), static_cast<float>(part->to.y * scale));
  for (int node = nearest(begin) + 1; node < nearest(end); ++node) {
    const double fraction = (node - begin) / (end - begin);
    trace(node,
          static_cast<float>(scale * (part->from.y + fraction * (part->to.y - part->from.y))));
  }
  dilate(nearest(begin), nearest(end));
}

// The line's interval at each node becomes that of its discs in the cells around.
void Columns::dilate(int first, int last) {
  const int begin = std::max(first - m_reach, m_reach);
  const int end = std::min(last + m_reach, m_last_node - m_reach);
  if (begin >= end) return;
  // Pieces that stay in the processor's nearest memory while all discs pass over them.
  constexpr int kPiece = 1024;
  for (int piece = begin; piece < end; piece += kPiece) {
    const int count = std::min(kPiece, end - piece);
    float* const top = m_top.data() + piece;
    float* const bottom = m_bottom.data() + piece;
    std::fill_n(top, count, kNothingLow);
    std::fill_n(bottom, count, kNothingHigh);
    for (int k = 0; k < m_reach; ++k) {
      const float half = m_disc[static_cast<std::size_t>(k)];
      // Node `cell` is the left edge of the cell, and nodes are padded by m_reach.
      const float* const low_left = m_low.data() + piece + m_reach - k;
      const float* const low_right = m_low.data() + piece + m_reach + 1 + k;
      const float* const high_left = m_high.data() + piece + m_reach - k;
      const float* const high_right = m_high.data() + piece + m_reach + 1 + k;
      for (int i = 0; i < count; ++i) {
        top[i] = smaller(top[i], smaller(low_left[i], low_right[i]) - half);
        bottom[i] = larger(bottom[i], larger(high_left[i], high_right[i]) + half);
      }
    }
    // The very rims of the discs, which have no height, meet the line between two nodes.
    if (m_rim > 0) {
      const float* const low_left = m_low.data() + piece + 1;
      const float* const low_right = m_low.data() + piece + 2 * m_reach;
      const float* const high_left = m_high.data() + piece + 1;
      const float* const high_right = m_high.data() + piece + 2 * m_reach;
      const float outer = m_rim, inner = 1 - m_rim;
      for (int i = 0; i < count; ++i) {
        const float low = smaller(outer * low_left[i - 1] + inner * low_left[i],
                                  inner * low_right[i] + outer * low_right[i + 1]);
        const float high = larger(outer * high_left[i - 1] + inner * high_left[i],
                                  inner * high_right[i] + outer * high_right[i + 1]);
        top[i] = smaller(top[i], low);
        bottom[i] = larger(bottom[i], high);
      }
    }
    for (int i = 0; i < count; ++i) insert(piece + i, top[i], bottom[i]);
  }
  m_first_cell = std::min(m_first_cell, begin);
  m_end_cell = std::max(m_end_cell, end);
}

// Intervals that touch become one. Where there are more than a cell holds, the two with the
// smallest gap do.
void Columns::insert(int place, float top, float bottom) {
  if (!(bottom > 0 && top < static_cast<float>(m_height))) return;
  Cell& cell = m_cells[static_cast<std::size_t>(place)];
  for (int i = 0; i < cell.count;) {
    if (cell.top[i] <= bottom && top <= cell.bottom[i]) {
      top = smaller(top, cell.top[i]);
      bottom = larger(bottom, cell.bottom[i]);
      --cell.count;
      cell.top[i] = cell.top[cell.count];
      cell.bottom[i] = cell.bottom[cell.count];
    } else {
      ++i;
    }
  }
  if (cell.count == Cell::kMost) {
    const auto gap = [&](int i) { return larger(cell.top[i] - bottom, top - cell.bottom[i]); };
    int closest = 0;
    for (int i = 1; i < cell.count; ++i) {
      if (gap(i) < gap(closest)) closest = i;
    }
    cell.top[closest] = smaller(cell.top[closest], top);
    cell.bottom[closest] = larger(cell.bottom[closest], bottom);
    return;
  }
  cell.top[cell.count] = top;
  cell.bottom[cell.count] = bottom;
  ++cell.count;
}

void Columns::flush(const PixelGrid& grid, std::uint32_t colour) {
  if (m_first_cell >= m_end_cell) return;
  const int first = (m_first_cell - m_reach) / m_per_pixel;
  const int last = (m_end_cell - 1 - m_reach) / m_per_pixel;
  for (int column = first; column <= last; ++column) blend_column(grid, column, colour);
  m_first_cell = m_last_node;
  m_end_cell = 0;
}

void Columns::blend_column(const PixelGrid& grid, int column, std::uint32_t colour) {
  Cell* const cells = m_cells.data() + m_reach + column * m_per_pixel;
  const auto height = static_cast<float>(m_height);
  // Rows that all cells cover wholly need no sums.
  float inner_top = 0, inner_bottom = height, outer_top = height, outer_bottom = 0;
  for (int i = 0; i < m_per_pixel; ++i) {
    Cell& cell = cells[i];
    if (cell.count != 1) inner_bottom = 0;
    for (int k = 0; k < cell.count; ++k) {
      const float top = larger(cell.top[k], 0), bottom = smaller(cell.bottom[k], height);
      inner_top = larger(inner_top, top);
      inner_bottom = smaller(inner_bottom, bottom);
      outer_top = smaller(outer_top, top);
      outer_bottom = larger(outer_bottom, bottom);
      // What the interval covers of each row is the sum of these up to the row.
      const int a = static_cast<int>(top * kWhole), b = static_cast<int>(bottom * kWhole);
      // Two arrays, because a processor waits when it reads two numbers that it wrote one by one.
      m_cover[static_cast<std::size_t>(a / kWhole)] += kWhole - a % kWhole;
      m_carry[static_cast<std::size_t>(a / kWhole)] += a % kWhole;
      m_cover[static_cast<std::size_t>(b / kWhole)] -= kWhole - b % kWhole;
      m_carry[static_cast<std::size_t>(b / kWhole)] -= b % kWhole;
    }
    cell.count = 0;
  }
  const int begin = static_cast<int>(outer_top);
  const int end = std::min(static_cast<int>(outer_bottom) + 2, m_height);
  const int whole = kWhole << m_per_pixel_log2;
  const int shift = 8 + m_per_pixel_log2;
  // The rows of the inner part, if there are enough of them to be worth the while.
  const int inner_begin = static_cast<int>(inner_top) + 2;
  const int inner_end = static_cast<int>(inner_bottom) - 1;
  std::uint32_t* const pixels = grid.pixels + column * grid.x_step;
  int sum = 0, carry = 0;
  for (int y = begin; y < end; ++y) {
    if (y == inner_begin && inner_end > inner_begin) {
      for (; y < inner_end; ++y) pixels[y * grid.y_step] = colour;
    }
    sum += m_cover[static_cast<std::size_t>(y)] + carry;
    carry = m_carry[static_cast<std::size_t>(y)];
    m_cover[static_cast<std::size_t>(y)] = 0;
    m_carry[static_cast<std::size_t>(y)] = 0;
    if (sum == 0) continue;
    std::uint32_t& pixel = pixels[y * grid.y_step];
    pixel = sum >= whole ? colour
                         : blend(pixel, colour,
                                 static_cast<std::uint32_t>((sum * 255 + whole / 2) >> shift));
  }
  m_cover[static_cast<std::size_t>(m_height)] = 0;
  m_carry[static_cast<std::size_t>(m_height)] = 0;
}

void Columns::clear() {
  for (Cell& cell : m_cells) cell.count = 0;
  m_first_cell = m_last_node;
  m_end_cell = 0;
}

}  // namespace kurv::raster
