// Maps data coordinates to the surface, and tests whether a point is inside the plot.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <cstdint>
#include <span>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// A point of the data, in the units of the axes.
struct DataPoint {
  Double x = 0;
  Double y = 0;
};

// A snapshot of limits and plot rectangle. A range of zero width throws kDivisionByZero when it is
// used, not before: a graph without anything to map is drawn all the same.
class Mapping {
 public:
  Mapping(const GraphDocument& document, const PlotRect& plot)
      : m_xmin(document.xmin),
        m_ymin(document.ymin),
        m_x_range(document.xmax - document.xmin),
        m_y_range(document.ymax - document.ymin),
        m_plot(plot) {}

  Double NormX(Double x) const { return divide(x - m_xmin, m_x_range); }
  Double NormY(Double y) const { return divide(y - m_ymin, m_y_range); }

  Double SurfX(Double x) const { return m_plot.PlotLeft + m_plot.PlotWidth * NormX(x); }
  // Larger data values are higher on the surface.
  Double SurfY(Double y) const {
    return m_plot.PlotTop + m_plot.PlotHeight - m_plot.PlotHeight * NormY(y);
  }

  // Both ends of both ranges are inside; NaN is not. Both coordinates are mapped always, so a range
  // of zero width is found whichever of them is outside.
  bool InPlot(DataPoint point) const {
    const Double x = NormX(point.x);
    const Double y = NormY(point.y);
    return in_unit(x) && in_unit(y);
  }

  // The same for all values of a column: their positions, and whether they are inside the range of
  // their axis. All three spans have the same length.
  void map_x(std::span<const Double> values, std::span<Single> at,
             std::span<std::uint8_t> inside) const;
  void map_y(std::span<const Double> values, std::span<Single> at,
             std::span<std::uint8_t> inside) const;

  // Their positions as precisely as SurfX and SurfY compute them, and NaN where they are outside.
  void map_x_inside(std::span<const Double> values, std::span<Double> at) const;
  void map_y_inside(std::span<const Double> values, std::span<Double> at) const;

  SurfacePoint surface_point(DataPoint point) const {
    return {to_single(SurfX(point.x)), to_single(SurfY(point.y))};
  }

 private:
  static bool in_unit(Double value) { return 0 <= value && value <= 1; }

  Double m_xmin;
  Double m_ymin;
  Double m_x_range;
  Double m_y_range;
  PlotRect m_plot;
};

// Makes `plot` the rectangle that the margins leave on a surface of this size, rounded to whole
// twips, ties to even. No lower bound: margins larger than the surface give a negative width or
// height. Throws kOverflow outside 16 bits; top, left and width, which are computed in this order
// before the height, stay as they were written until then.
void update_plot_rect(PlotRect& plot, const GraphDocument& document, Double scale_width,
                      Double scale_height);

}  // namespace kurv
