#include <KurvGraph/picture.h>

#include <QBuffer>
#include <QColor>
#include <QPainter>
#include <QString>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "core/vector_registers.h"
#include "qt/resolution.h"
#include "qt/text_layout.h"
#include "qt/text_pictures.h"
#include "raster/boxes.h"
#include "raster/canvas.h"
#include "raster/columns.h"
#include "raster/coverage.h"
#include "raster/layer.h"
#include "raster/long_segments.h"
#include "raster/stamp.h"
#include "raster/stamps.h"
#include "raster/strokes.h"
#include "render/palette.h"

namespace kurv {
namespace {

constexpr double kTwipsPerInch = 1440;

QImage white_image(const Resolution& resolution) {
  QImage image(resolution.width, resolution.height, QImage::Format_RGB32);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(Qt::white);
  image.setDevicePixelRatio(resolution.device_pixel_ratio);
  const double per_metre = kTwipsPerInch / resolution.twips_per_pixel / 0.0254;
  const int dots = static_cast<int>(std::clamp(std::round(per_metre), 1.0, 1e9));
  image.setDotsPerMeterX(dots);
  image.setDotsPerMeterY(dots);
  return image;
}

std::uint32_t pixel_of(int colour) {
  return 0xFF000000 | palette_rgb(colour);
}

// Near enough for anything off the canvas, and far from where sums of integers overflow.
int to_pixel(double coordinate) {
  constexpr double kFar = 1 << 28;
  return static_cast<int>(std::clamp(coordinate, -kFar, kFar));
}

raster::Point to_point(SurfacePoint point) {
  return {point.x, point.y};
}

bool has_nan(SurfacePoint point) {
  return std::isnan(point.x) || std::isnan(point.y);
}

}  // namespace

struct Picture::Pixels {
  explicit Pixels(const Resolution& size)
      : resolution(size),
        image(white_image(size)),
        mask(size.width, size.height),
        middles(size.width, size.height),
        columns(size.width, size.height) {}

  Resolution resolution;
  QImage image;
  // Either strokes that are not yet in the image, all of one colour and pen, or figures.
  raster::Coverage mask;
  std::optional<std::uint32_t> pending_colour;
  raster::LongSegments middles;
  raster::Columns columns;
  std::optional<raster::Layer> lines;  // once there were many
  raster::Stamps stamps;

  Integer draw_width = 1;
  int fore_color = kBlack;
  Font font;
  TextLayouts layouts;
  TextPictures texts;

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
    if (!stamps.is_empty()) {
      clear_upper_registers();  // the toolkit may have measured texts since they were collected
      stamps.flush(canvas());
    }
    if (!pending_colour) return;
    middles.merge_into(mask);
    mask.flush(canvas(), *pending_colour);
    pending_colour.reset();
  }

  // Where the next strokes of this colour are collected.
  raster::Coverage& strokes(int colour) {
    const std::uint32_t pixel = pixel_of(colour);
    if (pending_colour != pixel || !stamps.is_empty()) flush();
    pending_colour = pixel;
    return mask;
  }

  raster::Layer& layer() {
    if (!lines) lines.emplace(resolution.width, resolution.height);
    return *lines;
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

  const TextLayout& text_layout() { return layouts.of(font); }
};

Picture::Picture(QSize logical_size, double device_pixel_ratio)
    : m_pixels(std::make_unique<Pixels>(resolution_of(logical_size, device_pixel_ratio))) {}

Picture::Picture(std::unique_ptr<Pixels> pixels) : m_pixels(std::move(pixels)) {}

Picture::~Picture() = default;

void Picture::resize(QSize logical_size, double device_pixel_ratio) {
  const Resolution resolution = resolution_of(logical_size, device_pixel_ratio);
  QImage image = white_image(resolution);
  raster::Coverage mask(resolution.width, resolution.height);
  m_pixels->resolution = resolution;
  m_pixels->image = std::move(image);
  m_pixels->mask = std::move(mask);
  m_pixels->middles = raster::LongSegments(resolution.width, resolution.height);
  m_pixels->columns = raster::Columns(resolution.width, resolution.height);
  m_pixels->lines.reset();
  m_pixels->texts = {};
  m_pixels->pending_colour.reset();
  m_pixels->stamps.clear();
}

QImage Picture::image() const {
  m_pixels->flush();
  return m_pixels->image;
}

QSize Picture::device_size() const {
  return m_pixels->image.size();
}

double Picture::twips_per_device_pixel() const {
  return m_pixels->resolution.twips_per_pixel;
}

Double Picture::ScaleWidth() const {
  return m_pixels->resolution.scale_width();
}

Double Picture::ScaleHeight() const {
  return m_pixels->resolution.scale_height();
}

void Picture::Cls() {
  m_pixels->mask.clear();
  m_pixels->middles.clear();
  m_pixels->pending_colour.reset();
  m_pixels->stamps.clear();
  m_pixels->fill(kWhite);
}

void Picture::Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) {
  if (has_nan(from) || has_nan(to)) return;
  const bool level_or_upright = from.x == to.x || from.y == to.y;
  if (kind == LineKind::kSegment || (kind == LineKind::kRule && !level_or_upright)) {
    raster::Coverage& mask = m_pixels->strokes(colour);
    raster::add_segment(mask, m_pixels->middles, m_pixels->pen(), to_point(from), to_point(to));
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
  if (!m_pixels->columns.add(m_pixels->pen(), {points.x, points.y, points.drawn})) {
    return PlotSurface::Polyline(points, colour);
  }
  m_pixels->flush();
  m_pixels->columns.flush(m_pixels->canvas(), pixel_of(colour));
}

// Many noisy lines hide most of each other: from the front to the back, what is hidden is not
// drawn.
void Picture::Polylines(std::span<const Single> x, int count,
                        const std::function<PolylineOver(int)>& line) {
  constexpr int kMany = 8;
  raster::Columns& columns = m_pixels->columns;
  const raster::Pen pen = m_pixels->pen();
  if (count < kMany || !columns.takes(pen, x) || !raster::Columns::is_noisy(line(count - 1).y)) {
    return PlotSurface::Polylines(x, count, line);
  }
  m_pixels->flush();
  raster::Layer& layer = m_pixels->layer();
  for (int i = count - 1; i >= 0; --i) {
    const PolylineOver over = line(i);
    columns.add_taken(pen, {x, over.y, over.drawn}, &layer);
    columns.flush(layer, pixel_of(over.colour));
  }
  layer.flush(m_pixels->canvas());
}

void Picture::Circle(SurfacePoint centre, Single radius, int colour) {
  raster::add_circle(m_pixels->strokes(colour), m_pixels->pen(), to_point(centre), radius);
}

void Picture::Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) {
  raster::add_arc(m_pixels->strokes(colour), m_pixels->pen(), to_point(centre), radius, start, end);
}

