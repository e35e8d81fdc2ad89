#include "raster/abscissae.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace kurv::raster {
namespace {

constexpr float kLargest = std::numeric_limits<float>::max();

bool is_monotonic(std::span<const float> x) {
  if (x.empty()) return true;
  bool ascending = true, descending = true;
  float before = x.front();
  for (const float value : x) {
    ascending &= before <= value;
    descending &= before >= value;
    before = value;
  }
  return (ascending || descending) && std::abs(x.front()) <= kLargest &&
         std::abs(x.back()) <= kLargest;
}

}  // namespace

bool Abscissae::take(std::span<const float> x) {
  // Bit by bit, which is faster than asking which numbers are equal.
  if (x.size() == m_x.size() && std::memcmp(x.data(), m_x.data(), x.size_bytes()) == 0) return true;
  if (!is_monotonic(x)) return false;
  m_x.assign(x.begin(), x.end());
  m_is_reversed = !x.empty() && x.front() > x.back();
  for (Placement& placement : m_placements) placement.is_known = false;
  return true;
}

void Abscissae::place(const Nodes& nodes) {
  const auto is_wanted = [&nodes](const Placement& placement) {
    return placement.is_known && placement.nodes == nodes;
  };
  if (is_wanted(current())) return;
  m_current = 1 - m_current;
  if (is_wanted(current())) return;
  Placement& placement = m_placements[m_current];
  placement.is_known = true;
  placement.nodes = nodes;
  place_points(placement);
}

void Abscissae::place_points(Placement& placement) const {
  const Nodes& nodes = placement.nodes;
  placement.at.resize(m_x.size());
  placement.nearest.resize(m_x.size());
  std::ranges::transform(m_x, placement.at.begin(), [&nodes](float x) {
    const double at = x * nodes.per_unit + nodes.of_zero;
    return static_cast<float>(std::clamp<double>(at, -kLargest, kLargest));
  });
  if (m_is_reversed) std::ranges::reverse(placement.at);
  const auto last = static_cast<float>(nodes.last);
  float widest = 0;
  for (std::size_t i = 0; i < m_x.size(); ++i) {
    if (i > 0) widest = std::max(widest, placement.at[i] - placement.at[i - 1]);
    placement.nearest[i] =
        static_cast<int>(std::floor(std::clamp(placement.at[i] + 0.5F, -1.0F, last + 1)));
  }
  placement.is_dense = widest <= 0.5F;
  placement.crossings = crossings(placement, 0);
  placement.behind = crossings(placement, nodes.aside);
  placement.before_next = crossings(placement, 1 - nodes.aside);
}

// So far behind each node.
std::vector<Crossing> Abscissae::crossings(const Placement& placement, float aside) {
  const int count = placement.nodes.last + 1;
  std::vector<Crossing> result(static_cast<std::size_t>(count));
  for (std::size_t point = 1; point < placement.at.size(); ++point) {
    const float before = placement.at[point - 1] - aside, here = placement.at[point] - aside;
    const auto end = static_cast<float>(count);
    const int first = static_cast<int>(std::ceil(std::clamp(before, 0.0F, end)));
    const int last = static_cast<int>(std::floor(std::clamp(here, -1.0F, end - 1)));
    for (int node = first; node <= last; ++node) {
      result[static_cast<std::size_t>(node)] = {
          static_cast<int>(point),
          here > before ? (static_cast<float>(node) - before) / (here - before) : 0.0F};
    }
  }
  return result;
}

}  // namespace kurv::raster
