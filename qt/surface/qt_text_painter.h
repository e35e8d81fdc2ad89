// Texts of a picture by QPainter, with Qt's fonts.
#pragma once

#include <KurvGraph/text_painter.h>

#include "qt/surface/text_layout.h"

namespace kurv {

class QtTextPainter final : public TextPainter {
 public:
  Double text_width(const Font& font, std::string_view text) override;
  Double text_height(const Font& font, std::string_view text) override;
  PixelBox bounds(const PlacedText& text, const PictureSize& picture) override;
  void paint(const PlacedText& text, const PictureSize& picture, const TextTarget& target) override;
  int generation() override { return font_generation(); }

 private:
  // Valid until the next call.
  const TextLayout& layout_of(const Font& font);

  TextLayouts m_layouts;
  int m_fonts = font_generation();  // of the cached layouts
};

}  // namespace kurv
