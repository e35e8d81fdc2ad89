#include "qt/surface/text_pictures.h"

#include <QPainter>
#include <algorithm>

#include "raster/blend.h"

namespace kurv {
namespace {

// Larger texts are painted each time, and when there are too many all of them are forgotten.
constexpr qsizetype kLargest = 1 << 16;  // pixels
constexpr qsizetype kMost = 1 << 19;

qsizetype area_of(QRect box) {
  return qsizetype{box.width()} * box.height();
}

QImage painted(QRect box, const TextPictures::Paint& paint) {
  QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(-box.topLeft());
  paint(painter);
  return image;
}

QRect visible_part_of(const QImage& image) {
  QRect visible;
  for (int y = 0; y < image.height(); ++y) {
    const auto* const pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (pixels[x] != 0) visible |= QRect(x, y, 1, 1);
    }
  }
  return visible;
}

void put_over(QImage& canvas, QPoint place, const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* const from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    auto* const to = reinterpret_cast<QRgb*>(canvas.scanLine(place.y() + y)) + place.x();
    for (int x = 0; x < image.width(); ++x) to[x] = raster::over(to[x], from[x]);
  }
}

}  // namespace

void TextPictures::put(QImage& canvas, const Look& look, const std::function<QRect()>& box,
                       const Paint& paint) {
  const Font& font = look.font;
  Key key{font.FontName, font.FontSize, font.FontBold, font.FontItalic,
          look.colour,   look.at.x,     look.at.y,     std::string(look.text)};
  auto known = m_pictures.find(key);
  if (known == m_pictures.end()) {
    const QRect room = box() & canvas.rect();
    if (room.isEmpty()) return;
    if (area_of(room) > kLargest) {
      QPainter painter(&canvas);
      return paint(painter);
    }
    const QImage image = painted(room, paint);
    const QRect visible = visible_part_of(image);
    Picture picture{room.topLeft() + visible.topLeft(),
                    visible.isEmpty() ? QImage() : image.copy(visible)};
    // The texts themselves take room, too.
    const qsizetype size = area_of(visible) + static_cast<qsizetype>(look.text.size()) + 1;
    m_pixels += size;
    if (m_pixels > kMost) {
      m_pictures.clear();
      m_pixels = size;
    }
    known = m_pictures.emplace(std::move(key), std::move(picture)).first;
  }
  put_over(canvas, known->second.place, known->second.image);
}

}  // namespace kurv
