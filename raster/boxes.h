// Rectangles of whole device pixels.
#pragma once

#include <cstdint>

#include "raster/canvas.h"

namespace kurv::raster {

// Half open: `right` and `bottom` are the first column and row outside. May lie anywhere, and one
// that ends before it begins is empty.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

void fill_rect(const Canvas& canvas, const PixelRect& rect, std::uint32_t colour);

// The outermost `pen` pixels of the rectangle, all round.
void frame_rect(const Canvas& canvas, const PixelRect& outer, int pen, std::uint32_t colour);

}  // namespace kurv::raster
