/// @file
/// The drawing interface; the renderer uses nothing else of the platform.
///
/// Coordinates are in twips (1/1440 inch) from the top-left corner, x to the right, y downwards.
/// The number of twips per device pixel is up to the surface. Colours are indices 0..15 of the
/// 16-colour VGA palette. A coordinate may be NaN, infinite or very far away: a surface draws the
/// visible part, in bounded time, and never fails.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

/// A point of the surface, in twips.
struct SurfacePoint {
  Single x = 0;  ///< from the left edge
  Single y = 0;  ///< from the top edge
};

/// A font by its family, size and style.
struct Font {
  String FontName = "Liberation Sans";  ///< the family
  Single FontSize = 8;                  ///< points
  bool FontBold = false;                ///< bold letters
  bool FontItalic = false;              ///< italic letters

  /// Whether family, size and style are equal.
  friend bool operator==(const Font&, const Font&) = default;
};

/// What PlotSurface::Line() draws.
enum class LineKind {
  kSegment,    ///< a straight segment, antialiased, not snapped to pixels
  kRule,       ///< an axis-parallel segment of ticks and grids, snapped to whole device pixels
  kBox,        ///< the outline of the rectangle with these corners, snapped to whole device pixels
  kFilledBox,  ///< that rectangle filled with the colour, snapped to whole device pixels
};

/// A polyline by the coordinates of its points. Its segment i goes from point i - 1 to point i and
/// is drawn where drawn[i] is not zero; drawn[0] is ignored. All three have the same length.
struct PolylinePoints {
  std::span<const Single> x;            ///< of each point, twips
  std::span<const Single> y;            ///< of each point, twips
  std::span<const std::uint8_t> drawn;  ///< not zero where the segment to the point is drawn
};

/// One of several polylines that share their x: its other coordinates, and its colour.
struct PolylineOver {
  std::span<const Single> y;            ///< of each point, twips
  std::span<const std::uint8_t> drawn;  ///< as in PolylinePoints
  int colour = 0;                       ///< 0..15
};

/// The position of a figure, in twips. In double precision, because the coordinates of its parts
/// are computed from it.
struct FigureCentre {
  Double x = 0;  ///< from the left edge
  Double y = 0;  ///< from the top edge
};

/// The positions of many figures; both spans have the same length. A figure with a NaN coordinate
/// is left out.
struct FigureCentres {
  std::span<const Double> x;  ///< twips
  std::span<const Double> y;  ///< twips

  /// Whether neither coordinate of this figure is NaN.
  bool has(std::size_t i) const { return x[i] == x[i] && y[i] == y[i]; }
};

/// What a graph is drawn on.
///
/// @copydetails plot_surface.h
class KURV_EXPORT PlotSurface {
 public:
  /// Draws one figure around the centre, no further from it than the `reach` of the call.
  using Figure = std::function<void(PlotSurface&, FigureCentre)>;

  virtual ~PlotSurface() = default;

  /// The inner width in twips.
  virtual Double ScaleWidth() const = 0;
  /// The inner height in twips.
  virtual Double ScaleHeight() const = 0;

  /// Clears the whole surface to its background, white. Pen width, font and text colour stay.
  virtual void Cls() = 0;

  /// Draws a line, a box or a filled box from one corner to the other.
  virtual void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) = 0;
  /// Draws the segments of a polyline, in order. The result is that of a Line() for each, which is
  /// the default implementation.
  virtual void Polyline(const PolylinePoints& points, int colour) {
    for (std::size_t i = 1; i < points.drawn.size(); ++i) {
      if (points.drawn[i] == 0) continue;
      Line({points.x[i - 1], points.y[i - 1]}, {points.x[i], points.y[i]}, colour,
           LineKind::kSegment);
    }
  }
  /// Draws polylines that share their x, each over those before it, with the current pen, which has
  /// `pen` pixels. Between them and after the last one it is set to one pixel. The result is that
  /// of a Polyline() for each, in order. `line` is called for each of 0..count-1, in any order; its
  /// result has to stay valid until the next call.
  virtual void Polylines(std::span<const Single> x, int count, Integer pen,
                         const std::function<PolylineOver(int)>& line) {
    for (int i = 0; i < count; ++i) {
      if (i > 0) DrawWidth(pen);
      const PolylineOver over = line(i);
      Polyline({x, over.y, over.drawn}, over.colour);
      DrawWidth(1);
    }
  }
  /// Draws the outline of a circle with that radius in twips.
  virtual void Circle(SurfacePoint centre, Single radius, int colour) = 0;
  /// Draws the part of a circle from angle `start` to `end`, radians, anticlockwise from the
  /// positive x axis.
  virtual void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) = 0;
  /// Draws the same figure at each of the centres, in order, no further from each than `reach`
  /// twips. The default implementation calls `figure` for each.
  virtual void Repeat(const FigureCentres& centres, Double reach, const Figure& figure) {
    static_cast<void>(reach);
    for (std::size_t i = 0; i < centres.x.size(); ++i) {
      if (centres.has(i)) figure(*this, {centres.x[i], centres.y[i]});
    }
  }
  /// Draws one point as large as the pen.
  virtual void PSet(SurfacePoint at, int colour) = 0;

  /// Sets the pen width of later Line, Circle, Arc and PSet calls, in logical pixels. A pen is
  /// never narrower than one device pixel.
  virtual void DrawWidth(Integer pixels) = 0;

  /// Draws text with its top-left corner at (CurrentX, CurrentY) in the current font and text
  /// colour. CR LF, LF or CR begins a new line below the first.
  virtual void Print(Single CurrentX, Single CurrentY, std::string_view text) = 0;
  /// The width of the widest line of the text in the current font, twips.
  virtual Double TextWidth(std::string_view text) const = 0;
  /// The height of all lines of the text in the current font, twips. A line end at the very end
  /// begins an empty line. An empty text is as high as one line of its font, so that what is placed
  /// above or below it has its place before it is typed.
  virtual Double TextHeight(std::string_view text) const = 0;

  /// What has been drawn, as the bytes of a Windows bitmap file at device resolution; empty where
  /// the surface has no pixels.
  virtual String bitmap() const = 0;

  /// The current font, in which texts are measured and drawn.
  virtual const Font& font() const = 0;
  /// Makes this the current font.
  virtual void set_font(const Font& font) = 0;
  /// The colour of texts, 0..15.
  virtual int ForeColor() const = 0;
  /// Sets the colour of later texts.
  virtual void set_ForeColor(int colour) = 0;
};

}  // namespace kurv
