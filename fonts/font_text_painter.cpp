#include <KurvGraph/font_text_painter.h>

#include <algorithm>
#include <cmath>
#include <list>
#include <utility>

#include "fonts/font_layout.h"
#include "fonts/glyph_painter.h"

namespace kurv {

struct FontTextPainter::State {
  explicit State(bool uses_system_fonts) : fonts(uses_system_fonts), glyphs(fonts.freetype()) {}

  bool add(FontBytes bytes) {
    if (!fonts.add(std::move(bytes))) return false;
    layouts.clear();
    ++generation;
    return true;
  }

  // Valid until the next call.
  const FontLayout& layout_of(const Font& font) {
    constexpr std::size_t kMaxLayouts = 8;
    const auto known = std::find_if(layouts.begin(), layouts.end(),
                                    [&](const auto& each) { return each.first == font; });
    if (known != layouts.end()) {
      layouts.splice(layouts.begin(), layouts, known);
    } else {
      if (layouts.size() == kMaxLayouts) layouts.pop_back();
      layouts.emplace_front(font, FontLayout(font, fonts));
    }
    return layouts.front().second;
  }

  FontCollection fonts;
  GlyphPainter glyphs;
  std::list<std::pair<Font, FontLayout>> layouts;  // most recently used first
  int generation = 0;
};

FontTextPainter::FontTextPainter(Source source)
    : m_state(std::make_unique<State>(source == Source::kSystem)) {}

FontTextPainter::~FontTextPainter() = default;

bool FontTextPainter::add_font_file(const String& path) {
  return m_state->add(FontBytes(hb_blob_create_from_file_or_fail(path.c_str())));
}

bool FontTextPainter::add_font(std::string_view bytes) {
  return m_state->add(
      FontBytes(hb_blob_create_or_fail(bytes.data(), static_cast<unsigned>(bytes.size()),
                                       HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr)));
}

Double FontTextPainter::text_width(const Font& font, std::string_view text) {
  return m_state->layout_of(font).text_width(text);
}

Double FontTextPainter::text_height(const Font& font, std::string_view text) {
  return m_state->layout_of(font).text_height(text);
}

PixelBox FontTextPainter::bounds(const PlacedText& text, const PictureSize& picture) {
  const FontLayout& layout = m_state->layout_of(text.font);
  const double unit = picture.twips_per_pixel;
  // Letters extend past their line by no more than the height of a line.
  const double overhang = layout.line_height() / unit + 1;
  PixelBox bounds;
  const auto pixel = [](double coordinate, int end) {
    return static_cast<int>(std::clamp<double>(coordinate, 0, end));
  };
  layout.place(text.at, text.text, picture.width * unit, picture.height * unit,
               [&](const PlacedLetters& letters) {
                 const double left = letters.left / unit, baseline = letters.baseline / unit;
                 const double width = letters.piece.width * layout.twips_per_font_pixel() / unit;
                 const PixelBox box{pixel(std::floor(left - overhang), picture.width),
                                    pixel(std::floor(baseline - 2 * overhang), picture.height),
                                    pixel(std::ceil(left + width + overhang), picture.width),
                                    pixel(std::ceil(baseline + 2 * overhang), picture.height)};
                 if (box.is_empty()) return;
                 bounds = bounds.is_empty() ? box
                                            : PixelBox{std::min(bounds.left, box.left),
                                                       std::min(bounds.top, box.top),
                                                       std::max(bounds.right, box.right),
                                                       std::max(bounds.bottom, box.bottom)};
               });
  return bounds;
}

void FontTextPainter::paint(const PlacedText& text, const PictureSize& picture,
                            const TextTarget& target) {
  const FontLayout& layout = m_state->layout_of(text.font);
  const double unit = picture.twips_per_pixel;
  const double scale = layout.twips_per_font_pixel() / unit;
  layout.place(text.at, text.text, picture.width * unit, picture.height * unit,
               [&](const PlacedLetters& letters) {
                 const double left = letters.left / unit;
                 // A baseline on a whole pixel keeps the feet of the letters crisp.
                 const double baseline = std::floor(letters.baseline / unit + 0.5);
                 for (const ShapedGlyph& glyph : letters.piece.glyphs) {
                   m_state->glyphs.paint({glyph.face, glyph.glyph, layout.pixel_size() * scale,
                                          left + glyph.x * scale, baseline + glyph.y * scale},
                                         text.colour, target);
                 }
               });
}

int FontTextPainter::generation() {
  return m_state->generation;
}

}  // namespace kurv
