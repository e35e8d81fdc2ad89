#include "pixels/text_cache.h"

#include <algorithm>
#include <utility>

#include "raster/blend.h"

namespace kurv {
namespace {

// Larger texts are not cached. Beyond kMaxCachePixels the whole cache is cleared.
constexpr std::ptrdiff_t kMaxTextPixels = 1 << 16;
constexpr std::ptrdiff_t kMaxCachePixels = 1 << 19;

std::ptrdiff_t area_of(const PixelBox& box) {
  return box.is_empty() ? 0 : std::ptrdiff_t{box.width()} * box.height();
}

PixelBox intersection(const PixelBox& a, const PixelBox& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

void extend(PixelBox& box, int x, int y) {
  if (box.is_empty()) {
    box = {x, y, x + 1, y + 1};
    return;
  }
  box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
         std::max(box.bottom, y + 1)};
}

// The bounds of what is not transparent, on the canvas.
PixelBox ink_bounds(const std::vector<std::uint32_t>& pixels, const PixelBox& bounds) {
  PixelBox visible;
  auto pixel = pixels.begin();
  for (int y = bounds.top; y < bounds.bottom; ++y) {
    for (int x = bounds.left; x < bounds.right; ++x) {
      if (*pixel++ != 0) extend(visible, x, y);
    }
  }
  return visible;
}

}  // namespace

TextCache::CachedImage TextCache::painted(const PlacedText& placed, const PictureSize& picture,
                                          const PixelBox& bounds, TextPainter& painter) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(area_of(bounds)));
  painter.paint(placed, picture, {pixels.data(), bounds.width(), bounds, false});
  CachedImage image{ink_bounds(pixels, bounds), {}};
  if (image.box.is_empty()) return image;
  for (int y = image.box.top; y < image.box.bottom; ++y) {
    const auto row = pixels.begin() + std::ptrdiff_t{y - bounds.top} * bounds.width();
    image.pixels.insert(image.pixels.end(), row + (image.box.left - bounds.left),
                        row + (image.box.right - bounds.left));
  }
  return image;
}

void TextCache::composite_over(const raster::Canvas& canvas, const CachedImage& image) {
  const std::uint32_t* from = image.pixels.data();
  for (int y = image.box.top; y < image.box.bottom; ++y) {
    std::uint32_t* const to = canvas.row(y);
    for (int x = image.box.left; x < image.box.right; ++x) to[x] = raster::over(to[x], *from++);
  }
}

void TextCache::draw(const raster::Canvas& canvas, const PlacedText& placed,
                     const PictureSize& picture, TextPainter& painter) {
  const Font& font = placed.font;
  Key key{font.FontName, font.FontSize, font.FontBold, font.FontItalic,
          placed.colour, placed.at.x,   placed.at.y,   std::string(placed.text)};
  auto known = m_images.find(key);
  if (known == m_images.end()) {
    const PixelBox all{0, 0, canvas.width, canvas.height};
    const PixelBox bounds = intersection(painter.bounds(placed, picture), all);
    if (bounds.is_empty()) return;
    if (area_of(bounds) > kMaxTextPixels) {
      return painter.paint(placed, picture, {canvas.pixels, canvas.stride, all, true});
    }
    CachedImage image = painted(placed, picture, bounds, painter);
    // The keys take memory, too.
    const std::ptrdiff_t size =
        area_of(image.box) + static_cast<std::ptrdiff_t>(placed.text.size()) + 1;
    m_pixels += size;
    if (m_pixels > kMaxCachePixels) {
      m_images.clear();
      m_pixels = size;
    }
    known = m_images.emplace(std::move(key), std::move(image)).first;
  }
  composite_over(canvas, known->second);
}

}  // namespace kurv
