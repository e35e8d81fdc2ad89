// A colour over another, by how much of the pixel it covers.
#pragma once

#include <cstdint>

namespace kurv::raster {

// Source over destination, rounded to the nearest: 255 is odd, so there are no ties.
inline std::uint32_t blend_channel(std::uint32_t below, std::uint32_t above, std::uint32_t coverage,
                                   int shift) {
  const std::uint32_t from = (below >> shift) & 255;
  const std::uint32_t to = (above >> shift) & 255;
  return ((to * coverage + from * (255 - coverage) + 127) / 255) << shift;
}

inline std::uint32_t blend(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
  return 0xFF000000 | blend_channel(below, above, coverage, 16) |
         blend_channel(below, above, coverage, 8) | blend_channel(below, above, coverage, 0);
}

}  // namespace kurv::raster
