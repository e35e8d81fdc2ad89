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
    if (bottom[place] > 0 && top[place] < height) insert(i, top[place], bottom[place]);
  }
  m_first = is_empty() ? first : std::min(m_first, first);
  m_end = std::max(m_end, end);
}

void Cells::insert(int place, float top, float bottom) {
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
    m_spilled.push_back({place, top, bottom});
    return;
  }
  cell.top[cell.count] = top;
  cell.bottom[cell.count] = bottom;
  ++cell.count;
}

void Cells::flush(const PixelGrid& grid, std::uint32_t colour) {
  if (is_empty()) return;
  std::ranges::sort(m_spilled, [](const Spilled& a, const Spilled& b) {
    return a.cell != b.cell ? a.cell < b.cell : a.top < b.top;
  });
  m_next_spilled = 0;
  const int last = (m_end - 1) >> m_per_pixel_log2;
  for (int column = m_first >> m_per_pixel_log2; column <= last; ++column) {
    blend_column(grid, column, colour);
  }
  m_spilled.clear();
  m_first = m_end = 0;
}

// What an interval covers of each row is the sum of what begins up to there.
void Cells::sum_interval(Extent& extent, float top, float bottom) {
  top = larger(top, 0);
  bottom = smaller(bottom, static_cast<float>(m_height));
  extent.outer_top = smaller(extent.outer_top, top);
  extent.outer_bottom = larger(extent.outer_bottom, bottom);
  extent.inner_top = larger(extent.inner_top, top);
  extent.inner_bottom = smaller(extent.inner_bottom, bottom);
  const int a = static_cast<int>(top * kWhole), b = static_cast<int>(bottom * kWhole);
  // Two arrays, because a processor waits when it reads two numbers that it wrote one by one.
  m_cover[static_cast<std::size_t>(a / kWhole)] += kWhole - a % kWhole;
  m_carry[static_cast<std::size_t>(a / kWhole)] += a % kWhole;
  m_cover[static_cast<std::size_t>(b / kWhole)] -= kWhole - b % kWhole;
  m_carry[static_cast<std::size_t>(b / kWhole)] -= b % kWhole;
}

// The union of what the cell holds and what it had no room for.
void Cells::sum_spilled(Extent& extent, const Cell& cell, std::span<const Spilled> spilled) {
  std::vector<Spilled> all(spilled.begin(), spilled.end());
  for (int k = 0; k < cell.count; ++k) all.push_back({0, cell.top[k], cell.bottom[k]});
  std::ranges::sort(all, {}, &Spilled::top);
  Spilled joined = all.front();
  for (const Spilled& next : all) {
    if (next.top > joined.bottom) {
      sum_interval(extent, joined.top, joined.bottom);
      joined = next;
    }
    joined.bottom = larger(joined.bottom, next.bottom);
  }
  sum_interval(extent, joined.top, joined.bottom);
}

// Empties the cells of the column into the sums.
Cells::Extent Cells::sum_column(int column) {
  const auto height = static_cast<float>(m_height);
  Extent extent{height, 0, 0, height};
  for (int place = column << m_per_pixel_log2; place < (column + 1) << m_per_pixel_log2; ++place) {
    Cell& cell = m_cells[static_cast<std::size_t>(place)];
    const std::size_t begin = m_next_spilled;
    while (m_next_spilled < m_spilled.size() && m_spilled[m_next_spilled].cell == place) {
      ++m_next_spilled;
    }
    if (m_next_spilled > begin) {
      sum_spilled(extent, cell, {m_spilled.data() + begin, m_next_spilled - begin});
    } else {
      for (int k = 0; k < cell.count; ++k) sum_interval(extent, cell.top[k], cell.bottom[k]);
    }
    if (cell.count != 1) extent.inner_bottom = 0;
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
