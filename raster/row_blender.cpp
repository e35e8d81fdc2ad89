#include "raster/row_blender.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kurv::raster {
namespace {

// The same as raster::blend() for two neighbouring pixels, a channel in each element.
U16x8 blend_two(U16x8 below, U16x8 above, U16x8 coverages) {
  const U16x8 sum = above * coverages + below * (255 - coverages) + 128;
  return (sum + (sum >> 8)) >> 8;
}

}  // namespace

void RowBlender::blend_sixteen(std::uint32_t* pixels, const RowCoverage& coverage) const {
  constexpr std::uint32_t kFull = 0xFFFFFFFF;
  const auto quads = coverage.quads();
  if ((quads[0] & quads[1] & quads[2] & quads[3]) == kFull) {
    const U8x16 four = pack_bytes(m_colour, m_colour);
    for (int i = 0; i < StripAccumulator::kWidth; i += 4)
      std::memcpy(pixels + i, &four, sizeof four);
    return;
  }
  for_each_quad(coverage, [&](int quad, U32x4 coverages) {
    std::uint32_t* const four = pixels + 4 * quad;
    U8x16 below;
    std::memcpy(&below, four, sizeof below);
    const U8x16 blended =
        pack_bytes(blend_two(unpack_low(below), m_colour, per_channel<0>(coverages)),
                   blend_two(unpack_high(below), m_colour, per_channel<1>(coverages)));
    std::memcpy(four, &blended, sizeof blended);
  });
}

void RowBlender::blend_partial(std::uint32_t* pixels, const RowCoverage& coverage) const {
  const int columns = m_canvas.width % StripAccumulator::kWidth;
  std::array<std::uint32_t, StripAccumulator::kWidth> copy{};
  std::copy_n(pixels, columns, copy.begin());
  blend_sixteen(copy.data(), coverage);
  std::copy_n(copy.begin(), columns, pixels);
}

}  // namespace kurv::raster
