// Eight neighbouring pixels of a mask at once.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kurv::raster {

inline constexpr int kLanes = 8;
using Lanes = std::array<std::uint8_t, kLanes>;

// Of coverages from 0 to 1.
Lanes bytes_of(const std::array<float, kLanes>& covered);

// Copied in and out, because a compiler makes one instruction of a maximum only where it knows that
// the two do not overlap.
inline void raise(std::uint8_t* values, const Lanes& to) {
  Lanes raised;
  std::memcpy(raised.data(), values, kLanes);
  for (std::size_t k = 0; k < kLanes; ++k) raised[k] = std::max(raised[k], to[k]);
  std::memcpy(values, raised.data(), kLanes);
}

inline bool are_all(const std::uint8_t* values, std::uint64_t lanes) {
  std::uint64_t all = 0;
  std::memcpy(&all, values, kLanes);
  return all == lanes;
}

inline bool are_zero(const std::uint8_t* values) {
  return are_all(values, 0);
}
inline bool are_full(const std::uint8_t* values) {
  return are_all(values, ~std::uint64_t{0});
}

}  // namespace kurv::raster
