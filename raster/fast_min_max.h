// The smaller and the larger of two numbers, by the one instruction that a processor has for it:
// where one of them is not a number the second is taken.
#pragma once

namespace kurv::raster {

inline float fast_min(float a, float b) {
  return a < b ? a : b;
}
inline float fast_max(float a, float b) {
  return a > b ? a : b;
}

}  // namespace kurv::raster
