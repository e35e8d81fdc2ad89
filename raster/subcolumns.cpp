#include "raster/subcolumns.h"

#include <algorithm>
#include <limits>

#include "raster/fast_min_max.h"

namespace kurv::raster {
namespace {

constexpr float kNoTop = std::numeric_limits<float>::infinity();
constexpr float kNoBottom = -kNoTop;

}  // namespace

Subcolumns::Subcolumns(int width, int height) : m_width(width), m_accumulator(height) {}

// Of whole strips.
std::size_t Subcolumns::capacity() const {
  const int strips = (width() + StripAccumulator::kWidth - 1) / StripAccumulator::kWidth;
  return static_cast<std::size_t>(strips * StripAccumulator::kWidth) << m_per_pixel_log2;
}

void Subcolumns::set_per_pixel_log2(int value) {
  m_per_pixel_log2 = value;
  m_top.resize(std::max(m_top.size(), capacity()));
  m_bottom.resize(m_top.size());
  m_extra_limit = 2 * m_top.size();
}

void Subcolumns::cover(int first, std::span<const float> top, std::span<const float> bottom) {
  const int end = first + static_cast<int>(top.size());
  if (is_empty()) m_first = m_end = first;
  if (first >= m_end || end <= m_first) {
    if (first >= m_end) extend(m_end, first);
    if (end <= m_first) extend(end, m_first);
    m_first = std::min(m_first, first);
    m_end = std::max(m_end, end);
    return assign(first, top, bottom);
  }
  extend(first, end);
  for (std::size_t i = 0; i < top.size(); ++i) {
    if (top[i] < bottom[i]) insert(first + static_cast<int>(i), {top[i], bottom[i]});
  }
}

// Extends m_first..m_end-1 by subcolumns first..end-1 and the gap between the two, all of them
// empty.
void Subcolumns::extend(int first, int end) {
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

void Subcolumns::assign(int first, std::span<const float> top, std::span<const float> bottom) {
  std::ranges::copy(top, m_top.begin() + first);
  std::ranges::copy(bottom, m_bottom.begin() + first);
}

void Subcolumns::insert(int subcolumn, Interval interval) {
  const auto index = static_cast<std::size_t>(subcolumn);
  float& top = m_top[index];
  float& bottom = m_bottom[index];
  if (!(top < bottom)) {
    top = interval.top;
    bottom = interval.bottom;
  } else if (interval.top <= bottom && top <= interval.bottom) {
    top = fast_min(top, interval.top);
    bottom = fast_max(bottom, interval.bottom);
  } else {
    m_extra.push_back({subcolumn, interval});
    if (m_extra.size() < m_extra_limit) return;
    merge_extra();
    m_extra_limit = std::max(m_extra_limit, 2 * m_extra.size());
  }
}

// Merges the intervals of each subcolumn that touch each other. Those that remain are sorted by
// subcolumn.
void Subcolumns::merge_extra() {
  if (m_extra.empty()) return;
  std::ranges::sort(m_extra, [](const ExtraInterval& a, const ExtraInterval& b) {
    return a.subcolumn != b.subcolumn ? a.subcolumn < b.subcolumn : a.interval.top < b.interval.top;
  });
  std::vector<ExtraInterval> kept;
  for (auto begin = m_extra.begin(); begin != m_extra.end();) {
    const auto is_elsewhere = [subcolumn = begin->subcolumn](const ExtraInterval& f) {
      return f.subcolumn != subcolumn;
    };
    const auto end = std::find_if(begin, m_extra.end(), is_elsewhere);
    merge_subcolumn({begin, end}, kept);
    begin = end;
  }
  m_extra.swap(kept);
}

// `extra` are all extra intervals of one subcolumn, sorted by their tops. Those that touch its
// first interval are merged into it; the others are kept, merged with each other.
void Subcolumns::merge_subcolumn(std::span<const ExtraInterval> extra,
                                 std::vector<ExtraInterval>& kept) {
  const auto index = static_cast<std::size_t>(extra.front().subcolumn);
  Interval own{m_top[index], m_bottom[index]};
  const auto touch = [](const Interval& a, const Interval& b) {
    return a.top <= b.bottom && b.top <= a.bottom;
  };
  const auto join = [](Interval& a, const Interval& b) {
    a = {fast_min(a.top, b.top), fast_max(a.bottom, b.bottom)};
  };
  for (std::size_t i = 0; i < extra.size();) {
    Interval joined = extra[i].interval;
    for (++i; i < extra.size() && touch(joined, extra[i].interval); ++i) {
      join(joined, extra[i].interval);
    }
    if (touch(joined, own)) {
      join(own, joined);
    } else {
      kept.push_back({extra.front().subcolumn, joined});
    }
  }
  m_top[index] = own.top;
  m_bottom[index] = own.bottom;
}

void Subcolumns::prepare(int first_strip, int end_strip) {
  merge_extra();
  m_next_extra = 0;
  extend(first_strip * per_strip(), end_strip * per_strip());
}

void Subcolumns::fill(int strip) {
  const int first = strip * per_strip();
  m_accumulator.add(m_top.data() + first, m_bottom.data() + first, m_per_pixel_log2);
  for (; m_next_extra < m_extra.size(); ++m_next_extra) {
    const ExtraInterval& extra = m_extra[m_next_extra];
    if (extra.subcolumn >= first + per_strip()) break;
    m_accumulator.add(extra.subcolumn - first, extra.interval, m_per_pixel_log2);
  }
}

void Subcolumns::clear() {
  m_accumulator.clear();
  m_extra.clear();
  m_first = m_end = 0;
}

}  // namespace kurv::raster
