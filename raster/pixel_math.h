// Eight numbers of 16 bits at a time, in registers that every processor has.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace kurv::raster {

using Words [[gnu::vector_size(16)]] = std::uint16_t;
using Sums [[gnu::vector_size(16)]] = std::int16_t;
using Pairs [[gnu::vector_size(16)]] = std::uint32_t;
using Bytes [[gnu::vector_size(16)]] = std::uint8_t;

template <class To, class From>
To bits_of(const From& from) {
  static_assert(sizeof(To) == sizeof(From));
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

// Of words up to 255.
inline Bytes bytes_of(Words first, Words second) {
  return __builtin_shufflevector(bits_of<Bytes>(first), bits_of<Bytes>(second), 0, 2, 4, 6, 8, 10,
                                 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}
inline Words low_words_of(Bytes bytes) {
  return bits_of<Words>(__builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20,
                                                5, 21, 6, 22, 7, 23));
}
inline Words high_words_of(Bytes bytes) {
  return bits_of<Words>(__builtin_shufflevector(bytes, Bytes{}, 8, 24, 9, 25, 10, 26, 11, 27, 12,
                                                28, 13, 29, 14, 30, 15, 31));
}

// The upper halves of products.
inline Words high_products(Words a, Words b) {
  Words products;
  for (int i = 0; i < 8; ++i) {
    products[i] = static_cast<std::uint16_t>((std::uint32_t{a[i]} * b[i]) >> 16);
  }
  return products;
}

// Coverages of 16 neighbours, 0..255.
struct RowCoverage {
  Words left;
  Words right;

  bool is_nothing() const {
    const auto halves = bits_of<std::array<std::uint64_t, 2>>(left | right);
    return (halves[0] | halves[1]) == 0;
  }
  // Of four neighbours at a time, 0 where there is none.
  std::array<std::uint32_t, 4> quarters() const {
    return bits_of<std::array<std::uint32_t, 4>>(bytes_of(left, right));
  }
};

// The words 2 * half and 2 * half + 1 of four, each of them four times: by channel.
template <int kHalf>
Words by_channel(Pairs doubled) {
  return bits_of<Words>(__builtin_shufflevector(doubled, doubled, 2 * kHalf, 2 * kHalf,
                                                2 * kHalf + 1, 2 * kHalf + 1));
}

// Calls visit(quarter, coverages) for each four neighbours of which any is covered; each coverage
// comes twice.
template <class Visit>
void for_each_quarter(const RowCoverage& row, const Visit& visit) {
  const std::array<std::uint32_t, 4> quarters = row.quarters();
  const auto low = [](Words c) {
    return bits_of<Pairs>(__builtin_shufflevector(c, c, 0, 8, 1, 9, 2, 10, 3, 11));
  };
  const auto high = [](Words c) {
    return bits_of<Pairs>(__builtin_shufflevector(c, c, 4, 12, 5, 13, 6, 14, 7, 15));
  };
  if (quarters[0] != 0) visit(0, low(row.left));
  if (quarters[1] != 0) visit(1, high(row.left));
  if (quarters[2] != 0) visit(2, low(row.right));
  if (quarters[3] != 0) visit(3, high(row.right));
}

}  // namespace kurv::raster
