// The smaller and the larger of two numbers, by the one instruction that a processor has for it:
// where one of them is not a number the second is taken.
#pragma once

namespace kurv::raster {

inline float smaller(float a, float b) {
  return a < b ? a : b;
}
inline float larger(float a, float b) {
  return a > b ? a : b;
}

}  // namespace kurv::raster
