// Characters into letters with their places.
#pragma once

#include <string>
#include <vector>

#include "fonts/font_collection.h"

namespace kurv {

struct ShapedGlyph {
  StyledFace face;
  unsigned glyph = 0;
  double x = 0;  // from the left end of the baseline, y downwards
  double y = 0;
};

// From left to right as they are drawn. Lengths are in pixels of the font.
struct ShapedPiece {
  std::vector<ShapedGlyph> glyphs;
  double width = 0;
};

// `main` is the face of the font, and not null.
ShapedPiece shape(const std::u32string& text, const Font& font, StyledFace main, int pixel_size,
                  FontCollection& fonts);

}  // namespace kurv
