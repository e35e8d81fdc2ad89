// Blends rows of sixteen pixels with one colour, by their coverages.
#pragma once

#include "raster/canvas.h"
#include "raster/pixel_math.h"
#include "raster/strip_accumulator.h"

namespace kurv::raster {

// Blends the rows of strips onto a canvas.
class RowBlender {
 public:
  RowBlender(const Canvas& canvas, std::uint32_t colour)
      : m_canvas(canvas),
        m_whole_strips(canvas.width / StripAccumulator::kWidth),
        m_colour(unpack_low(bit_cast_to<U8x16>(U32x4{} + colour))) {}

  // At least one pixel of the strip is on the canvas.
  void blend(int strip, int y, const RowCoverage& coverage) const {
    if (coverage.is_zero()) return;
    std::uint32_t* const pixels = m_canvas.row(y) + strip * StripAccumulator::kWidth;
    if (strip < m_whole_strips) {
      blend_sixteen(pixels, coverage);
    } else {
      blend_partial(pixels, coverage);
    }
  }

 private:
  void blend_sixteen(std::uint32_t* pixels, const RowCoverage& coverage) const;
  void blend_partial(std::uint32_t* pixels, const RowCoverage& coverage) const;

  Canvas m_canvas;
  int m_whole_strips;
  U16x8 m_colour;  // twice, for two pixels, a channel in each element
};

}  // namespace kurv::raster
