#include <QColor>
#include <QPainter>
#include <QString>
#include <QTransform>
#include <cmath>
#include <string_view>

#include "qt/surface/picture_state.h"

namespace kurv {

void Picture::Print(Single CurrentX, Single CurrentY, std::string_view text) {
  if (std::isnan(CurrentX) || std::isnan(CurrentY)) return;
  m_pixels->flush();
  const raster::Canvas canvas = m_pixels->canvas();
  // A view of the same pixels without a device pixel ratio, which the painter would apply as an
  // additional scale.
  QImage view(reinterpret_cast<uchar*>(canvas.pixels), canvas.width, canvas.height,
              canvas.stride * 4, QImage::Format_RGB32);
  const TextLayout& layout = m_pixels->text_layout();
  const double twips = twips_per_device_pixel();
  const QSizeF page(canvas.width * twips, canvas.height * twips);
  const double scale = m_pixels->pixels(layout.twips_per_font_pixel());
  const QRgb colour = pixel_of(m_pixels->fore_color);
  const auto box = [&] {
    // Glyphs extend past their line by no more than the height of a line.
    const double overhang = m_pixels->pixels(layout.line_height()) + 1;
    QRectF bounds;
    layout.place({CurrentX, CurrentY}, text, page, [&](const PlacedPiece& piece) {
      const double left = m_pixels->pixels(piece.left), width = m_pixels->pixels(piece.width);
      const double baseline = m_pixels->pixels(piece.baseline);
      bounds |=
          QRectF(left - overhang, baseline - 2 * overhang, width + 2 * overhang, 4 * overhang);
    });
    return (bounds & QRectF(view.rect())).toAlignedRect();
  };
  m_pixels->texts.draw(
      view, {m_pixels->font, colour, {CurrentX, CurrentY}, text}, box, [&](QPainter& painter) {
        painter.setFont(layout.font());
        painter.setPen(QColor::fromRgb(colour));
        const QTransform before = painter.transform();
        layout.place({CurrentX, CurrentY}, text, page, [&](const PlacedPiece& piece) {
          // A baseline on a whole pixel keeps the feet of the letters crisp.
          const double baseline = std::floor(m_pixels->pixels(piece.baseline) + 0.5);
          painter.setTransform(
              QTransform(scale, 0, 0, scale, m_pixels->pixels(piece.left), baseline) * before);
          painter.drawText(QPointF(0, 0), piece.text);
        });
      });
}

Double Picture::TextWidth(std::string_view text) const {
  return m_pixels->text_layout().text_width(text);
}

Double Picture::TextHeight(std::string_view text) const {
  return m_pixels->text_layout().text_height(text);
}

const Font& Picture::font() const {
  return m_pixels->font;
}

void Picture::set_font(const Font& font) {
  m_pixels->font = font;
}

int Picture::ForeColor() const {
  return m_pixels->fore_color;
}

void Picture::set_ForeColor(int colour) {
  m_pixels->fore_color = colour;
}

}  // namespace kurv
