// Helpers shared by segments.cpp and arcs.cpp.
#pragma once

#include <algorithm>
#include <cfloat>
#include <cstdint>

#include "raster/strokes.h"

namespace kurv::raster {

// Infinities become the largest finite numbers; a NaN passes through.
inline float finite(float value) {
  return std::clamp(value, -FLT_MAX, FLT_MAX);
}

// The first pixel, of 0..size, whose centre is at or after the coordinate. Given the end of a span,
// it is the end of the pixels inside.
inline int first_pixel_from(double coordinate, int size) {
  return static_cast<int>(std::clamp(coordinate + 0.5, 0.0, static_cast<double>(size)));
}

// A coverage of 0..1 as 0..255.
inline std::uint8_t to_byte(float coverage) {
  return static_cast<std::uint8_t>(coverage * 255 + 0.5F);
}

// The coverage of a pixel, 0..255, by the distance of its centre from the middle of the stroke: a
// ramp of one pixel at the edge. `reach` is half the pen width plus half a pixel.
template <typename Real>
std::uint8_t coverage_at(Real distance, Real reach) {
  const Real covered = std::clamp(reach - distance, Real(0), Real(1));
  return static_cast<std::uint8_t>(covered * Real(255) + Real(0.5));
}

}  // namespace kurv::raster
