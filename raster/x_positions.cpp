#include "raster/x_positions.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "raster/fast_min_max.h"

namespace kurv::raster {
namespace {

constexpr float kMaxFloat = std::numeric_limits<float>::max();

bool is_monotonic(std::span<const float> x) {
  if (x.empty()) return true;
  bool ascending = true, descending = true;
  float before = x.front();
  for (const float value : x) {
    ascending &= before <= value;
    descending &= before >= value;
    before = value;
  }
  return (ascending || descending) && std::abs(x.front()) <= kMaxFloat &&
         std::abs(x.back()) <= kMaxFloat;
}

}  // namespace

bool XPositions::set_x(std::span<const float> x) {
  // Compared as bytes, which is faster than comparing floats.
  if (x.empty() && m_x.empty()) return true;
  if (x.size() == m_x.size() && std::memcmp(x.data(), m_x.data(), x.size_bytes()) == 0) return true;
  if (!is_monotonic(x)) return false;
  m_x.assign(x.begin(), x.end());
  m_is_reversed = !x.empty() && x.front() > x.back();
  for (GridPositions& positions : m_cached) positions.is_known = false;
  return true;
}

void XPositions::set_grid(const NodeGrid& grid) {
  const auto is_wanted = [&grid](const GridPositions& positions) {
    return positions.is_known && positions.grid == grid;
  };
  if (is_wanted(current())) return;
  m_current = 1 - m_current;
  if (is_wanted(current())) return;
  GridPositions& positions = m_cached[m_current];
  positions.is_known = false;  // stays so if an allocation below fails
  positions.grid = grid;
  compute_positions(positions);
  positions.is_known = true;
}

void XPositions::compute_positions(GridPositions& positions) const {
  const NodeGrid& grid = positions.grid;
  positions.at.resize(m_x.size());
  positions.nearest.resize(m_x.size());
  std::ranges::transform(m_x, positions.at.begin(), [&grid](float x) {
    const double at = x * grid.nodes_per_unit + grid.origin;
    return static_cast<float>(std::clamp<double>(at, -kMaxFloat, kMaxFloat));
  });
  if (m_is_reversed) std::ranges::reverse(positions.at);
  const auto last = static_cast<float>(grid.last);
  float widest = 0, before = positions.at.empty() ? 0 : positions.at.front();
  for (std::size_t i = 0; i < m_x.size(); ++i) {
    const float at = positions.at[i];
    widest = fast_max(at - before, widest);
    before = at;
    // Shifted by one node and back, because truncation rounds negative numbers up.
    positions.nearest[i] = static_cast<int>(fast_min(fast_max(at + 1.5F, 0), last + 2)) - 1;
  }
  positions.is_dense = widest <= 0.5F;
  positions.has_rim_crossings = false;
  positions.crossings = crossings(positions, 0);
}

void XPositions::find_rim_crossings() {
  GridPositions& positions = m_cached[m_current];
  if (positions.has_rim_crossings) return;
  positions.after_node = crossings(positions, positions.grid.rim_offset);
  positions.before_next_node = crossings(positions, 1 - positions.grid.rim_offset);
  positions.has_rim_crossings = true;
}

// At `rim_offset` after each node.
std::vector<Crossing> XPositions::crossings(const GridPositions& positions, float rim_offset) {
  const int count = positions.grid.last + 1;
  std::vector<Crossing> result(static_cast<std::size_t>(count));
  const std::vector<float>& at = positions.at;
  int node = 0;
  // Segments that end before the first node cross none.
  const auto is_before = [&](float x) { return x < static_cast<float>(node) + rim_offset; };
  auto point = static_cast<std::size_t>(std::ranges::partition_point(at, is_before) - at.begin());
  for (point = std::max<std::size_t>(point, 1); point < at.size() && node < count; ++point) {
    const float before = at[point - 1] - rim_offset, here = at[point] - rim_offset;
    // A node exactly at a point belongs to the segment after it.
    if (node > 0 && static_cast<float>(node - 1) >= before) --node;
    while (node < count && static_cast<float>(node) < before) ++node;
    for (; node < count && static_cast<float>(node) <= here; ++node) {
      result[static_cast<std::size_t>(node)] = {
          static_cast<int>(point),
          here > before ? (static_cast<float>(node) - before) / (here - before) : 0.0F};
    }
  }
  return result;
}

}  // namespace kurv::raster
