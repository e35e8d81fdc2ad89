#include "raster/envelope.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace kurv::raster {
namespace {

constexpr float kEmptyLow = std::numeric_limits<float>::infinity();
constexpr float kEmptyHigh = -kEmptyLow;

}  // namespace

void Envelope::configure(const Subcolumns& subcolumns, double half_width) {
  const double half_subcolumns = half_width * subcolumns.per_pixel();
  m_reach = static_cast<int>(half_subcolumns + 0.5);
  m_last_node = subcolumns.count() + 2 * m_reach;
  m_reach_fraction = static_cast<float>(half_subcolumns + 0.5 - m_reach);
  m_disc_half_heights.clear();
  for (int k = 0; k < m_reach; ++k) {
    // In the subcolumn between two nodes the line passes the middle itself.
    const double distance = k == 0 ? 0 : (k + 0.5) / subcolumns.per_pixel();
    m_disc_half_heights.push_back(static_cast<float>(
        std::sqrt(std::max(0.0, half_width * half_width - distance * distance))));
  }
  m_half_width = static_cast<float>(half_width);
  m_low.resize(static_cast<std::size_t>(m_last_node) + 3);
  m_high.resize(static_cast<std::size_t>(m_last_node) + 3);
  m_top.resize(static_cast<std::size_t>(subcolumns.per_strip()));
  m_bottom.resize(static_cast<std::size_t>(subcolumns.per_strip()));
}

// The discs also read nodes on either side of those that are sampled.
void Envelope::reset(int first, int last) {
  const int begin = std::max(first - 2 * m_reach, 0);
  const int end = std::min(last + 2 * m_reach, m_last_node) + 3;
  std::fill(m_low.begin() + begin, m_low.begin() + end, kEmptyLow);
  std::fill(m_high.begin() + begin, m_high.begin() + end, kEmptyHigh);
}

// Strip by strip, so that the intervals stay in the L1 cache during all passes over them.
void Envelope::dilate(int first, int last, Subcolumns& subcolumns, const FrontToBackLayer* occluder,
                      const DenseRun* run) {
  const int begin = std::max(first - 2 * m_reach, 0);
  const int end = std::min(last, subcolumns.count());
  const int per_strip = subcolumns.per_strip();
  for (int piece = begin; piece < end;) {
    const int piece_end = std::min(end, (piece / per_strip + 1) * per_strip);
    if (!occluder || !is_occluded(piece, piece_end, subcolumns, *occluder)) {
      const int count = piece_end - piece;
      std::fill_n(m_top.begin(), count, kEmptyLow);
      std::fill_n(m_bottom.begin(), count, kEmptyHigh);
      dilate_by_discs(piece, count);
      if (run) {
        dilate_by_fractional_reach_of(*run, piece, count);
      } else if (m_reach_fraction > 0) {
        dilate_by_fractional_reach(piece, count);
      }
      const auto size = static_cast<std::size_t>(count);
      subcolumns.cover(piece, {m_top.data(), size}, {m_bottom.data(), size});
    }
    piece = piece_end;
  }
}

// Of subcolumns begin..end-1 of one strip, by the bounds of the line there.
bool Envelope::is_occluded(int begin, int end, const Subcolumns& subcolumns,
                           const FrontToBackLayer& occluder) const {
  const int last = end + 2 * m_reach;
  const float* const low = m_low.data() + 1;
  const float* const high = m_high.data() + 1;
  // Independent accumulators, so that no minimum waits for the one before it.
  constexpr int kAtOnce = 8;
  std::array<float, kAtOnce> tops, bottoms;
  tops.fill(kEmptyLow);
  bottoms.fill(kEmptyHigh);
  int node = begin;
  for (; node + kAtOnce <= last + 1; node += kAtOnce) {
    for (std::size_t k = 0; k < kAtOnce; ++k) {
      tops[k] = fast_min(low[node + static_cast<int>(k)], tops[k]);
      bottoms[k] = fast_max(high[node + static_cast<int>(k)], bottoms[k]);
    }
  }
  for (; node <= last; ++node) {
    tops[0] = fast_min(low[node], tops[0]);
    bottoms[0] = fast_max(high[node], bottoms[0]);
  }
  const float top = *std::ranges::min_element(tops), bottom = *std::ranges::max_element(bottoms);
  const auto row = [&subcolumns](float y) {
    return static_cast<int>(std::clamp(y, 0.0F, static_cast<float>(subcolumns.height())));
  };
  return occluder.occludes(begin / subcolumns.per_strip(), row(top - m_half_width),
                           row(std::ceil(bottom + m_half_width)));
}

// The left edge of subcolumn i is node i + m_reach.
void Envelope::dilate_by_discs(int begin, int count) {
  float* const top = m_top.data();
  float* const bottom = m_bottom.data();
  for (int k = 0; k < m_reach; ++k) {
    const float half = m_disc_half_heights[static_cast<std::size_t>(k)];
    const float* const low_left = m_low.data() + 1 + begin + m_reach - k;
    const float* const low_right = m_low.data() + 1 + begin + m_reach + 1 + k;
    const float* const high_left = m_high.data() + 1 + begin + m_reach - k;
    const float* const high_right = m_high.data() + 1 + begin + m_reach + 1 + k;
    for (int i = 0; i < count; ++i) {
      top[i] = fast_min(top[i], fast_min(low_left[i], low_right[i]) - half);
      bottom[i] = fast_max(bottom[i], fast_max(high_left[i], high_right[i]) + half);
    }
  }
}

// Dilates by the rims of the discs, which end between two nodes: there the line is interpolated.
// A disc has no height at its rim.
void Envelope::dilate_by_fractional_reach(int begin, int count) {
  const float* const low_left = m_low.data() + 1 + begin;
  const float* const low_right = m_low.data() + 1 + begin + 2 * m_reach;
  const float* const high_left = m_high.data() + 1 + begin;
  const float* const high_right = m_high.data() + 1 + begin + 2 * m_reach;
  const float outer = m_reach_fraction, inner = 1 - m_reach_fraction;
  float* const top = m_top.data();
  float* const bottom = m_bottom.data();
  for (int i = 0; i < count; ++i) {
    const float low = fast_min(outer * low_left[i] + inner * low_left[i + 1],
                               inner * low_right[i] + outer * low_right[i + 1]);
    const float high = fast_max(outer * high_left[i] + inner * high_left[i + 1],
                                inner * high_right[i] + outer * high_right[i + 1]);
    top[i] = fast_min(top[i], low);
    bottom[i] = fast_max(bottom[i], high);
  }
}

// The same with the line itself: where points are dense, the maxima at two nodes do not say where
// the line is between them.
void Envelope::dilate_by_fractional_reach_of(const DenseRun& run, int begin, int count) {
  for (int i = 0; i < count; ++i) {
    const float left = run.y_at(run.x.crossing_after(begin + i));
    const float right = run.y_at(run.x.crossing_before_next(begin + i + 2 * m_reach));
    float& top = m_top[static_cast<std::size_t>(i)];
    float& bottom = m_bottom[static_cast<std::size_t>(i)];
    top = fast_min(left, fast_min(right, top));
    bottom = fast_max(left, fast_max(right, bottom));
  }
}

}  // namespace kurv::raster
