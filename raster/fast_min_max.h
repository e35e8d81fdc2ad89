// Minimum and maximum of two numbers, each one instruction of the processor. Where either is NaN
// the result is `b`: pass the running minimum as `b`, and a NaN leaves it unchanged.
#pragma once

namespace kurv::raster {

inline float fast_min(float a, float b) {
  return a < b ? a : b;
}
inline float fast_max(float a, float b) {
  return a > b ? a : b;
}

}  // namespace kurv::raster
