#include <KurvGraph/vector_picture.h>

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "model/palette.h"
#include "pixels/resolution.h"
#include "pixels/text_lines.h"
#include "qt/surface/clipped_paths.h"
#include "qt/surface/text_layout.h"
#include "qt/surface/vector_page.h"

namespace kurv {

namespace {

// Curves with more points are written as several paths, so that neither this program nor a viewer
// has to hold a path of unbounded length. Where two of them meet, the round caps look like a joint.
constexpr int kLongestPath = 10000;

// Boxes up to this size, in twips, are parts of markers. They are not snapped to whole pixels,
// which would make equal markers unequal.
constexpr double kSmallBox = 334;

std::unique_ptr<VectorPage> make_page(VectorFormat format, const PageSetup& setup) {
  return format == VectorFormat::kSvg ? make_svg_page(setup) : make_pdf_page(setup);
}

SurfacePoint surface_point(QPointF point) {
  return {static_cast<Single>(point.x()), static_cast<Single>(point.y())};
}

// The title on one line, without control characters.
QString plain_title(const QString& title) {
  const std::string text = title.toStdString();
  QString result;
  for (const std::string_view line : lines_of(text)) {
    if (!result.isEmpty()) result += u' ';
    for (const QString& piece : pieces_of(line)) result += piece;
  }
  return result;
}

}  // namespace

struct VectorPicture::Sheet {
  Sheet(VectorFormat wanted, const QString& title, QSize logical_size, double ratio)
      : format(wanted),
        resolution(resolution_of(logical_size.width(), logical_size.height(), ratio)),
        setup{plain_title(title), QSizeF(resolution.scale_width(), resolution.scale_height()),
              logical_size.expandedTo(QSize(1, 1))},
        page(make_page(format, setup)) {}

  VectorFormat format;
  Resolution resolution;
  PageSetup setup;
  std::unique_ptr<VectorPage> page;
  // Pending strokes, all of one colour and pen.
  QPainterPath strokes;
  int stroke_colour = kBlack;

  Integer draw_width = 1;
  int fore_color = kBlack;
  Font font;
  std::optional<TextLayout> layout;  // of `font`, made when first needed

  double pen_width() const {
    return std::max(1.0, double(draw_width)) * resolution.twips_per_logical_pixel();
  }

  QRectF paper() const { return QRectF(QPointF(0, 0), setup.twips); }
  // The page with the margin from which the pen reaches in.
  QRectF stroke_area() const {
    const double pen = pen_width();
    return paper().adjusted(-pen, -pen, pen, pen);
  }

  void flush() {
    if (strokes.isEmpty()) return;
    page->stroke(std::exchange(strokes, {}), stroke_colour, pen_width(), Style::kRound);
  }

  void start_again() {
    strokes = {};
    page = make_page(format, setup);
  }

  // The path for the next strokes, which have this colour.
  QPainterPath& strokes_in(int colour) {
    if (colour != stroke_colour || strokes.elementCount() > kLongestPath) flush();
    stroke_colour = colour;
    return strokes;
  }

  static Style style_of(const QRectF& box) {
    return std::max(box.width(), box.height()) <= kSmallBox ? Style::kSquare : Style::kCrisp;
  }

  void fill(SurfacePoint a, SurfacePoint b, int colour) {
    const std::optional<QRectF> box = clipped_box(paper(), a, b);
    if (!box || !(box->width() > 0 && box->height() > 0)) return;
    flush();
    page->fill(*box, colour, style_of(*box));
  }

  void frame(SurfacePoint a, SurfacePoint b, int colour) {
    if (a.x == b.x || a.y == b.y) return rule(a, b, colour);
    const std::optional<QRectF> box = clipped_box(stroke_area(), a, b);
    if (!box) return;
    QPainterPath path;
    path.addRect(*box);
    flush();
    page->stroke(path, colour, pen_width(), style_of(*box));
  }

  // A frame of width or height zero.
  void rule(SurfacePoint a, SurfacePoint b, int colour) {
    const std::optional<QRectF> box = clipped_box(stroke_area(), a, b);
    if (!box) return;
    QPainterPath path;
    add_clipped_segment(path, stroke_area(), surface_point(box->topLeft()),
                        surface_point(box->bottomRight()));
    flush();
    page->stroke(path, colour, pen_width(), Style::kCrisp);
  }

  const TextLayout& text_layout() {
    if (!layout) layout.emplace(font);
    return *layout;
  }
};

VectorPicture::VectorPicture(VectorFormat format, const QString& title, QSize logical_size,
                             double device_pixel_ratio)
    : m_sheet(std::make_unique<Sheet>(format, title, logical_size, device_pixel_ratio)) {}

VectorPicture::~VectorPicture() = default;

QByteArray VectorPicture::take_document() {
  m_sheet->flush();
  const QByteArray document = m_sheet->page->finish();
  m_sheet->start_again();
  return document;
}

Double VectorPicture::ScaleWidth() const {
  return m_sheet->resolution.scale_width();
}

Double VectorPicture::ScaleHeight() const {
  return m_sheet->resolution.scale_height();
}

void VectorPicture::Cls() {
  m_sheet->start_again();
}

void VectorPicture::Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) {
  const bool level_or_upright = from.x == to.x || from.y == to.y;
  if (kind == LineKind::kBox) {
    m_sheet->frame(from, to, colour);
  } else if (kind == LineKind::kFilledBox) {
    m_sheet->fill(from, to, colour);
  } else if (kind == LineKind::kRule && level_or_upright) {
    m_sheet->rule(from, to, colour);
  } else {
    QPainterPath& strokes = m_sheet->strokes_in(colour);
    add_clipped_segment(strokes, m_sheet->stroke_area(), from, to);
  }
}

void VectorPicture::Circle(SurfacePoint centre, Single radius, int colour) {
  QPainterPath& strokes = m_sheet->strokes_in(colour);
  add_clipped_circle(strokes, m_sheet->stroke_area(), centre, radius);
}

void VectorPicture::Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) {
  QPainterPath& strokes = m_sheet->strokes_in(colour);
  add_clipped_arc(strokes, m_sheet->stroke_area(), centre, radius, start, end);
}

void VectorPicture::PSet(SurfacePoint at, int colour) {
  Line(at, at, colour, LineKind::kSegment);
}

void VectorPicture::DrawWidth(Integer pixels) {
  if (pixels == m_sheet->draw_width) return;
  m_sheet->flush();
  m_sheet->draw_width = pixels;
}

void VectorPicture::Print(Single CurrentX, Single CurrentY, std::string_view text) {
  m_sheet->flush();
  const TextLayout& layout = m_sheet->text_layout();
  layout.place({CurrentX, CurrentY}, text, m_sheet->setup.twips, [&](const PlacedPiece& piece) {
    m_sheet->page->print(piece, layout, m_sheet->fore_color);
  });
}

Double VectorPicture::TextWidth(std::string_view text) const {
  return m_sheet->text_layout().text_width(text);
}

Double VectorPicture::TextHeight(std::string_view text) const {
  return m_sheet->text_layout().text_height(text);
}

String VectorPicture::bitmap() const {
  return {};
}

const Font& VectorPicture::font() const {
  return m_sheet->font;
}

void VectorPicture::set_font(const Font& font) {
  if (font == m_sheet->font) return;
  m_sheet->font = font;
  m_sheet->layout.reset();
}

int VectorPicture::ForeColor() const {
  return m_sheet->fore_color;
}

void VectorPicture::set_ForeColor(int colour) {
  m_sheet->fore_color = colour;
}

}  // namespace kurv
