// What segments and arcs share.
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

// The first pixel, of 0..size, whose centre is not before the coordinate. Given a span's end it is
// the first pixel that is not inside. (A centre exactly there has no coverage and may go either
// way.)
inline int first_pixel_from(double coordinate, int size) {
  return static_cast<int>(std::clamp(coordinate + 0.5, 0.0, static_cast<double>(size)));
}

inline std::uint8_t to_byte(float coverage) {
  return static_cast<std::uint8_t>(coverage * 255 + 0.5F);
}

// The 0..255 coverage of a pixel; `reach` is half the pen width and half a pixel.
template <typename Real>
std::uint8_t coverage_at(Real distance, Real reach) {
  const Real covered = std::clamp(reach - distance, Real(0), Real(1));
  return static_cast<std::uint8_t>(covered * Real(255) + Real(0.5));
}

}  // namespace kurv::raster
