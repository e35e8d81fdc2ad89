// A colour over another, by how much of the pixel it covers.
#pragma once

#include <cstdint>

namespace kurv::raster {

// The four bytes of a pixel, each with room for a product.
inline std::uint64_t spread_bytes(std::uint32_t pixel) {
  return (pixel | (std::uint64_t{pixel} << 24)) & 0x00FF00FF00FF00FF;
}

// Source over destination, rounded to the nearest: 255 is odd, so there are no ties.
inline std::uint32_t blend(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
  // A byte is the product divided by 255: exactly, for all that can be one.
  constexpr std::uint64_t kHalf = 0x0080008000800080, kBytes = 0x00FF00FF00FF00FF;
  std::uint64_t sum =
      spread_bytes(above) * coverage + spread_bytes(below) * (255 - coverage) + kHalf;
  sum = ((sum + ((sum >> 8) & kBytes)) >> 8) & kBytes;
  return 0xFF000000 | static_cast<std::uint32_t>(sum | (sum >> 24));
}

}  // namespace kurv::raster
