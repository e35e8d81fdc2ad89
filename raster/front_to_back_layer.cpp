#include "raster/front_to_back_layer.h"

#include <algorithm>

#include "raster/strip_accumulator.h"

namespace kurv::raster {
namespace {

constexpr U16x8 kNothing{0, 0, 0, 0xFFFF, 0, 0, 0, 0xFFFF};
// Less of what lies below than this is less than half a step of its colour.
constexpr std::uint16_t kInvisible = 64;
constexpr int kBits = 64;

// How much of what lies below still shows, for each channel.
U16x8 shows(U16x8 two) {
  return __builtin_shufflevector(two, two, 3, 3, 3, 3, 7, 7, 7, 7);
}

U16x8 below(U16x8 two, U16x8 colour, U16x8 coverages) {
  constexpr U16x8 kShows{0, 0, 0, 0xFFFF, 0, 0, 0, 0xFFFF};
  // 255 becomes 65535.
  const U16x8 part = multiply_high(shows(two), coverages * 257);
  return two + multiply_high(colour, part) - (part & kShows);
}

}  // namespace

Layer::Layer(int width, int height)
    : m_width(width),
      m_height(height),
      m_strips(static_cast<std::size_t>((width + StripAccumulator::kWidth - 1) /
                                        StripAccumulator::kWidth)) {}

bool Layer::hides(int tile, int first, int end) const {
  const Strip& strip = m_strips[static_cast<std::size_t>(tile)];
  first = std::max(first, 0);
  end = std::min(end, m_height);
  if (first >= end) return true;
  if (first < strip.first || end > strip.end) return false;
  for (int y = first; y < end;) {
    const int bit = y % kBits, count = std::min(kBits - bit, end - y);
    const std::uint64_t ones = (count == kBits ? 0 : std::uint64_t{1} << count) - 1;
    if (((strip.hides[static_cast<std::size_t>(y / kBits)] >> bit) & ones) != ones) return false;
    y += count;
  }
  return true;
}

Layer::Row& Layer::row(Strip& strip, int y) {
  if (strip.rows.empty()) {
    strip.hides.resize(static_cast<std::size_t>(m_height / kBits) + 1);
    strip.rows.resize(static_cast<std::size_t>(m_height));
  }
  if (strip.first >= strip.end) strip.first = strip.end = y;
  Row nothing;
  nothing.fill(kNothing);
  while (y < strip.first) strip.rows[static_cast<std::size_t>(--strip.first)] = nothing;
  while (y >= strip.end) strip.rows[static_cast<std::size_t>(strip.end++)] = nothing;
  return strip.rows[static_cast<std::size_t>(y)];
}

void Layer::put(int tile, int y, const RowCoverage& coverage, std::uint32_t colour) {
  if (coverage.is_zero()) return;
  Strip& strip = m_strips[static_cast<std::size_t>(tile)];
  Row& pixels = row(strip, y);
  std::uint64_t& hides = strip.hides[static_cast<std::size_t>(y / kBits)];
  const std::uint64_t bit = std::uint64_t{1} << (y % kBits);
  if ((hides & bit) != 0) return;
  U16x8 words = unpack_low(bit_cast_to<U8x16>(U32x4{} + colour)) << 8;
  words[3] = words[7] = 0;
  for_each_quad(coverage, [&](int quad, U32x4 coverages) {
    TwoPixels& first = pixels[static_cast<std::size_t>(2 * quad)];
    TwoPixels& second = pixels[static_cast<std::size_t>(2 * quad + 1)];
    first = below(first, words, per_channel<0>(coverages));
    second = below(second, words, per_channel<1>(coverages));
  });
  if (is_opaque(pixels)) hides |= bit;
}

bool Layer::is_opaque(const Row& row) {
  U16x8 any{};
  for (const TwoPixels& two : row) any |= two;
  return any[3] < kInvisible && any[7] < kInvisible;
}

void Layer::flush(const Canvas& canvas) {
  for (std::size_t tile = 0; tile < m_strips.size(); ++tile) {
    const Strip& strip = m_strips[tile];
    const int left = static_cast<int>(tile) * StripAccumulator::kWidth;
    const int columns = std::min(StripAccumulator::kWidth, m_width - left);
    for (int y = strip.first; y < strip.end; ++y) {
      const Row& row = strip.rows[static_cast<std::size_t>(y)];
      std::uint32_t* const pixels = canvas.row(y) + left;
      if (columns == StripAccumulator::kWidth) {
        blend(row, pixels);
        continue;
      }
      std::array<std::uint32_t, StripAccumulator::kWidth> copy{};
      std::copy_n(pixels, columns, copy.begin());
      blend(row, copy.data());
      std::copy_n(copy.begin(), columns, pixels);
    }
  }
  clear();
}

void Layer::clear() {
  for (Strip& strip : m_strips) {
    strip.first = strip.end = 0;
    std::ranges::fill(strip.hides, 0);
  }
}

// Over sixteen pixels.
void Layer::blend(const Row& row, std::uint32_t* pixels) {
  constexpr U16x8 kColours{0xFFFF, 0xFFFF, 0xFFFF, 0, 0xFFFF, 0xFFFF, 0xFFFF, 0};
  constexpr U16x8 kHalf{128, 128, 128, 0, 128, 128, 128, 0};
  constexpr U16x8 kOpaque{0, 0, 0, 255, 0, 0, 0, 255};
  const auto mixed = [&](U16x8 two, U16x8 ground) {
    const U16x8 rest = multiply_high(ground << 8, shows(two)) & kColours;
    return (((two & kColours) + rest + kHalf) >> 8) | kOpaque;
  };
  for (std::size_t i = 0; i < kInRow; i += 2) {
    U8x16 ground;
    std::memcpy(&ground, pixels + 2 * i, sizeof ground);
    const U8x16 blended =
        pack_bytes(mixed(row[i], unpack_low(ground)), mixed(row[i + 1], unpack_high(ground)));
    std::memcpy(pixels + 2 * i, &blended, sizeof blended);
  }
}

}  // namespace kurv::raster
