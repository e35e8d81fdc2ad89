// A cache of painted texts. Most texts are the same in the next redraw, and painting one may take
// longer than drawing a line of a thousand points takes the raster.
#pragma once

#include <KurvGraph/text_painter.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "raster/canvas.h"

namespace kurv {

// For a picture of one size and resolution.
class TextCache {
 public:
  // Draws the text on the canvas, which is the whole picture.
  void draw(const raster::Canvas& canvas, const PlacedText& placed, const PictureSize& picture,
            TextPainter& painter);

 private:
  // Cropped to the pixels that are not transparent.
  struct CachedImage {
    PixelBox box;                       // its place on the canvas
    std::vector<std::uint32_t> pixels;  // premultiplied
  };
  using Key = std::tuple<String, Single, bool, bool, std::uint32_t, Single, Single, std::string>;

  static CachedImage painted(const PlacedText& placed, const PictureSize& picture,
                             const PixelBox& bounds, TextPainter& painter);
  static void composite_over(const raster::Canvas& canvas, const CachedImage& image);

  std::map<Key, CachedImage> m_images;
  std::ptrdiff_t m_pixels = 0;  // of all images, plus the bytes of the texts
};

}  // namespace kurv
