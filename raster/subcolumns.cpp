#include "raster/subcolumns.h"

#include <algorithm>
#include <limits>

#include "raster/fast_min_max.h"

namespace kurv::raster {
namespace {

constexpr float kNoTop = std::numeric_limits<float>::infinity();
constexpr float kNoBottom = -kNoTop;

}  // namespace

Cells::Cells(int width, int height) : m_width(width), m_tile(height) {}

// Of whole tiles.
std::size_t Cells::room() const {
  const int tiles = (width() + Tile::kColumns - 1) / Tile::kColumns;
  return static_cast<std::size_t>(tiles * Tile::kColumns) << m_per_pixel_log2;
}

void Cells::set_per_pixel_log2(int value) {
  m_per_pixel_log2 = value;
  m_top.resize(std::max(m_top.size(), room()));
  m_bottom.resize(m_top.size());
  m_most_further = 2 * m_top.size();
}

void Cells::cover(int first, std::span<const float> top, std::span<const float> bottom) {
  const int end = first + static_cast<int>(top.size());
  if (is_empty()) m_first = m_end = first;
  if (first >= m_end || end <= m_first) {
    if (first >= m_end) reach(m_end, first);
    if (end <= m_first) reach(end, m_first);
    m_first = std::min(m_first, first);
    m_end = std::max(m_end, end);
    return set(first, top, bottom);
  }
  reach(first, end);
  for (std::size_t i = 0; i < top.size(); ++i) {
    if (top[i] < bottom[i]) insert(first + static_cast<int>(i), {top[i], bottom[i]});
  }
}

// Cells first..end-1 and what lies between them and the others count as well, as empty as they are.
void Cells::reach(int first, int end) {
  const auto empty = [this](int from, int to) {
    if (from >= to) return;
    std::fill(m_top.begin() + from, m_top.begin() + to, kNoTop);
    std::fill(m_bottom.begin() + from, m_bottom.begin() + to, kNoBottom);
  };
  empty(first, m_first);
  empty(m_end, end);
  m_first = std::min(m_first, first);
  m_end = std::max(m_end, end);
}

void Cells::set(int first, std::span<const float> top, std::span<const float> bottom) {
  std::ranges::copy(top, m_top.begin() + first);
  std::ranges::copy(bottom, m_bottom.begin() + first);
}

void Cells::insert(int cell, Interval interval) {
  const auto place = static_cast<std::size_t>(cell);
  float& top = m_top[place];
  float& bottom = m_bottom[place];
  if (!(top < bottom)) {
    top = interval.top;
    bottom = interval.bottom;
  } else if (interval.top <= bottom && top <= interval.bottom) {
    top = fast_min(top, interval.top);
    bottom = fast_max(bottom, interval.bottom);
  } else {
    m_further.push_back({cell, interval});
    if (m_further.size() < m_most_further) return;
    join_further();
    m_most_further = std::max(m_most_further, 2 * m_further.size());
  }
}

// The intervals of a cell no longer touch each other, and all but its first are in the order of
// their cells.
void Cells::join_further() {
  if (m_further.empty()) return;
  std::ranges::sort(m_further, [](const Further& a, const Further& b) {
    return a.cell != b.cell ? a.cell < b.cell : a.interval.top < b.interval.top;
  });
  std::vector<Further> kept;
  for (auto begin = m_further.begin(); begin != m_further.end();) {
    const auto is_elsewhere = [cell = begin->cell](const Further& f) { return f.cell != cell; };
    const auto end = std::find_if(begin, m_further.end(), is_elsewhere);
    join_cell({begin, end}, kept);
    begin = end;
  }
  m_further.swap(kept);
}

// These are all further ones of one cell, by their tops. Those that have become one interval with
// the first of the cell go into it, and the others are kept, joined with each other.
void Cells::join_cell(std::span<const Further> further, std::vector<Further>& kept) {
  const auto place = static_cast<std::size_t>(further.front().cell);
  Interval own{m_top[place], m_bottom[place]};
  const auto touch = [](const Interval& a, const Interval& b) {
    return a.top <= b.bottom && b.top <= a.bottom;
  };
  const auto join = [](Interval& a, const Interval& b) {
    a = {fast_min(a.top, b.top), fast_max(a.bottom, b.bottom)};
  };
  for (std::size_t i = 0; i < further.size();) {
    Interval joined = further[i].interval;
    for (++i; i < further.size() && touch(joined, further[i].interval); ++i) {
      join(joined, further[i].interval);
    }
    if (touch(joined, own)) {
      join(own, joined);
    } else {
      kept.push_back({further.front().cell, joined});
    }
  }
  m_top[place] = own.top;
  m_bottom[place] = own.bottom;
}

void Cells::prepare(int first_tile, int end_tile) {
  join_further();
  m_next_further = 0;
  reach(first_tile * in_tile(), end_tile * in_tile());
}

void Cells::fill(int tile) {
  const int first = tile * in_tile();
  m_tile.add(m_top.data() + first, m_bottom.data() + first, m_per_pixel_log2);
  for (; m_next_further < m_further.size(); ++m_next_further) {
    const Further& further = m_further[m_next_further];
    if (further.cell >= first + in_tile()) break;
    m_tile.add(further.cell - first, further.interval, m_per_pixel_log2);
  }
}

void Cells::clear() {
  m_tile.clear();
  m_further.clear();
  m_first = m_end = 0;
}

}  // namespace kurv::raster
