#include "qt/surface/qt_text_painter.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QTransform>
#include <cmath>

namespace kurv {
namespace {

QSizeF page_of(const PictureSize& picture) {
  return {picture.width * picture.twips_per_pixel, picture.height * picture.twips_per_pixel};
}

// A view of the pixels. It has no device pixel ratio, which the painter would apply as an
// additional scale.
QImage view_of(const TextTarget& target) {
  return {reinterpret_cast<uchar*>(target.pixels), target.box.width(), target.box.height(),
          target.stride * 4,
          target.is_opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied};
}

}  // namespace

const TextLayout& QtTextPainter::layout_of(const Font& font) {
  const int fonts_now = font_generation();
  if (fonts_now != m_fonts) {
    m_layouts = {};
    m_fonts = fonts_now;
  }
  return m_layouts.of(font);
}

Double QtTextPainter::text_width(const Font& font, std::string_view text) {
  return layout_of(font).text_width(text);
}

Double QtTextPainter::text_height(const Font& font, std::string_view text) {
  return layout_of(font).text_height(text);
}

PixelBox QtTextPainter::bounds(const PlacedText& text, const PictureSize& picture) {
  const TextLayout& layout = layout_of(text.font);
  const auto pixels = [&](double twips) { return twips / picture.twips_per_pixel; };
  // Glyphs extend past their line by no more than the height of a line.
  const double overhang = pixels(layout.line_height()) + 1;
  QRectF bounds;
  layout.place(text.at, text.text, page_of(picture), [&](const PlacedPiece& piece) {
    const double left = pixels(piece.left), width = pixels(piece.width);
    const double baseline = pixels(piece.baseline);
    bounds |= QRectF(left - overhang, baseline - 2 * overhang, width + 2 * overhang, 4 * overhang);
  });
  const QRect box = (bounds & QRectF(0, 0, picture.width, picture.height)).toAlignedRect();
  return {box.x(), box.y(), box.x() + box.width(), box.y() + box.height()};
}

void QtTextPainter::paint(const PlacedText& text, const PictureSize& picture,
                          const TextTarget& target) {
  const TextLayout& layout = layout_of(text.font);
  const auto pixels = [&](double twips) { return twips / picture.twips_per_pixel; };
  const double scale = pixels(layout.twips_per_font_pixel());
  QImage view = view_of(target);
  QPainter painter(&view);
  painter.translate(-target.box.left, -target.box.top);
  painter.setFont(layout.font());
  painter.setPen(QColor::fromRgb(text.colour));
  const QTransform before = painter.transform();
  layout.place(text.at, text.text, page_of(picture), [&](const PlacedPiece& piece) {
    // A baseline on a whole pixel keeps the feet of the letters crisp.
    const double baseline = std::floor(pixels(piece.baseline) + 0.5);
    painter.setTransform(QTransform(scale, 0, 0, scale, pixels(piece.left), baseline) * before);
    painter.drawText(QPointF(0, 0), piece.text);
  });
}

}  // namespace kurv
