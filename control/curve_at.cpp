#include "control/curve_at.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "control/control_state.h"
#include "control/hit_test.h"
#include "model/data_set.h"
#include "render/legend_titles.h"
#include "render/mapping.h"

namespace kurv {

namespace {

struct Offset {
  Double x;
  Double y;
};

// The square of the distance between the origin and a segment.
Double squared_distance(Offset from, Offset to) {
  const Double dx = to.x - from.x;
  const Double dy = to.y - from.y;
  const Double length = dx * dx + dy * dy;
  const Double along = length > 0 ? -(from.x * dx + from.y * dy) / length : 0;
  const Double part = std::clamp(along, 0.0, 1.0);
  const Double x = from.x + part * dx;
  const Double y = from.y + part * dy;
  return x * x + y * y;
}

// Measures from one point of the surface to what DrawScatterCurves() draws there.
class DistanceToCurves {
 public:
  DistanceToCurves(const ControlState& state, SurfacePoint at)
      : m_document(state.document), m_mapping(m_document, state.layout.plot), m_at(at) {
    const std::span<const Double> values = column(1);
    m_x.resize(values.size());
    m_y.resize(values.size());
    m_x_inside.resize(values.size());
    m_y_inside.resize(values.size());
    m_mapping.map_x(values, m_x, m_x_inside);
  }

  // The square of the distance, where that is no more than `least`; otherwise anything above it.
  Double squared(int curve, Double least) {
    m_mapping.map_y(column(curve + 1), m_y, m_y_inside);
    const bool has_lines = static_cast<bool>(m_document.Connected);
    const bool has_markers = m_document.DrawMarkers.is_exactly_true();
    Double nearest = std::numeric_limits<Double>::infinity();
    // A segment is drawn where its end is in the plot; one at a missing value has no distance.
    for (std::size_t i = 0; i < m_x.size(); ++i) {
      if (m_x_inside[i] == 0 || m_y_inside[i] == 0) continue;
      if (has_markers) nearest = std::min(nearest, squared_distance(offset(i), offset(i)));
      if (has_lines && i > 0 && may_be_within(least, i)) {
        nearest = std::min(nearest, squared_distance(offset(i - 1), offset(i)));
      }
    }
    return nearest;
  }

 private:
  std::span<const Double> column(int number) const {
    const auto values = m_document.xyArr.column(number);
    return {&values(1), &values(points_in(m_document, m_document.xyArr)) + 1};
  }
  Offset offset(std::size_t i) const { return {Double(m_x[i]) - m_at.x, Double(m_y[i]) - m_at.y}; }
  // False where the segment to this point is too far left or right, which most of them are.
  bool may_be_within(Double least, std::size_t i) const {
    const Double from = Double(m_x[i - 1]) - m_at.x;
    const Double to = Double(m_x[i]) - m_at.x;
    return (from > 0) != (to > 0) || std::min(from * from, to * to) <= least;
  }

  const GraphDocument& m_document;
  Mapping m_mapping;
  SurfacePoint m_at;
  std::vector<Single> m_x;
  std::vector<Single> m_y;
  std::vector<std::uint8_t> m_x_inside;
  std::vector<std::uint8_t> m_y_inside;
};

bool can_be_measured(const ControlState& state) {
  const GraphDocument& document = state.document;
  const PlotRect& plot = state.layout.plot;
  return document.GraphValid && points_in(document, document.xyArr) > 0 &&
         document.xmin != document.xmax && document.ymin != document.ymax && plot.PlotWidth > 0 &&
         plot.PlotHeight > 0;
}

std::optional<int> nearest_curve(const ControlState& state, SurfacePoint at, Double reach) {
  if (!can_be_measured(state)) return std::nullopt;
  DistanceToCurves distance(state, at);
  Double least = reach * reach;
  std::optional<int> nearest;
  const int curves = curves_in(state.document, state.document.xyArr);
  for (int curve = 1; curve <= curves; ++curve) {
    if (!state.document.y_visible(curve)) continue;
    const Double squared = distance.squared(curve, least);
    if (squared > least) continue;
    least = squared;
    nearest = curve;
  }
  return nearest;
}

// An intake that has failed midway may leave curves without a flag or a name.
bool has_complete_legend(const GraphDocument& document) {
  return document.y_visible.upper() >= document.NumY && document.yVarName.upper() > document.NumY;
}

}  // namespace

std::optional<int> curve_at(const ControlState& state, SurfacePoint at, Double reach) {
  if (!state.document.GraphValid) return std::nullopt;
  const std::optional<Item> item = item_at(state, at);
  if (!item) return nearest_curve(state, at, reach);
  if (item != Item::kLegend || !has_complete_legend(state.document)) return std::nullopt;
  return legend_curve_at(state.document, rect_of(state, *item), at.y);
}

}  // namespace kurv
