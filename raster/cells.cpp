#include "raster/cells.h"

#include <algorithm>

#include "raster/blend.h"
#include "raster/extremes.h"

namespace kurv::raster {
namespace {

// Parts of a row, so that sums come out exact.
constexpr int kWholeLog2 = 8;
constexpr int kWhole = 1 << kWholeLog2;

}  // namespace

Cells::Cells(int width, int height) : m_width(width), m_height(height) {}

void Cells::set_per_pixel_log2(int value) {
  m_per_pixel_log2 = value;
  const auto rows = static_cast<std::size_t>(m_height) + 1;
  m_cells.resize(std::max(m_cells.size(), static_cast<std::size_t>(count())));
  m_cover.resize(rows);
  m_carry.resize(rows);
}

void Cells::cover(int first, std::span<const float> top, std::span<const float> bottom) {
  const auto height = static_cast<float>(m_height);
  const int end = first + static_cast<int>(top.size());
  for (int i = first; i < end; ++i) {
    const auto place = static_cast<std::size_t>(i - first);
    if (bottom[place] > 0 && top[place] < height) insert(i, {top[place], bottom[place]});
  }
  m_first = is_empty() ? first : std::min(m_first, first);
  m_end = std::max(m_end, end);
}

void Cells::insert(int place, Interval interval) {
  Cell& cell = m_cells[static_cast<std::size_t>(place)];
  for (int i = 0; i < cell.count;) {
    Interval& other = cell.intervals[i];
    if (other.top <= interval.bottom && interval.top <= other.bottom) {
      interval = {smaller(interval.top, other.top), larger(interval.bottom, other.bottom)};
      other = cell.intervals[--cell.count];
    } else {
      ++i;
    }
  }
  if (cell.count == Cell::kMost) {
    m_spilled.push_back({place, interval});
  } else {
    cell.intervals[cell.count++] = interval;
  }
}

void Cells::flush(const PixelGrid& grid, std::uint32_t colour) {
  if (is_empty()) return;
  std::ranges::sort(m_spilled, {}, &Spilled::cell);
  m_next_spilled = 0;
  const int last = (m_end - 1) >> m_per_pixel_log2;
  for (int column = m_first >> m_per_pixel_log2; column <= last; ++column) {
    blend_column(grid, column, colour);
  }
  m_spilled.clear();
  m_first = m_end = 0;
}

// What the cell has spilled is joined with the rest of it.
std::span<const Cells::Interval> Cells::held_by(int place) {
  const std::span<const Interval> held = m_cells[static_cast<std::size_t>(place)].held();
  if (m_next_spilled == m_spilled.size() || m_spilled[m_next_spilled].cell != place) return held;
  std::vector<Interval> all(held.begin(), held.end());
  for (; m_next_spilled < m_spilled.size() && m_spilled[m_next_spilled].cell == place;
       ++m_next_spilled) {
    all.push_back(m_spilled[m_next_spilled].interval);
  }
  std::ranges::sort(all, {}, &Interval::top);
  m_joined.clear();
  for (const Interval& next : all) {
    if (m_joined.empty() || next.top > m_joined.back().bottom) {
      m_joined.push_back(next);
    } else {
      m_joined.back().bottom = larger(m_joined.back().bottom, next.bottom);
    }
  }
  return m_joined;
}

// Empties the cells of the column into the sums.
Cells::Extent Cells::sum_column(int column) {
  const auto height = static_cast<float>(m_height);
  Extent extent{height, 0, 0, height};
  for (int place = column << m_per_pixel_log2; place < (column + 1) << m_per_pixel_log2; ++place) {
    Cell& cell = m_cells[static_cast<std::size_t>(place)];
    const std::span<const Interval> intervals = m_spilled.empty() ? cell.held() : held_by(place);
    if (intervals.size() != 1) extent.inner_bottom = 0;
    for (const Interval& interval : intervals) {
      const float top = larger(interval.top, 0), bottom = smaller(interval.bottom, height);
      extent.outer_top = smaller(extent.outer_top, top);
      extent.outer_bottom = larger(extent.outer_bottom, bottom);
      extent.inner_top = larger(extent.inner_top, top);
      extent.inner_bottom = smaller(extent.inner_bottom, bottom);
      // What the interval covers of each row is the sum of what begins up to there.
      const int a = static_cast<int>(top * kWhole), b = static_cast<int>(bottom * kWhole);
      // Two arrays, because a processor waits when it reads two numbers that it wrote one by one.
      m_cover[static_cast<std::size_t>(a / kWhole)] += kWhole - a % kWhole;
      m_carry[static_cast<std::size_t>(a / kWhole)] += a % kWhole;
      m_cover[static_cast<std::size_t>(b / kWhole)] -= kWhole - b % kWhole;
      m_carry[static_cast<std::size_t>(b / kWhole)] -= b % kWhole;
    }
    cell.count = 0;
  }
  return extent;
}

void Cells::blend_column(const PixelGrid& grid, int column, std::uint32_t colour) {
  const Extent extent = sum_column(column);
  const int begin = static_cast<int>(extent.outer_top);
  const int end = std::min(static_cast<int>(extent.outer_bottom) + 2, m_height);
  const int whole = kWhole << m_per_pixel_log2;
  const int shift = kWholeLog2 + m_per_pixel_log2;
  // Rows that all cells cover wholly need no sums.
  const int inner_begin = static_cast<int>(extent.inner_top) + 2;
  const int inner_end = static_cast<int>(extent.inner_bottom) - 1;
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

void Cells::clear() {
  for (Cell& cell : m_cells) cell.count = 0;
  m_spilled.clear();
  m_first = m_end = 0;
}

}  // namespace kurv::raster
