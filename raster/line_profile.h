// How much of a pixel an infinitely long line of a given width covers.
#pragma once

#include <algorithm>
#include <cmath>

#include "raster/geometry.h"

namespace kurv::raster {

// The profile across the line: the exact area as a function of the distance from the middle of the
// line to the centre of the pixel.
//
// The projection of a pixel onto the normal of the line is a trapezium: a plateau from -m_inner to
// m_inner with a ramp of m_ramp on either side. The area up to an edge of the line is its integral.
class LineProfile {
 public:
  LineProfile(double half_width, Vector direction)
      : m_half(static_cast<float>(half_width)),
        m_inner(static_cast<float>(std::abs(std::abs(direction.x) - std::abs(direction.y)) / 2)),
        m_ramp(static_cast<float>(std::min(std::abs(direction.x), std::abs(direction.y)))),
        m_height(static_cast<float>(1 / std::max(std::abs(direction.x), std::abs(direction.y)))),
        m_half_inverse_ramp(m_ramp > kMinRamp ? 1 / (2 * m_ramp) : 0) {}

  // The distance from which on nothing is covered.
  float reach() const { return m_half + m_inner + m_ramp; }
  float coverage(float distance) const {
    return half_integral(m_half - distance) + half_integral(m_half + distance);
  }

 private:
  // The integral of the trapezium from 0 to `to`: an odd function, 1/2 from the end of the ramp on.
  float half_integral(float to) const {
    const float length = std::abs(to);
    const float level = std::min(length, m_inner);
    const float slope = std::clamp(length - m_inner, 0.0F, m_ramp);
    return std::copysign((level + slope - slope * slope * m_half_inverse_ramp) * m_height, to);
  }

  // For a shorter ramp 1 / (2 * m_ramp) would overflow. Such a line is horizontal or vertical to
  // within far less than a pixel, and the ramp is left out.
  static constexpr float kMinRamp = 1e-30F;

  float m_half;
  float m_inner;
  float m_ramp;  // from the plateau to the foot
  float m_height;
  float m_half_inverse_ramp;  // 1 / (2 * m_ramp); 0 without a ramp
};

}  // namespace kurv::raster
