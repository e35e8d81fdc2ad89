// Rectangles of whole device pixels.
#pragma once

#include <cstdint>

#include "raster/canvas.h"

namespace kurv::raster {

// Half open: `right` and `bottom` are the first column and row outside. It may be anywhere, also
// off the canvas, and is empty where `right` <= `left` or `bottom` <= `top`.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

void fill_rect(const Canvas& canvas, const PixelRect& rect, std::uint32_t colour);

// An outline of `pen` pixels inside the edges of `outer`.
void frame_rect(const Canvas& canvas, const PixelRect& outer, int pen, std::uint32_t colour);

}  // namespace kurv::raster
