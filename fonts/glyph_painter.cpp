#include "fonts/glyph_painter.h"

#include <ft2build.h>
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <utility>

#include "raster/blend.h"

namespace kurv {
namespace {

constexpr int kPhases = 4;
constexpr int kUnit = 64;  // of outlines, in a pixel

constexpr double kMaxKeptSize = 100;  // pixels
constexpr std::size_t kMaxKeptPixels = 1 << 20;

int floor_to_pixel(FT_Pos position) {
  return static_cast<int>(position >> 6);
}

int ceil_to_pixel(FT_Pos position) {
  return static_cast<int>((position + kUnit - 1) >> 6);
}

PixelBox intersection(const PixelBox& a, const PixelBox& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

PixelBox moved(const PixelBox& box, int x, int y) {
  return {box.left + x, box.top + y, box.right + x, box.bottom + y};
}

// The pixels that the outline touches, y downwards.
PixelBox bounds_of(const FT_Outline& outline) {
  FT_BBox box;
  FT_Outline_Get_CBox(&outline, &box);
  return {floor_to_pixel(box.xMin), -ceil_to_pixel(box.yMax), ceil_to_pixel(box.xMax),
          -floor_to_pixel(box.yMin)};
}

std::uint32_t premultiplied(std::uint32_t colour, std::uint32_t coverage) {
  return raster::pack_channels(raster::divide_by_255(raster::unpack_channels(colour) * coverage));
}

}  // namespace

GlyphPainter::Place GlyphPainter::place_of(double coordinate) {
  const double quarters = std::floor(coordinate * kPhases + 0.5);
  const double pixel = std::floor(quarters / kPhases);
  return {static_cast<int>(pixel), static_cast<int>(quarters - pixel * kPhases)};
}

GlyphPainter::Image GlyphPainter::draw(const PlacedGlyph& placed, Place x, Place y,
                                       const PixelBox& visible) {
  Image image;
  FT_Outline* const outline =
      placed.face.face->outline(placed.glyph, placed.size, placed.face.synthesis);
  if (!outline) return image;
  FT_Outline_Translate(outline, x.phase * kUnit / kPhases, -y.phase * kUnit / kPhases);
  image.box = intersection(bounds_of(*outline), visible);
  if (image.box.is_empty()) return image;
  FT_Outline_Translate(outline, -FT_Pos{image.box.left} * kUnit, FT_Pos{image.box.bottom} * kUnit);
  image.coverage.resize(static_cast<std::size_t>(image.box.width()) *
                        static_cast<std::size_t>(image.box.height()));
  FT_Bitmap bitmap{};
  bitmap.rows = static_cast<unsigned>(image.box.height());
  bitmap.width = static_cast<unsigned>(image.box.width());
  bitmap.pitch = image.box.width();
  bitmap.buffer = image.coverage.data();
  bitmap.num_grays = 256;
  bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
  if (FT_Outline_Get_Bitmap(m_library, outline, &bitmap) != 0) return {};
  return image;
}

const GlyphPainter::Image& GlyphPainter::image_of(const PlacedGlyph& placed, Place x, Place y,
                                                  const PixelBox& visible) {
  if (placed.size > kMaxKeptSize) return m_large = draw(placed, x, y, visible);
  const Synthesis synthesis = placed.face.synthesis;
  const Key key{placed.face.face, synthesis.bold, synthesis.italic, placed.glyph,
                placed.size,      x.phase,        y.phase};
  const auto known = m_images.find(key);
  if (known != m_images.end()) return known->second;
  // A damaged font may have letters of any size.
  constexpr int kReach = static_cast<int>(4 * kMaxKeptSize);
  Image image = draw(placed, x, y, {-kReach, -kReach, kReach, kReach});
  m_pixels += image.coverage.size() + 1;
  if (m_pixels > kMaxKeptPixels) {
    m_images.clear();
    m_pixels = image.coverage.size() + 1;
  }
  return m_images.emplace(key, std::move(image)).first->second;
}

void GlyphPainter::paint(const PlacedGlyph& placed, std::uint32_t colour,
                         const TextTarget& target) {
  constexpr double kFar = 1 << 20;
  if (!(std::abs(placed.x) < kFar && std::abs(placed.y) < kFar)) return;
  const Place x = place_of(placed.x), y = place_of(placed.y);
  const Image& image = image_of(placed, x, y, moved(target.box, -x.pixel, -y.pixel));
  const PixelBox box = moved(image.box, x.pixel, y.pixel);
  const PixelBox visible = intersection(box, target.box);
  for (int row = visible.top; row < visible.bottom; ++row) {
    const std::uint8_t* const coverage =
        image.coverage.data() + std::ptrdiff_t{row - box.top} * box.width() - box.left;
    std::uint32_t* const pixels =
        target.pixels + (row - target.box.top) * target.stride - target.box.left;
    for (int column = visible.left; column < visible.right; ++column) {
      pixels[column] = raster::over(pixels[column], premultiplied(colour, coverage[column]));
    }
  }
}

}  // namespace kurv
