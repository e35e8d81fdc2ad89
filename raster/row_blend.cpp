#include "raster/row_blend.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kurv::raster {
namespace {

// The same as blend() for two neighbours; everything is by channel.
Words blend_two(Words below, Words above, Words coverages) {
  const Words sum = above * coverages + below * (255 - coverages) + 128;
  return (sum + (sum >> 8)) >> 8;
}

}  // namespace

void RowBlend::blend_sixteen(std::uint32_t* pixels, const RowCoverage& coverage) const {
  constexpr std::uint32_t kFull = 0xFFFFFFFF;
  const auto quarters = coverage.quarters();
  if ((quarters[0] & quarters[1] & quarters[2] & quarters[3]) == kFull) {
    const Bytes four = bytes_of(m_colour, m_colour);
    for (int i = 0; i < Tile::kColumns; i += 4) std::memcpy(pixels + i, &four, sizeof four);
    return;
  }
  for_each_quarter(coverage, [&](int quarter, Pairs coverages) {
    std::uint32_t* const four = pixels + 4 * quarter;
    Bytes below;
    std::memcpy(&below, four, sizeof below);
    const Bytes blended =
        bytes_of(blend_two(low_words_of(below), m_colour, by_channel<0>(coverages)),
                 blend_two(high_words_of(below), m_colour, by_channel<1>(coverages)));
    std::memcpy(four, &blended, sizeof blended);
  });
}

void RowBlend::blend_fewer(std::uint32_t* pixels, const RowCoverage& coverage) const {
  const int columns = m_canvas.width % Tile::kColumns;
  std::array<std::uint32_t, Tile::kColumns> copy{};
  std::copy_n(pixels, columns, copy.begin());
  blend_sixteen(copy.data(), coverage);
  std::copy_n(copy.begin(), columns, pixels);
}

}  // namespace kurv::raster
