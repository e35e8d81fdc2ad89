// The state of a PixelPicture: its pixels, and the pending strokes and sprites.
#pragma once

#include <KurvGraph/pixel_picture.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "model/palette.h"
#include "model/vzeroupper.h"
#include "pixels/pixel_store.h"
#include "pixels/resolution.h"
#include "pixels/text_cache.h"
#include "raster/boxes.h"
#include "raster/canvas.h"
#include "raster/coverage.h"
#include "raster/front_to_back_layer.h"
#include "raster/monotone_polylines.h"
#include "raster/narrow_segments.h"
#include "raster/sprite_batch.h"
#include "raster/strokes.h"

namespace kurv {

inline std::uint32_t pixel_of(int colour) {
  return 0xFF000000 | palette_rgb(colour);
}

// Clamps coordinates far off the canvas, so that sums of them do not overflow.
inline int to_pixel(double coordinate) {
  constexpr double kMaxCoordinate = 1 << 28;
  return static_cast<int>(std::clamp(coordinate, -kMaxCoordinate, kMaxCoordinate));
}

struct PixelPicture::State {
  // Throws std::bad_alloc.
  State(const Resolution& size, std::unique_ptr<PixelStore> where,
        std::shared_ptr<TextPainter> painter)
      : resolution(size),
        store(std::move(where)),
        mask(size.width, size.height),
        narrow_segments(size.width, size.height),
        polylines(size.width, size.height),
        texts(std::move(painter)),
        fonts(texts->generation()) {
    store->reset(size);
  }
  static std::unique_ptr<State> of_memory(const Resolution& size,
                                          std::shared_ptr<TextPainter> painter) {
    return std::make_unique<State>(size, std::make_unique<MemoryStore>(), std::move(painter));
  }

  Resolution resolution;
  std::unique_ptr<PixelStore> store;
  // Pending are either strokes, all of one colour and pen, in `mask` and `narrow_segments`, or
  // sprites.
  raster::Coverage mask;
  std::optional<std::uint32_t> pending_colour;
  raster::NarrowSegments narrow_segments;
  raster::MonotonePolylines polylines;
  std::optional<raster::FrontToBackLayer> front_to_back;  // made when first needed
  raster::SpriteBatch sprites;
  struct BackdropPictures {
    std::unique_ptr<PixelPicture> white;
    std::unique_ptr<PixelPicture> black;
  };
  BackdropPictures backdrops;  // small, for drawing figures that become sprites

  Integer draw_width = 1;
  int fore_color = kBlack;
  Font font;
  std::shared_ptr<TextPainter> texts;
  int fonts;  // the generation of the painted texts
  TextCache painted_texts;

  raster::Canvas canvas() { return store->canvas(); }

  void fill(int colour) {
    const raster::Canvas all = canvas();
    raster::fill_rect(all, {0, 0, all.width, all.height}, pixel_of(colour));
  }

  double pixels(double twips) const { return twips / resolution.twips_per_pixel; }
  double pen_width() const { return std::max(1.0, draw_width * resolution.device_pixel_ratio); }

  void flush() {
    if (!sprites.is_empty()) {
      issue_vzeroupper();  // a text may have been measured since the sprites were collected
      sprites.flush(canvas());
    }
    if (!pending_colour) return;
    narrow_segments.merge_into(mask);
    mask.flush(canvas(), *pending_colour);
    pending_colour.reset();
  }

  // The mask for the next strokes, which have this colour.
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

  // The layer takes twice the memory of the picture. A small one is kept for the next redraw.
  void release_large_layer() {
    constexpr std::int64_t kMaxKeptPixels = 4'000'000;
    if (std::int64_t{resolution.width} * resolution.height > kMaxKeptPixels) front_to_back.reset();
  }

  raster::Pen pen() const { return {1 / resolution.twips_per_pixel, pen_width() / 2}; }
  int whole_pen() const { return to_pixel(std::round(pen_width())); }

  struct Edges {
    int low;
    int high;
  };
  // Snaps the edges at `a` and `b` of a shape drawn with a pen of `pen_pixels` to whole device
  // pixels. Each edge is rounded by itself, so that shapes with a common edge meet there.
  Edges edges(double a, double b, int pen_pixels) const {
    const auto edge = [&](double twips) {
      return to_pixel(std::floor(pixels(twips) - pen_pixels / 2.0 + 0.5));
    };
    return {edge(std::min(a, b)), edge(std::max(a, b)) + pen_pixels};
  }
  // A small box has the same size at every position instead, so that the square markers of a curve
  // are equal. Its size is rounded up from a quarter of a pixel on: a smaller dot in a marker would
  // vanish among the strokes around it.
  Edges box_edges(double a, double b, int pen_pixels) const {
    constexpr double kMaxSmallBox = 334;  // twips: the squares of markers of 200 and less
    if (!(std::abs(b - a) <= kMaxSmallBox)) return edges(a, b, pen_pixels);
    const double extent = std::ceil(pixels(std::abs(b - a)) - 0.25);
    const double middle = (pixels(a) + pixels(b)) / 2;
    const int low = to_pixel(std::floor(middle - (extent + pen_pixels) / 2 + 0.5));
    return {low, low + static_cast<int>(extent) + pen_pixels};
  }

  static raster::PixelRect rect(Edges x, Edges y) { return {x.low, y.low, x.high, y.high}; }

  // The pixels of a rule: an outline of width or height zero, which ends exactly where a frame with
  // the same coordinates does.
  raster::PixelRect rule(SurfacePoint a, SurfacePoint b) const {
    return rect(edges(a.x, b.x, whole_pen()), edges(a.y, b.y, whole_pen()));
  }
  // The pixels of a box, including the pen of its outline; a filled one has no pen.
  raster::PixelRect box(SurfacePoint a, SurfacePoint b, int pen_pixels) const {
    return rect(box_edges(a.x, b.x, pen_pixels), box_edges(a.y, b.y, pen_pixels));
  }

  TextCache& text_cache() {
    const int fonts_now = texts->generation();
    if (fonts_now != fonts) {
      painted_texts = {};
      fonts = fonts_now;
    }
    return painted_texts;
  }
};

}  // namespace kurv
