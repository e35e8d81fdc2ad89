#include "raster/trace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kurv::raster {
namespace {

constexpr float kNothingLow = std::numeric_limits<float>::infinity();
constexpr float kNothingHigh = -kNothingLow;
// Pieces that stay in the processor's nearest memory while all discs pass over them.
constexpr int kPiece = 1024;

}  // namespace

void Trace::use(const Cells& cells, double half_width) {
  const double half_cells = half_width * cells.per_pixel();
  m_reach = static_cast<int>(half_cells + 0.5);
  m_last_node = cells.count() + 2 * m_reach;
  m_rim = static_cast<float>(half_cells + 0.5 - m_reach);
  m_discs.clear();
  for (int k = 0; k < m_reach; ++k) {
    // Between the two nodes of its edges the line passes the middle of the cell itself.
    const double distance = k == 0 ? 0 : (k + 0.5) / cells.per_pixel();
    m_discs.push_back(static_cast<float>(
        std::sqrt(std::max(0.0, half_width * half_width - distance * distance))));
  }
  m_low.resize(static_cast<std::size_t>(m_last_node) + 1);
  m_high.resize(static_cast<std::size_t>(m_last_node) + 1);
  m_top.resize(kPiece);
  m_bottom.resize(kPiece);
}

// Discs ask for nodes on either side of those that are passed, too.
void Trace::begin(int first, int last) {
  const int begin = std::max(first - 2 * m_reach, 0);
  const int end = std::min(last + 2 * m_reach, m_last_node) + 1;
  std::fill(m_low.begin() + begin, m_low.begin() + end, kNothingLow);
  std::fill(m_high.begin() + begin, m_high.begin() + end, kNothingHigh);
}

void Trace::dilate(int first, int last, Cells& cells) {
  const int begin = std::max(first - 2 * m_reach, 0);
  const int end = std::min(last, cells.count());
  for (int piece = begin; piece < end; piece += kPiece) {
    const int count = std::min(kPiece, end - piece);
    std::fill_n(m_top.begin(), count, kNothingLow);
    std::fill_n(m_bottom.begin(), count, kNothingHigh);
    cover_discs(piece, count);
    if (m_rim > 0) cover_rims(piece, count);
    const auto size = static_cast<std::size_t>(count);
    cells.cover(piece, {m_top.data(), size}, {m_bottom.data(), size});
  }
}

// The left edge of a cell is m_reach nodes behind the one that has its number.
void Trace::cover_discs(int begin, int count) {
  float* const top = m_top.data();
  float* const bottom = m_bottom.data();
  for (int k = 0; k < m_reach; ++k) {
    const float half = m_discs[static_cast<std::size_t>(k)];
    const float* const low_left = m_low.data() + begin + m_reach - k;
    const float* const low_right = m_low.data() + begin + m_reach + 1 + k;
    const float* const high_left = m_high.data() + begin + m_reach - k;
    const float* const high_right = m_high.data() + begin + m_reach + 1 + k;
    for (int i = 0; i < count; ++i) {
      top[i] = smaller(top[i], smaller(low_left[i], low_right[i]) - half);
      bottom[i] = larger(bottom[i], larger(high_left[i], high_right[i]) + half);
    }
  }
}

// The very rims of the discs, which have no height, meet the line between two nodes.
void Trace::cover_rims(int begin, int count) {
  const float* const low_left = m_low.data() + begin;
  const float* const low_right = m_low.data() + begin + 2 * m_reach;
  const float* const high_left = m_high.data() + begin;
  const float* const high_right = m_high.data() + begin + 2 * m_reach;
  const float outer = m_rim, inner = 1 - m_rim;
  float* const top = m_top.data();
  float* const bottom = m_bottom.data();
  for (int i = 0; i < count; ++i) {
    const float low = smaller(outer * low_left[i] + inner * low_left[i + 1],
                              inner * low_right[i] + outer * low_right[i + 1]);
    const float high = larger(outer * high_left[i] + inner * high_left[i + 1],
                              inner * high_right[i] + outer * high_right[i + 1]);
    top[i] = smaller(top[i], low);
    bottom[i] = larger(bottom[i], high);
  }
}

}  // namespace kurv::raster
