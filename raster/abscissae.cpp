#include "raster/abscissae.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "raster/fast_min_max.h"

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
  if (x.empty() && m_x.empty()) return true;
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
  placement.is_known = false;  // should memory run out meanwhile
  placement.nodes = nodes;
  place_points(placement);
  placement.is_known = true;
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
  float widest = 0, before = placement.at.empty() ? 0 : placement.at.front();
  for (std::size_t i = 0; i < m_x.size(); ++i) {
    const float at = placement.at[i];
    widest = fast_max(at - before, widest);
    before = at;
    // Counted from one node further, because cutting off rounds towards zero.
    placement.nearest[i] = static_cast<int>(fast_min(fast_max(at + 1.5F, 0), last + 2)) - 1;
  }
  placement.is_dense = widest <= 0.5F;
  placement.has_asides = false;
  placement.crossings = crossings(placement, 0);
}

void Abscissae::find_asides() {
  Placement& placement = m_placements[m_current];
  if (placement.has_asides) return;
  placement.behind = crossings(placement, placement.nodes.aside);
  placement.before_next = crossings(placement, 1 - placement.nodes.aside);
  placement.has_asides = true;
}

// So far behind each node.
std::vector<Crossing> Abscissae::crossings(const Placement& placement, float aside) {
  const int count = placement.nodes.last + 1;
  std::vector<Crossing> result(static_cast<std::size_t>(count));
  const std::vector<float>& at = placement.at;
  int node = 0;
  // A point that stands before all nodes has none behind it that it could end.
  const auto is_before = [&](float x) { return x < static_cast<float>(node) + aside; };
  auto point = static_cast<std::size_t>(std::ranges::partition_point(at, is_before) - at.begin());
  for (point = std::max<std::size_t>(point, 1); point < at.size() && node < count; ++point) {
    const float before = at[point - 1] - aside, here = at[point] - aside;
    // One that stands on the point between two segments belongs to the second.
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
