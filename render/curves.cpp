#include "render/curves.h"

#include "render/mapping.h"
#include "render/markers.h"

namespace kurv {

namespace {

// Only a segment's end point decides: one that comes in from outside is drawn in full, out to its
// outside start, and one that leaves is not drawn. Deliberate.
void draw_line(const GraphDocument& document, const Mapping& mapping, int curve,
               PlotSurface& surface) {
  const auto x = document.xyArr.column(1);
  const auto y = document.xyArr.column(curve + 1);
  const int colour = curve_colour(curve);
  SurfacePoint previous = mapping.surface_point({x(1), y(1)});
  for (int i = 2; i <= document.NumData; ++i) {
    const DataPoint point{x(i), y(i)};
    const SurfacePoint here = mapping.surface_point(point);
    if (mapping.InPlot(point)) surface.Line(previous, here, colour, LineKind::kSegment);
    previous = here;
  }
}

void draw_markers(const GraphDocument& document, const Mapping& mapping, int curve,
                  PlotSurface& surface) {
  const auto x = document.xyArr.column(1);
  const auto y = document.xyArr.column(curve + 1);
  for (int i = 1; i <= document.NumData; ++i) {
    const DataPoint point{x(i), y(i)};
    // The point is tested before the switch is, so that a range that cannot be mapped is an error
    // whether or not markers are shown.
    if (mapping.InPlot(point) && document.DrawMarkers.is_exactly_true()) {
      DrawMarker(document, surface, curve, mapping.SurfX(point.x), mapping.SurfY(point.y), false);
    }
  }
}

}  // namespace

int curve_colour(int curve) {
  return curve % 14;
}

void DrawScatterCurves(const GraphDocument& document, const Layout& layout, PlotSurface& surface) {
  const Mapping mapping(document, layout.plot);
  for (int k = 1; k <= document.NumY; ++k) {
    if (!document.y_visible(k)) continue;
    surface.DrawWidth(document.CurvesWidth);
    if (document.Connected) draw_line(document, mapping, k, surface);
    surface.DrawWidth(1);
  }
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) draw_markers(document, mapping, k, surface);
  }
}

}  // namespace kurv
