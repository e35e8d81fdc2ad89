// Eight neighbouring pixels of a mask at once, one in each SIMD lane.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kurv::raster {

inline constexpr int kLanes = 8;
using CoverageLanes = std::array<std::uint8_t, kLanes>;

// Converts coverages of 0..1 to 0..255.
CoverageLanes to_bytes(const std::array<float, kLanes>& covered);

// Raises each of eight values to at least that of `to`. They are copied in and out, because
// compilers use one SIMD maximum only where they know that the two do not overlap.
inline void raise(std::uint8_t* values, const CoverageLanes& to) {
  CoverageLanes raised;
  std::memcpy(raised.data(), values, kLanes);
  for (std::size_t k = 0; k < kLanes; ++k) raised[k] = std::max(raised[k], to[k]);
  std::memcpy(values, raised.data(), kLanes);
}

inline bool all_equal(const std::uint8_t* values, std::uint64_t lanes) {
  std::uint64_t all = 0;
  std::memcpy(&all, values, kLanes);
  return all == lanes;
}

inline bool all_zero(const std::uint8_t* values) {
  return all_equal(values, 0);
}
inline bool all_full(const std::uint8_t* values) {
  return all_equal(values, ~std::uint64_t{0});
}

}  // namespace kurv::raster
