// The round caps of strokes.
#pragma once

#include <algorithm>
#include <cmath>

#include "raster/geometry.h"

namespace kurv::raster {

// How much of a pixel is within a stroke with round caps, by the position of its centre: the mean
// of the coverages of its four quarters, each by its signed distance from the capsule.
class RoundCaps {
 public:
  RoundCaps(double half_width, Vector direction)
      : m_half_width(static_cast<float>(half_width)),
        m_x(static_cast<float>(direction.x / 4)),
        m_y(static_cast<float>(direction.y / 4)) {}

  // The distances of the centre before the start of the stroke, beyond its end, and across it.
  float coverage(float before, float beyond, float across) const {
    const float sum = quarter(before - m_x - m_y, beyond + m_x + m_y, across + m_x - m_y) +
                      quarter(before - m_x + m_y, beyond + m_x - m_y, across - m_x - m_y) +
                      quarter(before + m_x - m_y, beyond - m_x + m_y, across + m_x + m_y) +
                      quarter(before + m_x + m_y, beyond - m_x - m_y, across - m_x + m_y);
    return sum / 4;
  }

 private:
  // The coverage of a quarter of the pixel, by the position of its centre.
  float quarter(float before, float beyond, float across) const {
    const float past = std::max(std::max(before, beyond), 0.0F);
    const float distance = std::sqrt(past * past + across * across);
    return std::clamp((m_half_width - distance) * 2 + 0.5F, 0.0F, 1.0F);
  }

  float m_half_width;
  float m_x;  // a quarter of the direction
  float m_y;
};

}  // namespace kurv::raster
