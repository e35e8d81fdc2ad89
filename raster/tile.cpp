#include "raster/tile.h"

#include <algorithm>
#include <cstring>

#include "raster/extremes.h"

namespace kurv::raster {
namespace {

constexpr int kColumns = Tile::kColumns;
constexpr int kMostCells = kColumns * 16;
// Parts of a row, so that sums come out exact.
constexpr int kPartsLog2 = 8;
constexpr int kParts = 1 << kPartsLog2;

// Eight columns at a time, as wide as the vector registers that every processor has.
using Sums [[gnu::vector_size(16)]] = std::int16_t;
using Words [[gnu::vector_size(16)]] = std::uint16_t;
using Pairs [[gnu::vector_size(16)]] = std::uint32_t;
using Bytes [[gnu::vector_size(16)]] = std::uint8_t;

constexpr std::uint64_t kAllFull = ~std::uint64_t{0};

template <class To, class From>
To bits_of(const From& from) {
  static_assert(sizeof(To) == sizeof(From));
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

// Of words up to 255.
Bytes bytes_of(Words first, Words second) {
  return __builtin_shufflevector(bits_of<Bytes>(first), bits_of<Bytes>(second), 0, 2, 4, 6, 8, 10,
                                 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}

// 0 to 255, of sums up to 256 << per_pixel_log2.
Words coverages_of(Sums sums, int per_pixel_log2) {
  const auto half = static_cast<std::int16_t>(1 << (per_pixel_log2 - 1));
  return bits_of<Words>((sums - (sums >> kPartsLog2) + half) >> per_pixel_log2);
}

// The same as blend() for two neighbours; everything is by channel.
Words blend_two(Words below, Words above, Words coverages) {
  const Words sum = above * coverages + below * (255 - coverages) + 128;
  return (sum + (sum >> 8)) >> 8;
}

// Of four neighbours; each coverage comes twice.
void blend_four(std::uint32_t* pixels, Words colour, Pairs coverages) {
  Bytes below;
  std::memcpy(&below, pixels, sizeof below);
  const Bytes none{};
  const auto first = bits_of<Words>(
      __builtin_shufflevector(below, none, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
  const auto second = bits_of<Words>(__builtin_shufflevector(below, none, 8, 24, 9, 25, 10, 26, 11,
                                                             27, 12, 28, 13, 29, 14, 30, 15, 31));
  const auto left = bits_of<Words>(__builtin_shufflevector(coverages, coverages, 0, 0, 1, 1));
  const auto right = bits_of<Words>(__builtin_shufflevector(coverages, coverages, 2, 2, 3, 3));
  const Bytes blended = bytes_of(blend_two(first, colour, left), blend_two(second, colour, right));
  std::memcpy(pixels, &blended, sizeof blended);
}

// Sixteen neighbours. `colour` holds that of two pixels, by channel.
void blend_row(std::uint32_t* pixels, Words colour, Words first, Words second) {
  const Bytes bytes = bytes_of(first, second);
  const auto halves = bits_of<std::array<std::uint64_t, 2>>(bytes);
  if (halves[0] == kAllFull && halves[1] == kAllFull) {
    const Bytes four = bytes_of(colour, colour);
    for (int i = 0; i < Tile::kColumns; i += 4) std::memcpy(pixels + i, &four, sizeof four);
    return;
  }
  if ((halves[0] & 0xFFFFFFFF) != 0)
    blend_four(pixels, colour,
               bits_of<Pairs>(__builtin_shufflevector(first, first, 0, 8, 1, 9, 2, 10, 3, 11)));
  if ((halves[0] >> 32) != 0)
    blend_four(pixels + 4, colour,
               bits_of<Pairs>(__builtin_shufflevector(first, first, 4, 12, 5, 13, 6, 14, 7, 15)));
  if ((halves[1] & 0xFFFFFFFF) != 0)
    blend_four(pixels + 8, colour,
               bits_of<Pairs>(__builtin_shufflevector(second, second, 0, 8, 1, 9, 2, 10, 3, 11)));
  if ((halves[1] >> 32) != 0)
    blend_four(pixels + 12, colour,
               bits_of<Pairs>(__builtin_shufflevector(second, second, 4, 12, 5, 13, 6, 14, 7, 15)));
}

}  // namespace

Tile::Tile(int canvas_width, int canvas_height)
    : m_width(canvas_width),
      m_height(canvas_height),
      m_changes(static_cast<std::size_t>(canvas_height) + 2),
      m_begin(canvas_height) {}

void Tile::add(const float* top, const float* bottom, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int count = kColumns << per_pixel_log2;
  std::array<int, kMostCells> from, to;
  int first = m_height * kParts, last = 0;
  for (int i = 0; i < count; ++i) {
    const float above = smaller(larger(top[i], 0), height);
    const float below = smaller(larger(bottom[i], 0), height);
    const int a = static_cast<int>(above * kParts), b = static_cast<int>(below * kParts);
    from[static_cast<std::size_t>(i)] = a;
    // An interval that is none ends where it begins.
    to[static_cast<std::size_t>(i)] = std::max(a, b);
    first = std::min(first, a);
    last = std::max(last, b);
  }
  if (first >= last) return;
  m_begin = std::min(m_begin, first >> kPartsLog2);
  m_end = std::max(m_end, last >> kPartsLog2);
  // Neighbours in the same column would wait for each other.
  for (int in_pixel = 0; in_pixel < 1 << per_pixel_log2; ++in_pixel) {
    for (int column = 0; column < kColumns; ++column) {
      const auto i = static_cast<std::size_t>((column << per_pixel_log2) + in_pixel);
      begin_at(from[i] >> kPartsLog2, column, from[i] % kParts);
      end_at(to[i] >> kPartsLog2, column, to[i] % kParts);
    }
  }
}

void Tile::add(int cell, Interval interval, int per_pixel_log2) {
  const auto height = static_cast<float>(m_height);
  const int from = static_cast<int>(smaller(larger(interval.top, 0), height) * kParts);
  const int to = static_cast<int>(smaller(larger(interval.bottom, 0), height) * kParts);
  if (from >= to) return;
  m_begin = std::min(m_begin, from >> kPartsLog2);
  m_end = std::max(m_end, to >> kPartsLog2);
  const int column = cell >> per_pixel_log2;
  begin_at(from >> kPartsLog2, column, from % kParts);
  end_at(to >> kPartsLog2, column, to % kParts);
}

void Tile::flush(const Canvas& canvas, int left, std::uint32_t colour, int per_pixel_log2) {
  const int columns = std::min(kColumns, m_width - left);
  const Pairs four = Pairs{} + colour;
  const auto words = bits_of<Words>(__builtin_shufflevector(
      bits_of<Bytes>(four), Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
  Sums first{}, second{};
  for (int y = m_begin; y <= m_end + 1; ++y) {
    Row& row = m_changes[static_cast<std::size_t>(y)];
    Sums changes[2];
    std::memcpy(changes, row.data(), sizeof changes);
    row = {};
    first += changes[0];
    second += changes[1];
    if (y >= m_height) continue;
    const Words left_half = coverages_of(first, per_pixel_log2);
    const Words right_half = coverages_of(second, per_pixel_log2);
    std::uint32_t* const pixels = canvas.row(y) + left;
    if (columns == kColumns) {
      blend_row(pixels, words, left_half, right_half);
      continue;
    }
    std::array<std::uint32_t, kColumns> copy{};
    std::copy_n(pixels, columns, copy.begin());
    blend_row(copy.data(), words, left_half, right_half);
    std::copy_n(copy.begin(), columns, pixels);
  }
  m_begin = m_height;
  m_end = 0;
}

}  // namespace kurv::raster
