#include <cmath>
#include <memory>
#include <utility>

#include "pixels/pixel_picture_state.h"

namespace kurv {
namespace {

raster::Point to_point(SurfacePoint point) {
  return {point.x, point.y};
}

bool has_nan(SurfacePoint point) {
  return std::isnan(point.x) || std::isnan(point.y);
}

}  // namespace

void PixelPicture::Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) {
  if (has_nan(from) || has_nan(to)) return;
  const bool is_axis_parallel = from.x == to.x || from.y == to.y;
  if (kind == LineKind::kSegment || (kind == LineKind::kRule && !is_axis_parallel)) {
    raster::Coverage& mask = m_state->mask_for(colour);
    raster::add_segment(mask, m_state->narrow_segments, m_state->pen(), to_point(from),
                        to_point(to));
    return;
  }
  m_state->flush();
  const raster::Canvas canvas = m_state->canvas();
  if (kind == LineKind::kFilledBox) {
    raster::fill_rect(canvas, m_state->box(from, to, 0), pixel_of(colour));
  } else if (kind == LineKind::kBox) {
    raster::frame_rect(canvas, m_state->box(from, to, m_state->whole_pen()), m_state->whole_pen(),
                       pixel_of(colour));
  } else {
    raster::fill_rect(canvas, m_state->rule(from, to), pixel_of(colour));
  }
}

void PixelPicture::Polyline(const PolylinePoints& points, int colour) {
  if (!m_state->polylines.add(m_state->pen(), {points.x, points.y, points.drawn})) {
    return PlotSurface::Polyline(points, colour);
  }
  m_state->flush();
  m_state->polylines.flush(m_state->canvas(), pixel_of(colour));
}

// Many noisy lines hide most of each other, so they are drawn front to back, and what is hidden is
// left out. Of fewer or sparser lines too little is hidden to pay for the layer.
void PixelPicture::Polylines(std::span<const Single> x, int count, Integer pen,
                             const std::function<PolylineOver(int)>& line) {
  constexpr int kMinCurves = 48;
  constexpr std::size_t kMinPointsPerColumn = 2;
  raster::MonotonePolylines& polylines = m_state->polylines;
  const raster::Pen raster_pen = m_state->pen();
  const bool hides_much =
      count >= kMinCurves &&
      x.size() >= kMinPointsPerColumn * static_cast<std::size_t>(m_state->resolution.width) &&
      raster::MonotonePolylines::is_noisy(line(count - 1).y);
  if (!hides_much || !polylines.accepts(raster_pen, x)) {
    return PlotSurface::Polylines(x, count, pen, line);
  }
  m_state->flush();
  raster::FrontToBackLayer& layer = m_state->layer();
  layer.clear();
  for (int i = count - 1; i >= 0; --i) {
    const PolylineOver over = line(i);
    polylines.add_accepted(raster_pen, {x, over.y, over.drawn}, &layer);
    polylines.flush(layer, pixel_of(over.colour));
  }
  layer.flush(m_state->canvas());
  m_state->release_large_layer();
  DrawWidth(1);
}

void PixelPicture::Circle(SurfacePoint centre, Single radius, int colour) {
  raster::add_circle(m_state->mask_for(colour), m_state->pen(), to_point(centre), radius);
}

void PixelPicture::Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) {
  raster::add_arc(m_state->mask_for(colour), m_state->pen(), to_point(centre), radius, start, end);
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
raster::Sprite PixelPicture::make_sprite(const Figure& figure, FigureCentre centre,
                                         PixelPicture& white, PixelPicture& black) const {
  const auto drawn_on = [&](int backdrop, PixelPicture& picture) {
    picture.Cls();  // also drops what a figure left that threw an exception
    if (backdrop != kWhite) picture.m_state->fill(backdrop);
    picture.DrawWidth(m_state->draw_width);
    figure(picture, centre);
    picture.m_state->flush();
    return picture.m_state->canvas();
  };
  const int middle = white.m_state->resolution.width / 2;
  return {drawn_on(kWhite, white), drawn_on(kBlack, black), middle, middle};
}

void PixelPicture::Repeat(const FigureCentres& centres, Double reach, const Figure& figure) {
  const double wanted = 2 * std::ceil(m_state->pixels(reach) + m_state->pen_width() + 2) + 1;
  if (!(wanted <= kMaxSpriteSide) || are_few(centres)) {
    return PlotSurface::Repeat(centres, reach, figure);
  }
  if (m_state->pending_colour || m_state->sprites.is_full()) m_state->flush();
  const int side = static_cast<int>(wanted);
  const Resolution& own = m_state->resolution;
  const Resolution small{side, side, own.device_pixel_ratio, own.twips_per_pixel};
  // Kept, because the next figure of a graph usually has the same size.
  State::BackdropPictures& backdrops = m_state->backdrops;
  if (!backdrops.white || backdrops.white->m_state->resolution != small) {
    const auto make = [&] { return new PixelPicture(State::of_memory(small, m_state->texts)); };
    backdrops.white.reset(make());
    backdrops.black.reset(make());
  }
  const auto place = [side, unit = own.twips_per_pixel](int phase) {
    return (side / 2 + static_cast<double>(phase) / raster::SpriteBatch::kPhases) * unit;
  };
  m_state->sprites.add(centres.x, centres.y, own.twips_per_pixel, [&](int phase_x, int phase_y) {
    return make_sprite(figure, {place(phase_x), place(phase_y)}, *backdrops.white,
                       *backdrops.black);
  });
}

void PixelPicture::PSet(SurfacePoint at, int colour) {
  raster::add_segment(m_state->mask_for(colour), m_state->pen(), to_point(at), to_point(at));
}

}  // namespace kurv