namespace {

// Fewer are drawn as they are, and so are figures of more pixels.
constexpr std::size_t kFewFigures =
    std::size_t{4} * raster::Stamps::kPhases * raster::Stamps::kPhases;
constexpr double kLargestStamp = 64;

bool are_few(const FigureCentres& centres) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < centres.x.size() && count < kFewFigures; ++i) {
    count += centres.has(i) ? 1 : 0;
  }
  return count < kFewFigures;
}

}  // namespace

// What the figure looks like with its centre there in a small picture: drawn on two grounds, it
// shows where it hides what lies below.
raster::Stamp Picture::stamp_of(const Figure& figure, FigureCentre centre, Picture& white,
                                Picture& black) const {
  const auto drawn_on = [&](int ground, Picture& picture) {
    picture.m_pixels->fill(ground);
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
  if (!(wanted <= kLargestStamp) || are_few(centres)) {
    return PlotSurface::Repeat(centres, reach, figure);
  }
  if (m_pixels->pending_colour || m_pixels->stamps.is_full()) m_pixels->flush();
  const int side = static_cast<int>(wanted);
  const Resolution& own = m_pixels->resolution;
  const Resolution small{side, side, own.device_pixel_ratio, own.twips_per_pixel};
  Picture white(std::make_unique<Pixels>(small)), black(std::make_unique<Pixels>(small));
  const auto place = [side, unit = own.twips_per_pixel](int phase) {
    return (side / 2 + static_cast<double>(phase) / raster::Stamps::kPhases) * unit;
  };
  m_pixels->stamps.add(centres.x, centres.y, own.twips_per_pixel, [&](int phase_x, int phase_y) {
    return stamp_of(figure, {place(phase_x), place(phase_y)}, white, black);
  });
}

void Picture::PSet(SurfacePoint at, int colour) {
  raster::add_segment(m_pixels->strokes(colour), m_pixels->pen(), to_point(at), to_point(at));
}

void Picture::DrawWidth(Integer pixels) {
  if (pixels == m_pixels->draw_width) return;
  m_pixels->flush();
  m_pixels->draw_width = pixels;
}

void Picture::Print(Single CurrentX, Single CurrentY, std::string_view text) {
  if (std::isnan(CurrentX) || std::isnan(CurrentY)) return;
  m_pixels->flush();
  const raster::Canvas canvas = m_pixels->canvas();
  // A plain view of the pixels: of the image itself the painter would take the device pixel ratio
  // as one more scale.
  QImage view(reinterpret_cast<uchar*>(canvas.pixels), canvas.width, canvas.height,
              canvas.stride * 4, QImage::Format_RGB32);
  const TextLayout& layout = m_pixels->text_layout();
  const double twips = twips_per_device_pixel();
  const QSizeF page(canvas.width * twips, canvas.height * twips);
  const double scale = m_pixels->pixels(layout.twips_per_font_pixel());
  const QRgb colour = pixel_of(m_pixels->fore_color);
  const auto box = [&] {
    // Letters may lean out of their line by no more than another one.
    const double overhang = m_pixels->pixels(layout.line_height()) + 1;
    QRectF room;
    layout.place({CurrentX, CurrentY}, text, page, [&](const PlacedPiece& piece) {
      const double left = m_pixels->pixels(piece.left), width = m_pixels->pixels(piece.width);
      const double baseline = m_pixels->pixels(piece.baseline);
      room |= QRectF(left - overhang, baseline - 2 * overhang, width + 2 * overhang, 4 * overhang);
    });
    return (room & QRectF(view.rect())).toAlignedRect();
  };
  m_pixels->texts.put(
      view, {m_pixels->font, colour, {CurrentX, CurrentY}, text}, box, [&](QPainter& painter) {
        painter.setFont(layout.font());
        painter.setPen(QColor::fromRgb(colour));
        const QTransform before = painter.transform();
        layout.place({CurrentX, CurrentY}, text, page, [&](const PlacedPiece& piece) {
          // A whole baseline keeps the feet of the letters crisp.
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

String Picture::bitmap() const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image().save(&buffer, "BMP")) throw std::bad_alloc();
  return bytes.toStdString();
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
