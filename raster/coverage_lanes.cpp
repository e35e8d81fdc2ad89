#include "raster/coverage_lanes.h"

namespace kurv::raster {

// Each narrowing has a loop of its own, and the function is not inlined: compilers vectorise the
// conversion only in this form.
CoverageLanes to_bytes(const std::array<float, kLanes>& covered) {
  std::array<std::int32_t, kLanes> whole;
  std::array<std::uint16_t, kLanes> shorter;
  CoverageLanes bytes;
  for (std::size_t k = 0; k < kLanes; ++k) {
    whole[k] = static_cast<std::int32_t>(covered[k] * 255 + 0.5F);
  }
  for (std::size_t k = 0; k < kLanes; ++k) shorter[k] = static_cast<std::uint16_t>(whole[k]);
  for (std::size_t k = 0; k < kLanes; ++k) bytes[k] = static_cast<std::uint8_t>(shorter[k]);
  return bytes;
}

}  // namespace kurv::raster
