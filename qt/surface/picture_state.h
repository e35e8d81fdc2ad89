// What a picture is made of: its pixels, and what has yet to reach them.
#pragma once

#include <KurvGraph/picture.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "model/palette.h"
#include "model/vzeroupper.h"
#include "qt/surface/resolution.h"
#include "qt/surface/text_cache.h"
#include "qt/surface/text_layout.h"
#include "raster/boxes.h"
#include "raster/canvas.h"
#include "raster/coverage.h"
#include "raster/front_to_back_layer.h"
#include "raster/monotone_polylines.h"
#include "raster/narrow_segments.h"
#include "raster/sprite_batch.h"
#include "raster/strokes.h"

namespace kurv {

// Throws std::bad_alloc.
QImage white_image(const Resolution& resolution);

inline std::uint32_t pixel_of(int colour) {
  return 0xFF000000 | palette_rgb(colour);
}

// Near enough for anything off the canvas, and far from where sums of integers overflow.
inline int to_pixel(double coordinate) {
  constexpr double kFar = 1 << 28;
  return static_cast<int>(std::clamp(coordinate, -kFar, kFar));
}

struct Picture::Pixels {
  explicit Pixels(const Resolution& size)
      : resolution(size),
        image(white_image(size)),
        mask(size.width, size.height),
        narrow_segments(size.width, size.height),
        polylines(size.width, size.height) {}

  Resolution resolution;
  QImage image;
  // Either strokes that are not yet in the image, all of one colour and pen, or figures.
  raster::Coverage mask;
  std::optional<std::uint32_t> pending_colour;
  raster::NarrowSegments narrow_segments;
  raster::MonotonePolylines polylines;
  std::optional<raster::FrontToBackLayer> front_to_back;  // once there were many
  raster::SpriteBatch sprites;
  struct BackdropPictures {
    std::unique_ptr<Picture> white;
    std::unique_ptr<Picture> black;
  };
  BackdropPictures backdrops;  // small ones, for figures that are to become stamps

  Integer draw_width = 1;
  int fore_color = kBlack;
  Font font;
  int fonts = font_generation();  // when texts were measured or painted
  TextLayouts layouts;
  TextCache texts;

  raster::Canvas canvas() {
    // Taking the bits detaches the image from those handed out.
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
            static_cast<std::ptrdiff_t>(image.bytesPerLine() / 4)};
  }

  void fill(int colour) {
    // Not QImage::fill(), which leaves the upper halves of the vector registers in use.
    const raster::Canvas all = canvas();
    raster::fill_rect(all, {0, 0, all.width, all.height}, pixel_of(colour));
  }

  double pixels(double twips) const { return twips / resolution.twips_per_pixel; }
  double pen_width() const { return std::max(1.0, draw_width * resolution.device_pixel_ratio); }

  void flush() {
    if (!sprites.is_empty()) {
      clear_upper_registers();  // the toolkit may have measured texts since they were collected
      sprites.flush(canvas());
    }
    if (!pending_colour) return;
    narrow_segments.merge_into(mask);
    mask.flush(canvas(), *pending_colour);
    pending_colour.reset();
  }

  // Where the next strokes of this colour are collected.
  raster::Coverage& mask_for(int colour) {
    const std::uint32_t pixel = pixel_of(colour);
    if (pending_colour != pixel || !sprites.is_empty()) flush();
    pending_colour = pixel;
    return mask;
  }

  raster::FrontToBackLayer& layer() {
    if (!front_to_back) front_to_back.emplace(resolution.width, resolution.height);
    return *front_to_back;
  }

  // It takes twice the memory of the picture, which a window can spare for its next redraw.
  void release_large_layer() {
    constexpr std::int64_t kLarge = 4'000'000;  // pixels
    if (std::int64_t{resolution.width} * resolution.height > kLarge) front_to_back.reset();
  }

  raster::Pen pen() const { return {1 / resolution.twips_per_pixel, pen_width() / 2}; }
  int whole_pen() const { return to_pixel(std::round(pen_width())); }

  struct Edges {
    int low;
    int high;
  };
  // Whole device pixels for the edges at `a` and `b` of something drawn with a pen of `pen` pixels.
  // Each edge is rounded for itself, so that things with an edge in common meet there.
  Edges edges(double a, double b, int pen_pixels) const {
    const auto edge = [&](double twips) {
      return to_pixel(std::floor(pixels(twips) - pen_pixels / 2.0 + 0.5));
    };
    return {edge(std::min(a, b)), edge(std::max(a, b)) + pen_pixels};
  }
  // A small box keeps its size wherever it stands instead: a curve's square markers are all alike.
  // It is rather too large than too small, or the dot in a marker would vanish among its strokes.
  Edges box_edges(double a, double b, int pen_pixels) const {
    constexpr double kSmall = 334;  // twips: the squares of markers of 200 and less
    if (!(std::abs(b - a) <= kSmall)) return edges(a, b, pen_pixels);
    const double extent = std::ceil(pixels(std::abs(b - a)) - 0.25);
    const double middle = (pixels(a) + pixels(b)) / 2;
    const int low = to_pixel(std::floor(middle - (extent + pen_pixels) / 2 + 0.5));
    return {low, low + static_cast<int>(extent) + pen_pixels};
  }

  static raster::PixelRect rect(Edges x, Edges y) { return {x.low, y.low, x.high, y.high}; }

  // What a rule covers: an outline without height or width, which ends exactly where a frame with
  // the same coordinates does.
  raster::PixelRect rule(SurfacePoint a, SurfacePoint b) const {
    return rect(edges(a.x, b.x, whole_pen()), edges(a.y, b.y, whole_pen()));
  }
  // What a box covers, the pen of its outline included; a filled one has no pen.
  raster::PixelRect box(SurfacePoint a, SurfacePoint b, int pen_pixels) const {
    return rect(box_edges(a.x, b.x, pen_pixels), box_edges(a.y, b.y, pen_pixels));
  }

  const TextLayout& text_layout() {
    const int fonts_now = font_generation();
    if (fonts_now != fonts) {
      layouts = {};
      texts = {};
      fonts = fonts_now;
    }
    return layouts.of(font);
  }
};

}  // namespace kurv
