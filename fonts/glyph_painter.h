// Draws letters: grey, without hints, at fractions of a pixel.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include <KurvGraph/text_painter.h>

#include "fonts/font_collection.h"

namespace kurv {

// A letter as it is drawn, in pixels of the picture.
struct PlacedGlyph {
  StyledFace face;
  unsigned glyph = 0;
  double size = 0;
  double x = 0;  // of the left end of its baseline
  double y = 0;
};

class GlyphPainter {
 public:
  // The library of the faces.
  explicit GlyphPainter(FT_Library library) : m_library(library) {}

  void paint(const PlacedGlyph& placed, std::uint32_t colour, const TextTarget& target);

 private:
  // The coverage of a box, 0 to 255. The box is relative to the whole pixel of the place.
  struct Image {
    PixelBox box;
    std::vector<std::uint8_t> coverage;
  };
  // The fraction of a pixel in quarters.
  struct Place {
    int pixel;
    int phase;
  };
  using Key = std::tuple<const FontFace*, bool, bool, unsigned, double, int, int>;

  static Place place_of(double coordinate);
  const Image& image_of(const PlacedGlyph& placed, Place x, Place y, const PixelBox& visible);
  Image draw(const PlacedGlyph& placed, Place x, Place y, const PixelBox& visible);

  FT_Library m_library;
  std::map<Key, Image> m_images;
  std::size_t m_pixels = 0;  // of all images
  Image m_large;             // the last one that was too large to be kept
};

}  // namespace kurv
