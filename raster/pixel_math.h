// Arithmetic on packed pixels: SIMD vectors of 128 bits, which every x86-64 and ARM64 processor
// has, through the vector extensions of the compiler.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace kurv::raster {

using U16x8 [[gnu::vector_size(16)]] = std::uint16_t;
using I16x8 [[gnu::vector_size(16)]] = std::int16_t;
using U32x4 [[gnu::vector_size(16)]] = std::uint32_t;
using U8x16 [[gnu::vector_size(16)]] = std::uint8_t;

template <class To, class From>
To bit_cast_to(const From& from) {
  static_assert(sizeof(To) == sizeof(From));
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

// Narrows values up to 255, `first` before `second`.
inline U8x16 pack_bytes(U16x8 first, U16x8 second) {
  return __builtin_shufflevector(bit_cast_to<U8x16>(first), bit_cast_to<U8x16>(second), 0, 2, 4, 6,
                                 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}
// Widens the first eight bytes, and the last eight.
inline U16x8 unpack_low(U8x16 bytes) {
  return bit_cast_to<U16x8>(__builtin_shufflevector(bytes, U8x16{}, 0, 16, 1, 17, 2, 18, 3, 19, 4,
                                                    20, 5, 21, 6, 22, 7, 23));
}
inline U16x8 unpack_high(U8x16 bytes) {
  return bit_cast_to<U16x8>(__builtin_shufflevector(bytes, U8x16{}, 8, 24, 9, 25, 10, 26, 11, 27,
                                                    12, 28, 13, 29, 14, 30, 15, 31));
}

// The upper 16 bits of each product.
inline U16x8 multiply_high(U16x8 a, U16x8 b) {
  U16x8 products;
  for (int i = 0; i < 8; ++i) {
    products[i] = static_cast<std::uint16_t>((std::uint32_t{a[i]} * b[i]) >> 16);
  }
  return products;
}

// The coverages, 0..255, of 16 neighbouring pixels of a row.
struct RowCoverage {
  U16x8 left;
  U16x8 right;

  bool is_zero() const {
    const auto halves = bit_cast_to<std::array<std::uint64_t, 2>>(left | right);
    return (halves[0] | halves[1]) == 0;
  }
  // Four pixels in each element, a byte each: 0 where none of the four is covered.
  std::array<std::uint32_t, 4> quads() const {
    return bit_cast_to<std::array<std::uint32_t, 4>>(pack_bytes(left, right));
  }
};

// Broadcasts the coverages of two of a quad's four pixels, those of half 0 or 1, to their channels.
template <int kHalf>
U16x8 per_channel(U32x4 doubled) {
  return bit_cast_to<U16x8>(__builtin_shufflevector(doubled, doubled, 2 * kHalf, 2 * kHalf,
                                                    2 * kHalf + 1, 2 * kHalf + 1));
}

// Calls visit(quad, coverages) for each quad of four neighbouring pixels of which any is covered.
// Each element holds the coverage of a pixel twice, in its upper and lower half.
template <class Visit>
void for_each_quad(const RowCoverage& row, const Visit& visit) {
  const std::array<std::uint32_t, 4> quads = row.quads();
  const auto low = [](U16x8 c) {
    return bit_cast_to<U32x4>(__builtin_shufflevector(c, c, 0, 8, 1, 9, 2, 10, 3, 11));
  };
  const auto high = [](U16x8 c) {
    return bit_cast_to<U32x4>(__builtin_shufflevector(c, c, 4, 12, 5, 13, 6, 14, 7, 15));
  };
  if (quads[0] != 0) visit(0, low(row.left));
  if (quads[1] != 0) visit(1, high(row.left));
  if (quads[2] != 0) visit(2, low(row.right));
  if (quads[3] != 0) visit(3, high(row.right));
}

}  // namespace kurv::raster
