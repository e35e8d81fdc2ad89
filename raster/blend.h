// Blends one colour over another by the coverage of a pixel, with the four channels of a pixel in
// one integer (SIMD within a register).
#pragma once

#include <cstdint>

namespace kurv::raster {

// The four bytes of a pixel in 16 bits each, which hold the product of two bytes.
inline std::uint64_t unpack_channels(std::uint32_t pixel) {
  return (pixel | (std::uint64_t{pixel} << 24)) & 0x00FF00FF00FF00FF;
}

// Divides four products of bytes by 255, rounded to the nearest.
inline std::uint64_t divide_by_255(std::uint64_t products) {
  constexpr std::uint64_t kHalf = 0x0080008000800080, kBytes = 0x00FF00FF00FF00FF;
  const std::uint64_t sum = products + kHalf;
  return ((sum + ((sum >> 8) & kBytes)) >> 8) & kBytes;
}

inline std::uint32_t pack_channels(std::uint64_t spread) {
  return static_cast<std::uint32_t>(spread | (spread >> 24));
}

// Porter-Duff "over" with an opaque backdrop, rounded to the nearest. 255 is odd, so there are no
// ties.
inline std::uint32_t blend(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
  const std::uint64_t sum =
      unpack_channels(above) * coverage + unpack_channels(below) * (255 - coverage);
  return 0xFF000000 | pack_channels(divide_by_255(sum));
}

// The same for a premultiplied colour, 0xAARRGGBB, of which no channel exceeds the alpha.
inline std::uint32_t over(std::uint32_t below, std::uint32_t above) {
  const std::uint32_t coverage = above >> 24;
  if (coverage == 0) return below;
  if (coverage == 255) return above;
  return above + pack_channels(divide_by_255(unpack_channels(below) * (255 - coverage)));
}

}  // namespace kurv::raster
