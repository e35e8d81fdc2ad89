#include "render/curves.h"

#include <span>
#include <vector>

#include "render/mapping.h"
#include "render/markers.h"

namespace kurv {

namespace {

std::span<const Double> values_of(const GraphDocument& document, int column) {
  const auto values = document.xyArr.column(column);
  const int count = document.NumData;
  // Both ends are asked for, because an array knows its bounds and a pointer does not.
  return {&values(1), &values(count) + 1};
}

// The curves' lines. They share their x, which are mapped once.
class Lines {
 public:
  Lines(const GraphDocument& document, const Mapping& mapping)
      : m_document(document), m_mapping(mapping) {}

  // Only a segment's end point decides: one that comes in from outside is drawn in full, out to its
  // outside start, and one that leaves is not drawn. Deliberate.
  void draw(int curve, PlotSurface& surface) {
    if (m_x.empty()) map_x();
    m_mapping.map_y(values_of(m_document, curve + 1), m_y, m_drawn);
    for (std::size_t i = 0; i < m_drawn.size(); ++i) m_drawn[i] &= m_x_inside[i];
    surface.Polyline({m_x, m_y, m_drawn}, curve_colour(curve));
  }

 private:
  void map_x() {
    const std::span<const Double> values = values_of(m_document, 1);
    m_x.resize(values.size());
    m_y.resize(values.size());
    m_x_inside.resize(values.size());
    m_drawn.resize(values.size());
    m_mapping.map_x(values, m_x, m_x_inside);
  }

  const GraphDocument& m_document;
  const Mapping& m_mapping;
  std::vector<Single> m_x;
  std::vector<Single> m_y;
  std::vector<std::uint8_t> m_x_inside;
  std::vector<std::uint8_t> m_drawn;
};

void draw_markers(const GraphDocument& document, const Mapping& mapping, int curve,
                  PlotSurface& surface) {
  const auto x = document.xyArr.column(1);
  const auto y = document.xyArr.column(curve + 1);
  const int count = document.NumData;
  if (!document.DrawMarkers.is_exactly_true()) {
    // A range that cannot be mapped is an error whether or not markers are shown.
    if (count > 0) static_cast<void>(mapping.InPlot({x(1), y(1)}));
    return;
  }
  std::vector<FigureCentre> centres;
  for (int i = 1; i <= count; ++i) {
    const DataPoint point{x(i), y(i)};
    if (mapping.InPlot(point)) centres.push_back({mapping.SurfX(point.x), mapping.SurfY(point.y)});
  }
  surface.Repeat(centres, marker_reach(document), [&](PlotSurface& target, FigureCentre at) {
    DrawMarker(document, target, curve, at.x, at.y, false);
  });
}

}  // namespace

int curve_colour(int curve) {
  return curve % 14;
}

void DrawScatterCurves(const GraphDocument& document, const Layout& layout, PlotSurface& surface) {
  const Mapping mapping(document, layout.plot);
  Lines lines(document, mapping);
  for (int k = 1; k <= document.NumY; ++k) {
    if (!document.y_visible(k)) continue;
    surface.DrawWidth(document.CurvesWidth);
    if (document.Connected) lines.draw(k, surface);
    surface.DrawWidth(1);
  }
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) draw_markers(document, mapping, k, surface);
  }
}

}  // namespace kurv
