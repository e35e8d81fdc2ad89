// How much of a pixel an endless strip covers.
#pragma once

#include <algorithm>
#include <cmath>

#include "raster/geometry.h"

namespace kurv::raster {

// By the distance of their middles: the area, exactly.
//
// Seen along the strip a pixel is a trapezium, with a plateau of the half width `inner` and a foot
// of the half width `outer`. What lies beyond an edge of the strip is its integral.
class LineProfile {
 public:
  LineProfile(double half_width, Vector direction)
      : m_half(static_cast<float>(half_width)),
        m_inner(static_cast<float>(std::abs(std::abs(direction.x) - std::abs(direction.y)) / 2)),
        m_ramp(static_cast<float>(std::min(std::abs(direction.x), std::abs(direction.y)))),
        m_height(static_cast<float>(1 / std::max(std::abs(direction.x), std::abs(direction.y)))),
        m_bend(m_ramp > kLevel ? 1 / (2 * m_ramp) : 0) {}

  // How far from the middle of the strip anything is covered at all.
  float reach() const { return m_half + m_inner + m_ramp; }
  float coverage(float distance) const {
    return half_integral(m_half - distance) + half_integral(m_half + distance);
  }

 private:
  // The integral of the trapezium from 0 to `to`; odd, and 1/2 beyond the foot.
  float half_integral(float to) const {
    const float length = std::abs(to);
    const float level = std::min(length, m_inner);
    const float slope = std::clamp(length - m_inner, 0.0F, m_ramp);
    return std::copysign((level + slope - slope * slope * m_bend) * m_height, to);
  }

  // The bend of a shorter ramp is no number any more, and nobody sees it.
  static constexpr float kLevel = 1e-30F;

  float m_half;
  float m_inner;
  float m_ramp;  // from the plateau to the foot
  float m_height;
  float m_bend;
};

}  // namespace kurv::raster
