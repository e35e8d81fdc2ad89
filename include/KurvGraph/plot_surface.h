// What the painting needs of a drawing surface; the only thing of the platform that it touches.
//
// Coordinates are in twips (1/1440 inch) from the top-left corner, x to the right, y downwards.
// How many twips a device pixel has is the surface's own business. Colours are indices 0..15 of the
// classic console palette (see palette_rgb()). A coordinate may be NaN, infinite or absurdly far
// away: a surface draws what is visible of it, in bounded time, and never fails.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// A point of the surface, in twips.
struct SurfacePoint {
  Single x = 0;
  Single y = 0;
};

struct Font {
  String FontName = "Liberation Sans";
  Single FontSize = 8;  // points
  bool FontBold = false;
  bool FontItalic = false;

  friend bool operator==(const Font&, const Font&) = default;
};

enum class LineKind {
  kSegment,    // a straight segment, antialiased where it stands
  kRule,       // an axis-parallel segment of ticks and grids, put on whole device pixels
  kBox,        // the outline of the rectangle with these corners, put on whole device pixels
  kFilledBox,  // that rectangle filled with the colour, put on whole device pixels
};

// A polyline by the coordinates of its points. Its segment i goes from point i - 1 to point i and
// is drawn where drawn[i] is not zero; drawn[0] counts for nothing. All three have the same length.
struct PolylinePoints {
  std::span<const Single> x;
  std::span<const Single> y;
  std::span<const std::uint8_t> drawn;
};

// One of several polylines over the same x: the rest of its points, and its colour.
struct PolylineOver {
  std::span<const Single> y;
  std::span<const std::uint8_t> drawn;
  int colour = 0;
};

// Where a figure is drawn, in twips; finer than a SurfacePoint, because its parts are placed from
// here.
struct FigureCentre {
  Double x = 0;
  Double y = 0;
};

// The same for many, which have the same length. A figure is missing where one of its coordinates
// is NaN.
struct FigureCentres {
  std::span<const Double> x;
  std::span<const Double> y;

  bool has(std::size_t i) const { return x[i] == x[i] && y[i] == y[i]; }
};

class PlotSurface {
 public:
  // Draws one figure round the centre, nowhere further from it than a reach that goes with it.
  using Figure = std::function<void(PlotSurface&, FigureCentre)>;

  virtual ~PlotSurface() = default;

  // Inner size in twips.
  virtual Double ScaleWidth() const = 0;
  virtual Double ScaleHeight() const = 0;

  // Clears the whole surface to its background, white. Pen width, font and text colour stay.
  virtual void Cls() = 0;

  virtual void Line(SurfacePoint from, SurfacePoint to, int colour, LineKind kind) = 0;
  // The segments of a polyline from the first to the last: the same as a Line() for each, which is
  // what a surface does that knows nothing faster.
  virtual void Polyline(const PolylinePoints& points, int colour) {
    for (std::size_t i = 1; i < points.drawn.size(); ++i) {
      if (points.drawn[i] == 0) continue;
      Line({points.x[i - 1], points.y[i - 1]}, {points.x[i], points.y[i]}, colour,
           LineKind::kSegment);
    }
  }
  // Polylines over the same x, each upon those before it, with the pen as it is, which has `pen`
  // pixels; between them and behind the last it has one. The same as a Polyline() for each, in
  // their order. `line` is asked for each of 0..count-1, in any order, and what it says need last
  // until it is asked again.
  virtual void Polylines(std::span<const Single> x, int count, Integer pen,
                         const std::function<PolylineOver(int)>& line) {
    for (int i = 0; i < count; ++i) {
      if (i > 0) DrawWidth(pen);
      const PolylineOver over = line(i);
      Polyline({x, over.y, over.drawn}, over.colour);
      DrawWidth(1);
    }
  }
  // A circle outline of the given radius in twips.
  virtual void Circle(SurfacePoint centre, Single radius, int colour) = 0;
  // The part of it from angle `start` to `end`, radians, anticlockwise from the positive x axis.
  virtual void Arc(SurfacePoint centre, Single radius, int colour, Single start, Single end) = 0;
  // The same figure at each of the centres in turn, which is what a surface draws that knows
  // nothing faster. `reach` in twips.
  virtual void Repeat(const FigureCentres& centres, Double reach, const Figure& figure) {
    static_cast<void>(reach);
    for (std::size_t i = 0; i < centres.x.size(); ++i) {
      if (centres.has(i)) figure(*this, {centres.x[i], centres.y[i]});
    }
  }
  // One point as large as the pen.
  virtual void PSet(SurfacePoint at, int colour) = 0;

  // Pen width of later Line, Circle, Arc and PSet calls, in logical pixels; at least one device
  // pixel is drawn whatever is asked for.
  virtual void DrawWidth(Integer pixels) = 0;

  // Draws text with its top-left corner at (CurrentX, CurrentY) in the current font and text
  // colour. CR LF, LF or CR begins a new line below the first.
  virtual void Print(Single CurrentX, Single CurrentY, std::string_view text) = 0;
  // Size of the text in twips in the current font: the widest line, and the height of all lines.
  // Every line end begins a new line, also one at the very end; an empty text has no size.
  virtual Double TextWidth(std::string_view text) const = 0;
  virtual Double TextHeight(std::string_view text) const = 0;

  // What has been drawn, as the bytes of a Windows bitmap file at device resolution; nothing where
  // the surface has no pixels.
  virtual String bitmap() const = 0;

  virtual const Font& font() const = 0;
  virtual void set_font(const Font& font) = 0;
  virtual int ForeColor() const = 0;
  virtual void set_ForeColor(int colour) = 0;
};

}  // namespace kurv
