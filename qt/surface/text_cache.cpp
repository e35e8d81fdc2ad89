#include "qt/surface/text_cache.h"

#include <QPainter>
#include <algorithm>

#include "raster/blend.h"

namespace kurv {
namespace {

// Larger texts are not cached. Beyond kMaxCachePixels the whole cache is cleared.
constexpr qsizetype kMaxTextPixels = 1 << 16;
constexpr qsizetype kMaxCachePixels = 1 << 19;

qsizetype area_of(QRect box) {
  return qsizetype{box.width()} * box.height();
}

QImage painted(QRect box, const TextCache::Paint& paint) {
  QImage image(box.size(), QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(-box.topLeft());
  paint(painter);
  return image;
}

QRect ink_bounds(const QImage& image) {
  QRect visible;
  for (int y = 0; y < image.height(); ++y) {
    const auto* const pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (pixels[x] != 0) visible |= QRect(x, y, 1, 1);
    }
  }
  return visible;
}

void composite_over(QImage& canvas, QPoint corner, const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* const from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    auto* const to = reinterpret_cast<QRgb*>(canvas.scanLine(corner.y() + y)) + corner.x();
    for (int x = 0; x < image.width(); ++x) to[x] = raster::over(to[x], from[x]);
  }
}

}  // namespace

void TextCache::draw(QImage& canvas, const PlacedText& placed, const std::function<QRect()>& box,
                     const Paint& paint) {
  const Font& font = placed.font;
  Key key{font.FontName, font.FontSize, font.FontBold, font.FontItalic,
          placed.colour, placed.at.x,   placed.at.y,   std::string(placed.text)};
  auto known = m_images.find(key);
  if (known == m_images.end()) {
    const QRect bounds = box() & canvas.rect();
    if (bounds.isEmpty()) return;
    if (area_of(bounds) > kMaxTextPixels) {
      QPainter painter(&canvas);
      return paint(painter);
    }
    const QImage image = painted(bounds, paint);
    const QRect visible = ink_bounds(image);
    CachedImage cached{bounds.topLeft() + visible.topLeft(),
                       visible.isEmpty() ? QImage() : image.copy(visible)};
    // The keys take memory, too.
    const qsizetype size = area_of(visible) + static_cast<qsizetype>(placed.text.size()) + 1;
    m_pixels += size;
    if (m_pixels > kMaxCachePixels) {
      m_images.clear();
      m_pixels = size;
    }
    known = m_images.emplace(std::move(key), std::move(cached)).first;
  }
  composite_over(canvas, known->second.corner, known->second.image);
}

}  // namespace kurv
