// The extents of texts in one font, and the letters of which they consist. Lengths are in twips.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include <KurvGraph/plot_surface.h>

#include "fonts/shaping.h"

namespace kurv {

// A part of a line and the left end of its baseline.
struct PlacedLetters {
  double left;
  double baseline;
  const ShapedPiece& piece;
};

class FontLayout {
 public:
  FontLayout(const Font& font, FontCollection& fonts);

  double ascent() const { return m_ascent; }
  double line_height() const { return m_line_height; }
  // All layout is done with a font in which a pixel is about one twip, so that a text has the same
  // extents at every resolution.
  double twips_per_font_pixel() const { return m_twips_per_pixel; }
  int pixel_size() const { return m_pixel_size; }

  double text_width(std::string_view text) const;
  double text_height(std::string_view text) const;

  // Calls `draw` for each part, in order, that is visible on a page of that size.
  void place(SurfacePoint at, std::string_view text, double page_width, double page_height,
             const std::function<void(const PlacedLetters&)>& draw) const;

 private:
  ShapedPiece shaped(const std::u32string& piece) const;
  double line_width(std::string_view line) const;
  void place_line(double left, double top, std::string_view line, double page_width,
                  const std::function<void(const PlacedLetters&)>& draw) const;

  Font m_font;
  FontCollection& m_fonts;
  int m_pixel_size;
  double m_twips_per_pixel;
  StyledFace m_main;
  double m_ascent;
  double m_line_height;
  mutable std::map<std::string, double, std::less<>> m_widths;  // a cache
};

}  // namespace kurv
