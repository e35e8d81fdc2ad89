#include <cmath>
#include <memory>
#include <utility>

#include "qt/surface/picture_state.h"

namespace kurv {
namespace {

raster::Point to_point(SurfacePoint point) {
  return {point.x, point.y};
}

bool has_nan(SurfacePoint point) {
  return std::isnan(point.x) || std::isnan(point.y);
}

}  // namespace

void Picture::Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) {
  if (has_nan(from) || has_nan(to)) return;
  const bool is_axis_parallel = from.x == to.x || from.y == to.y;
  if (kind == LineKind::kSegment || (kind == LineKind::kRule && !is_axis_parallel)) {
    raster::Coverage& mask = m_pixels->mask_for(colour);
    raster::add_segment(mask, m_pixels->narrow_segments, m_pixels->pen(), to_point(from),
                        to_point(to));
    return;
  }
  m_pixels->flush();
  const raster::Canvas canvas = m_pixels->canvas();
  if (kind == LineKind::kFilledBox) {
    raster::fill_rect(canvas, m_pixels->box(from, to, 0), pixel_of(colour));
  } else if (kind == LineKind::kBox) {
    raster::frame_rect(canvas, m_pixels->box(from, to, m_pixels->whole_pen()),
                       m_pixels->whole_pen(), pixel_of(colour));
  } else {
    raster::fill_rect(canvas, m_pixels->rule(from, to), pixel_of(colour));
  }
}

void Picture::Polyline(const PolylinePoints& points, int colour) {
  if (!m_pixels->polylines.add(m_pixels->pen(), {points.x, points.y, points.drawn})) {
    return PlotSurface::Polyline(points, colour);
  }
  m_pixels->flush();
  m_pixels->polylines.flush(m_pixels->canvas(), pixel_of(colour));
}

// Many noisy lines hide most of each other, so they are drawn front to back, and what is hidden is
// left out. Of fewer or sparser lines too little is hidden to pay for the layer.
void Picture::Polylines(std::span<const Single> x, int count, Integer pen,
                        const std::function<PolylineOver(int)>& line) {
  constexpr int kMinCurves = 48;
  constexpr std::size_t kMinPointsPerColumn = 2;
  raster::MonotonePolylines& polylines = m_pixels->polylines;
  const raster::Pen raster_pen = m_pixels->pen();
  const bool hides_much =
      count >= kMinCurves &&
      x.size() >= kMinPointsPerColumn * static_cast<std::size_t>(m_pixels->image.width()) &&
      raster::MonotonePolylines::is_noisy(line(count - 1).y);
  if (!hides_much || !polylines.accepts(raster_pen, x)) {
    return PlotSurface::Polylines(x, count, pen, line);
  }
  m_pixels->flush();
  raster::FrontToBackLayer& layer = m_pixels->layer();
  layer.clear();
  for (int i = count - 1; i >= 0; --i) {
    const PolylineOver over = line(i);
    polylines.add_accepted(raster_pen, {x, over.y, over.drawn}, &layer);
    polylines.flush(layer, pixel_of(over.colour));
  }
  layer.flush(m_pixels->canvas());
  m_pixels->release_large_layer();
  DrawWidth(1);
}

void Picture::Circle(SurfacePoint centre, Single radius, int colour) {
  raster::add_circle(m_pixels->mask_for(colour), m_pixels->pen(), to_point(centre), radius);
}

void Picture::Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) {
  raster::add_arc(m_pixels->mask_for(colour), m_pixels->pen(), to_point(centre), radius, start,
                  end);
}

namespace {

// Fewer figures, and figures of more pixels a side, are drawn directly.
constexpr std::size_t kMinSpriteFigures =
    std::size_t{4} * raster::SpriteBatch::kPhases * raster::SpriteBatch::kPhases;
constexpr double kMaxSpriteSide = 64;  // pixels

bool are_few(const FigureCentres& centres) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < centres.x.size() && count < kMinSpriteFigures; ++i) {
    count += centres.has(i) ? 1 : 0;
  }
  return count < kMinSpriteFigures;
}

}  // namespace

// Draws the figure on a white and on a black backdrop, from which the sprite computes its alpha.
raster::Sprite Picture::make_sprite(const Figure& figure, FigureCentre centre, Picture& white,
                                    Picture& black) const {
  const auto drawn_on = [&](int backdrop, Picture& picture) {
    picture.Cls();  // also drops what a figure left that threw an exception
    if (backdrop != kWhite) picture.m_pixels->fill(backdrop);
    picture.DrawWidth(m_pixels->draw_width);
    figure(picture, centre);
    picture.m_pixels->flush();
    return picture.m_pixels->canvas();
  };
  const int middle = white.m_pixels->resolution.width / 2;
  return {drawn_on(kWhite, white), drawn_on(kBlack, black), middle, middle};
}

void Picture::Repeat(const FigureCentres& centres, Double reach, const Figure& figure) {
  const double wanted = 2 * std::ceil(m_pixels->pixels(reach) + m_pixels->pen_width() + 2) + 1;
  if (!(wanted <= kMaxSpriteSide) || are_few(centres)) {
    return PlotSurface::Repeat(centres, reach, figure);
  }
  if (m_pixels->pending_colour || m_pixels->sprites.is_full()) m_pixels->flush();
  const int side = static_cast<int>(wanted);
  const Resolution& own = m_pixels->resolution;
  const Resolution small{side, side, own.device_pixel_ratio, own.twips_per_pixel};
  // Kept, because the next figure of a graph usually has the same size.
  Pixels::BackdropPictures& backdrops = m_pixels->backdrops;
  if (!backdrops.white || backdrops.white->m_pixels->resolution != small) {
    backdrops.white.reset(new Picture(std::make_unique<Pixels>(small)));
    backdrops.black.reset(new Picture(std::make_unique<Pixels>(small)));
  }
  const auto place = [side, unit = own.twips_per_pixel](int phase) {
    return (side / 2 + static_cast<double>(phase) / raster::SpriteBatch::kPhases) * unit;
  };
  m_pixels->sprites.add(centres.x, centres.y, own.twips_per_pixel, [&](int phase_x, int phase_y) {
    return make_sprite(figure, {place(phase_x), place(phase_y)}, *backdrops.white,
                       *backdrops.black);
  });
}

void Picture::PSet(SurfacePoint at, int colour) {
  raster::add_segment(m_pixels->mask_for(colour), m_pixels->pen(), to_point(at), to_point(at));
}

}  // namespace kurv
