#include "raster/boxes.h"

#include <algorithm>

namespace kurv::raster {

void fill_rect(const Canvas& canvas, const PixelRect& rect, std::uint32_t colour) {
  const int left = std::max(rect.left, 0);
  const int right = std::min(rect.right, canvas.width);
  if (left >= right) return;
  const int bottom = std::min(rect.bottom, canvas.height);
  for (int y = std::max(rect.top, 0); y < bottom; ++y) {
    std::fill(canvas.row(y) + left, canvas.row(y) + right, colour);
  }
}

void frame_rect(const Canvas& canvas, const PixelRect& outer, int pen, std::uint32_t colour) {
  // Each side is clamped to the opposite edge, so a frame thinner than two pens is filled.
  const PixelRect inner{
      std::min(outer.left + pen, outer.right), std::min(outer.top + pen, outer.bottom),
      std::max(outer.right - pen, outer.left), std::max(outer.bottom - pen, outer.top)};
  fill_rect(canvas, {outer.left, outer.top, outer.right, inner.top}, colour);
  fill_rect(canvas, {outer.left, inner.bottom, outer.right, outer.bottom}, colour);
  fill_rect(canvas, {outer.left, inner.top, inner.left, inner.bottom}, colour);
  fill_rect(canvas, {inner.right, inner.top, outer.right, inner.bottom}, colour);
}

}  // namespace kurv::raster
