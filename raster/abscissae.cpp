#include "raster/abscissae.h"

#include <algorithm>
#include <cmath>
#include <functional>
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
  if (std::ranges::equal(m_x, x)) return true;
  if (!is_monotonic(x)) return false;
  m_x.assign(x.begin(), x.end());
  m_is_reversed = !x.empty() && x.front() > x.back();
  m_is_placed = false;
  return true;
}

std::ptrdiff_t Abscissae::count_within(float low, float high) const {
  if (m_is_reversed) {
    return std::ranges::upper_bound(m_x, low, std::greater()) -
           std::ranges::lower_bound(m_x, high, std::greater());
  }
  return std::ranges::upper_bound(m_x, high) - std::ranges::lower_bound(m_x, low);
}

void Abscissae::place(const Nodes& nodes) {
  if (m_is_placed && nodes == m_nodes) return;
  m_is_placed = true;
  m_nodes = nodes;
  const std::size_t count = m_x.size();
  m_at.resize(count);
  m_nearest.resize(count);
  m_segment.assign(static_cast<std::size_t>(m_nodes.last) + 1, 0);
  m_fraction.assign(static_cast<std::size_t>(m_nodes.last) + 1, 0);
  const auto last = static_cast<float>(m_nodes.last);
  for (std::size_t i = 0; i < count; ++i) {
    const double at = m_x[i] * m_nodes.per_unit + m_nodes.of_zero;
    m_at[i] = static_cast<float>(std::clamp<double>(at, -kLargest, kLargest));
  }
  if (m_is_reversed) std::ranges::reverse(m_at);
  for (std::size_t i = 0; i < count; ++i) {
    m_nearest[i] = static_cast<int>(std::floor(std::clamp(m_at[i] + 0.5F, -1.0F, last + 1)));
    if (i > 0) meet_nodes(static_cast<int>(i));
  }
}

void Abscissae::meet_nodes(int point) {
  const float before = at(point - 1), here = at(point);
  const auto last = static_cast<float>(m_nodes.last);
  const int first = static_cast<int>(std::ceil(std::clamp(before, 0.0F, last + 1)));
  const int end = static_cast<int>(std::floor(std::clamp(here, -1.0F, last)));
  for (int node = first; node <= end; ++node) {
    const auto place = static_cast<std::size_t>(node);
    m_segment[place] = point;
    m_fraction[place] =
        here > before ? (static_cast<float>(node) - before) / (here - before) : 0.0F;
  }
}

}  // namespace kurv::raster
