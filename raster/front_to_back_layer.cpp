#include "raster/front_to_back_layer.h"

#include <algorithm>

#include "raster/strip_accumulator.h"

namespace kurv::raster {
namespace {

constexpr U16x8 kTransparent{0, 0, 0, 0xFFFF, 0, 0, 0, 0xFFFF};
// A lower transmittance than this lets less than half a colour step of the backdrop through.
constexpr std::uint16_t kOpaqueBelow = 64;
constexpr int kBits = 64;

// The transmittance of both pixels, for each of their channels.
U16x8 transmittance_of(U16x8 two) {
  return __builtin_shufflevector(two, two, 3, 3, 3, 3, 7, 7, 7, 7);
}

U16x8 under(U16x8 two, U16x8 colour, U16x8 coverages) {
  constexpr U16x8 kTransmittance{0, 0, 0, 0xFFFF, 0, 0, 0, 0xFFFF};
  // Coverages are scaled from 255 to 65535.
  const U16x8 part = multiply_high(transmittance_of(two), coverages * 257);
  return two + multiply_high(colour, part) - (part & kTransmittance);
}

}  // namespace

FrontToBackLayer::FrontToBackLayer(int width, int height)
    : m_width(width),
      m_height(height),
      m_strips(static_cast<std::size_t>((width + StripAccumulator::kWidth - 1) /
                                        StripAccumulator::kWidth)) {}

bool FrontToBackLayer::occludes(int strip, int first, int end) const {
  const Content& content = m_strips[static_cast<std::size_t>(strip)];
  first = std::max(first, 0);
  end = std::min(end, m_height);
  if (first >= end) return true;
  if (first < content.first || end > content.end) return false;
  for (int y = first; y < end;) {
    const int bit = y % kBits, count = std::min(kBits - bit, end - y);
    const std::uint64_t ones = (count == kBits ? 0 : std::uint64_t{1} << count) - 1;
    const std::uint64_t opaque = content.opaque_rows[static_cast<std::size_t>(y / kBits)] >> bit;
    if ((opaque & ones) != ones) return false;
    y += count;
  }
  return true;
}

FrontToBackLayer::Row& FrontToBackLayer::row(Content& content, int y) {
  if (content.rows.empty()) {
    content.opaque_rows.resize(static_cast<std::size_t>(m_height / kBits) + 1);
    content.rows.resize(static_cast<std::size_t>(m_height));
  }
  if (content.first >= content.end) content.first = content.end = y;
  Row transparent;
  transparent.fill(kTransparent);
  while (y < content.first) content.rows[static_cast<std::size_t>(--content.first)] = transparent;
  while (y >= content.end) content.rows[static_cast<std::size_t>(content.end++)] = transparent;
  return content.rows[static_cast<std::size_t>(y)];
}

void FrontToBackLayer::blend_under(int strip, int y, const RowCoverage& coverage,
                                   std::uint32_t colour) {
  if (coverage.is_zero()) return;
  Content& content = m_strips[static_cast<std::size_t>(strip)];
  Row& pixels = row(content, y);
  std::uint64_t& opaque_rows = content.opaque_rows[static_cast<std::size_t>(y / kBits)];
  const std::uint64_t bit = std::uint64_t{1} << (y % kBits);
  if ((opaque_rows & bit) != 0) return;
  U16x8 colour_x2 = unpack_low(bit_cast_to<U8x16>(U32x4{} + colour)) << 8;
  colour_x2[3] = colour_x2[7] = 0;
  for_each_quad(coverage, [&](int quad, U32x4 coverages) {
    TwoPixels& first = pixels[static_cast<std::size_t>(2 * quad)];
    TwoPixels& second = pixels[static_cast<std::size_t>(2 * quad + 1)];
    first = under(first, colour_x2, per_channel<0>(coverages));
    second = under(second, colour_x2, per_channel<1>(coverages));
  });
  if (is_opaque(pixels)) opaque_rows |= bit;
}

bool FrontToBackLayer::is_opaque(const Row& row) {
  U16x8 any{};
  for (const TwoPixels& two : row) any |= two;
  return any[3] < kOpaqueBelow && any[7] < kOpaqueBelow;
}

void FrontToBackLayer::flush(const Canvas& canvas) {
  for (std::size_t strip = 0; strip < m_strips.size(); ++strip) {
    const Content& content = m_strips[strip];
    const int left = static_cast<int>(strip) * StripAccumulator::kWidth;
    const int columns = std::min(StripAccumulator::kWidth, m_width - left);
    for (int y = content.first; y < content.end; ++y) {
      const Row& row = content.rows[static_cast<std::size_t>(y)];
      std::uint32_t* const pixels = canvas.row(y) + left;
      if (columns == StripAccumulator::kWidth) {
        composite(row, pixels);
        continue;
      }
      std::array<std::uint32_t, StripAccumulator::kWidth> copy{};
      std::copy_n(pixels, columns, copy.begin());
      composite(row, copy.data());
      std::copy_n(copy.begin(), columns, pixels);
    }
  }
  clear();
}

void FrontToBackLayer::clear() {
  for (Content& content : m_strips) {
    content.first = content.end = 0;
    std::ranges::fill(content.opaque_rows, 0);
  }
}

// Over a row of sixteen pixels of the canvas.
void FrontToBackLayer::composite(const Row& row, std::uint32_t* pixels) {
  constexpr U16x8 kColours{0xFFFF, 0xFFFF, 0xFFFF, 0, 0xFFFF, 0xFFFF, 0xFFFF, 0};
  constexpr U16x8 kHalf{128, 128, 128, 0, 128, 128, 128, 0};
  constexpr U16x8 kOpaque{0, 0, 0, 255, 0, 0, 0, 255};
  const auto mixed = [&](U16x8 two, U16x8 backdrop) {
    const U16x8 rest = multiply_high(backdrop << 8, transmittance_of(two)) & kColours;
    return (((two & kColours) + rest + kHalf) >> 8) | kOpaque;
  };
  for (std::size_t i = 0; i < kInRow; i += 2) {
    U8x16 backdrop;
    std::memcpy(&backdrop, pixels + 2 * i, sizeof backdrop);
    const U8x16 blended =
        pack_bytes(mixed(row[i], unpack_low(backdrop)), mixed(row[i + 1], unpack_high(backdrop)));
    std::memcpy(pixels + 2 * i, &blended, sizeof blended);
  }
}

}  // namespace kurv::raster
