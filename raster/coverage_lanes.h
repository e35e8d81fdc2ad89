// Eight neighbouring pixels of a mask at once.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kurv::raster {

inline constexpr int kLanes = 8;
using CoverageLanes = std::array<std::uint8_t, kLanes>;

// Of coverages from 0 to 1.
CoverageLanes to_bytes(const std::array<float, kLanes>& covered);

// Copied in and out, because a compiler makes one instruction of a maximum only where it knows that
// the two do not overlap.
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
