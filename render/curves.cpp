#include "render/curves.h"

#include <span>
#include <vector>

#include "render/mapping.h"
#include "render/markers.h"
#include "render/pen.h"

namespace kurv {

namespace {

std::span<const Double> values_of(const GraphDocument& document, int column) {
  const auto values = document.xyArr.column(column);
  const int count = document.NumData;
  // Both ends are accessed through the array, so that they are checked against its bounds.
  return {&values(1), &values(count) + 1};
}

// The polylines of the curves. They share their x positions, which are mapped once.
class CurveLines {
 public:
  CurveLines(const GraphDocument& document, const Mapping& mapping)
      : m_document(document), m_mapping(mapping) {
    const std::span<const Double> values = values_of(m_document, 1);
    m_x.resize(values.size());
    m_y.resize(values.size());
    m_x_inside.resize(values.size());
    m_drawn.resize(values.size());
    m_mapping.map_x(values, m_x, m_x_inside);
  }

  std::span<const Single> x() const { return m_x; }

  // Only the end point of a segment is tested: a segment that enters the plot is drawn in full,
  // from its start outside, and one that leaves the plot is not drawn. Clipping both at the border
  // would change the pictures of every graph that is zoomed in.
  PolylineOver line(int curve) {
    m_mapping.map_y(values_of(m_document, curve + 1), m_y, m_drawn);
    // Plain pointers and a count, so that the compiler vectorises the loop.
    const std::size_t count = m_drawn.size();
    std::uint8_t* const drawn = m_drawn.data();
    const std::uint8_t* const x_inside = m_x_inside.data();
    for (std::size_t i = 0; i < count; ++i) drawn[i] &= x_inside[i];
    return {m_y, m_drawn, curve_colour(curve)};
  }

 private:
  const GraphDocument& m_document;
  const Mapping& m_mapping;
  std::vector<Single> m_x;
  std::vector<Single> m_y;
  std::vector<std::uint8_t> m_x_inside;
  std::vector<std::uint8_t> m_drawn;
};

std::vector<int> visible_curves(const GraphDocument& document) {
  std::vector<int> curves;
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) curves.push_back(k);
  }
  return curves;
}

void draw_lines(const GraphDocument& document, const Mapping& mapping,
                const std::vector<int>& curves, Layout& layout, PlotSurface& surface) {
  // Where the range of an axis cannot be mapped, the pen keeps this width.
  set_pen_width(layout, surface, document.CurvesWidth);
  CurveLines lines(document, mapping);
  surface.Polylines(lines.x(), static_cast<int>(curves.size()), document.CurvesWidth,
                    [&](int i) { return lines.line(curves[static_cast<std::size_t>(i)]); });
  layout.pen_width = 1;  // Polylines() leaves a pen of one pixel
}

// The markers of the curves. They share their x positions as well.
class Markers {
 public:
  Markers(const GraphDocument& document, const Mapping& mapping)
      : m_document(document), m_mapping(mapping) {}

  void draw(int curve, PlotSurface& surface) {
    if (m_document.NumData <= 0) return;
    if (!m_document.DrawMarkers.is_exactly_true()) return check_ranges(curve);
    if (m_x.empty()) map_x();
    m_mapping.map_y_inside(values_of(m_document, curve + 1), m_y);
    surface.Repeat({m_x, m_y}, marker_reach(m_document),
                   [this, curve](PlotSurface& target, FigureCentre at) {
                     DrawMarker(m_document, target, curve, at.x, at.y, false);
                   });
  }

 private:
  // A range that cannot be mapped is an error whether or not markers are shown.
  void check_ranges(int curve) const {
    const Double x = values_of(m_document, 1).front();
    static_cast<void>(m_mapping.InPlot({x, values_of(m_document, curve + 1).front()}));
  }
  void map_x() {
    const std::span<const Double> values = values_of(m_document, 1);
    m_x.resize(values.size());
    m_y.resize(values.size());
    m_mapping.map_x_inside(values, m_x);
  }

  const GraphDocument& m_document;
  const Mapping& m_mapping;
  std::vector<Double> m_x;
  std::vector<Double> m_y;
};

}  // namespace

int curve_colour(int curve) {
  return curve % 14;
}

void DrawScatterCurves(const GraphDocument& document, Layout& layout, PlotSurface& surface) {
  const Mapping mapping(document, layout.plot);
  const std::vector<int> curves = visible_curves(document);
  if (document.Connected) {
    if (!curves.empty()) draw_lines(document, mapping, curves, layout, surface);
  } else {
    // Draws nothing, but the widths are among the calls that a host can record.
    for (std::size_t i = 0; i < curves.size(); ++i) {
      set_pen_width(layout, surface, document.CurvesWidth);
      set_pen_width(layout, surface, 1);
    }
  }
  Markers markers(document, mapping);
  for (const int k : curves) markers.draw(k, surface);
}

}  // namespace kurv
