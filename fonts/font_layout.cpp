#include "fonts/font_layout.h"

#include <algorithm>
#include <cmath>

#include "fonts/characters.h"
#include "pixels/text_lines.h"

namespace kurv {
namespace {

// Without a font: those of a usual sans-serif font, in multiples of its size.
constexpr double kEstimatedAscent = 0.905;
constexpr double kEstimatedDescent = 0.212;
constexpr double kEstimatedWidth = 0.5;

double size_in_twips(const Font& font) {
  constexpr double kTwipsPerPoint = 20;
  return kTwipsPerPoint * (font.FontSize > 0 ? std::min<double>(font.FontSize, 1638) : 8);
}

int layout_size(double twips) {
  constexpr int kLargestSize = 8000;
  return std::clamp(static_cast<int>(std::lround(twips)), 1, kLargestSize);
}

}  // namespace

FontLayout::FontLayout(const Font& font, FontCollection& fonts)
    : m_font(font),
      m_fonts(fonts),
      m_pixel_size(layout_size(size_in_twips(font))),
      m_twips_per_pixel(size_in_twips(font) / m_pixel_size),
      m_main(fonts.main_face(font)) {
  const FontFace* const face = m_main.face;
  const double ascent = face ? face->ascent(m_pixel_size) : kEstimatedAscent * m_pixel_size;
  const double descent = face ? face->descent(m_pixel_size) : kEstimatedDescent * m_pixel_size;
  m_ascent = ascent * m_twips_per_pixel;
  m_line_height = m_ascent + descent * m_twips_per_pixel;
}

ShapedPiece FontLayout::shaped(const std::u32string& piece) const {
  if (m_main.face) return shape(piece, m_font, m_main, m_pixel_size, m_fonts);
  return {{}, kEstimatedWidth * m_pixel_size * static_cast<double>(piece.size())};
}

double FontLayout::line_width(std::string_view line) const {
  double width = 0;
  while (!line.empty()) width += shaped(take_piece(line)).width * m_twips_per_pixel;
  return width;
}

double FontLayout::text_width(std::string_view text) const {
  constexpr std::size_t kMaxCachedWidths = 500, kMaxCachedLength = 200;
  const auto known = m_widths.find(text);
  if (known != m_widths.end()) return known->second;
  double widest = 0;
  for (const std::string_view line : lines_of(text)) widest = std::max(widest, line_width(line));
  if (m_widths.size() >= kMaxCachedWidths) m_widths.clear();
  if (text.size() <= kMaxCachedLength) m_widths.emplace(text, widest);
  return widest;
}

double FontLayout::text_height(std::string_view text) const {
  return static_cast<double>(lines_of(text).size()) * line_height();
}

void FontLayout::place(SurfacePoint at, std::string_view text, double page_width,
                       double page_height,
                       const std::function<void(const PlacedLetters&)>& draw) const {
  place_lines(at, text, page_height, line_height(),
              [&](double left, double top, std::string_view line) {
                place_line(left, top, line, page_width, draw);
              });
}

void FontLayout::place_line(double left, double top, std::string_view line, double page_width,
                            const std::function<void(const PlacedLetters&)>& draw) const {
  // Letters may extend past their measured width.
  const double overhang = line_height();
  while (!line.empty()) {
    if (left > page_width + overhang) return;
    const ShapedPiece piece = shaped(take_piece(line));
    const double width = piece.width * m_twips_per_pixel;
    if (left + width > -overhang) draw({left, top + ascent(), piece});
    left += width;
  }
}

}  // namespace kurv
