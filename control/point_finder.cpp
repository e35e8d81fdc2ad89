#include "control/point_finder.h"

#include <algorithm>
#include <cmath>

#include "control/control_state.h"
#include "render/function_curves.h"

namespace kurv {

namespace {

bool can_be_mapped(const ControlState& state) {
  const GraphDocument& document = state.document;
  const PlotRect& plot = state.layout.plot;
  const Double x_range = document.xmax - document.xmin, y_range = document.ymax - document.ymin;
  return document.GraphValid && x_range != 0 && y_range != 0 && std::isfinite(x_range) &&
         std::isfinite(y_range) && plot.PlotWidth != 0 && plot.PlotHeight != 0;
}

Mapping mapping_of(const ControlState& state) {
  return {state.document, state.layout.plot};
}

int functions_of(const GraphDocument& document) {
  return std::min<int>(document.NumYFunc, kMaxFunctions);
}

bool is_drawn(const FunctionCurve& curve) {
  return curve.visible && !curve.expression.empty();
}

struct LinePlace {
  Double distance;
  Double along;  // 0 at its beginning, 1 at its end
};

// The place of a line that is nearest to a point.
LinePlace nearest_on_line(SurfacePlace from, SurfacePlace to, SurfacePlace at) {
  const Double x = to.x - from.x, y = to.y - from.y;
  const Double length = x * x + y * y;
  const Double along = length > 0 ? ((at.x - from.x) * x + (at.y - from.y) * y) / length : 0;
  const Double inside = std::clamp(along, 0.0, 1.0);
  return {std::hypot(from.x + inside * x - at.x, from.y + inside * y - at.y), inside};
}

Double value_at(ExprEvaluator& evaluator, Double x) {
  // The user may write the variable in either letter case.
  evaluator.SetVariable("x", x);
  evaluator.SetVariable("X", x);
  return evaluator.Evaluate();
}

// The step of a page; at least one.
std::ptrdiff_t page_step(const std::vector<FoundPoint>& points) {
  return std::max<std::ptrdiff_t>(1, std::ssize(points) / 10);
}

std::ptrdiff_t moved_place(const std::vector<FoundPoint>& points, std::ptrdiff_t place,
                           PointMove move) {
  switch (move) {
    case PointMove::kPrevious:
      return place - 1;
    case PointMove::kNext:
      return place + 1;
    case PointMove::kPageBack:
      return place - page_step(points);
    case PointMove::kPageOn:
      return place + page_step(points);
    case PointMove::kFirst:
      return 0;
    default:
      return std::ssize(points) - 1;
  }
}

}  // namespace

std::optional<DataPoint> data_at(const ControlState& state, SurfacePlace at) {
  if (!can_be_mapped(state)) return std::nullopt;
  const GraphDocument& document = state.document;
  const PlotRect& plot = state.layout.plot;
  const Double across = (at.x - plot.PlotLeft) / plot.PlotWidth;
  const Double upwards = (plot.PlotTop + plot.PlotHeight - at.y) / plot.PlotHeight;
  if (!(0 <= across && across <= 1 && 0 <= upwards && upwards <= 1)) return std::nullopt;
  return DataPoint{document.xmin + across * (document.xmax - document.xmin),
                   document.ymin + upwards * (document.ymax - document.ymin)};
}

std::optional<SurfacePlace> place_of(const ControlState& state, DataPoint point) {
  if (!can_be_mapped(state)) return std::nullopt;
  const Mapping mapping = mapping_of(state);
  return SurfacePlace{mapping.SurfX(point.x), mapping.SurfY(point.y)};
}

DataPoint data_per_twip(const ControlState& state) {
  if (!can_be_mapped(state)) return {};
  const GraphDocument& document = state.document;
  const PlotRect& plot = state.layout.plot;
  return {std::abs((document.xmax - document.xmin) / plot.PlotWidth),
          std::abs((document.ymax - document.ymin) / plot.PlotHeight)};
}

std::optional<FoundPoint> PointFinder::nearest(const ControlState& state, SurfacePlace at,
                                               Double reach) {
  if (!can_be_mapped(state)) return std::nullopt;
  const GraphDocument& document = state.document;
  const PlotRect& plot = state.layout.plot;
  m_index.follow(document);
  const DataPoint unit = data_per_twip(state);
  // Also from beside the plot, for the points at its border.
  const Double across = (at.x - plot.PlotLeft) / plot.PlotWidth;
  const Double upwards = (plot.PlotTop + plot.PlotHeight - at.y) / plot.PlotHeight;
  const NearestQuery query{{document.xmin + across * (document.xmax - document.xmin),
                            document.ymin + upwards * (document.ymax - document.ymin)},
                           1 / unit.x,
                           1 / unit.y,
                           reach};
  if (!std::isfinite(query.x_scale) || !std::isfinite(query.y_scale)) return std::nullopt;
  const std::optional<NearestPlace> place = m_index.nearest(document, mapping_of(state), query);
  if (!place) return nearest_function(state, at, reach);
  return FoundPoint{false, place->curve, m_index.point(document, place->rank),
                    m_index.value(document, place->curve, place->rank)};
}

std::vector<DataPoint> PointFinder::samples(const GraphDocument& document, int slot) {
  ExprEvaluator& evaluator = m_evaluator.get();
  evaluator.SetExpression(document.y_func(slot).expression);
  std::vector<DataPoint> samples;
  for (int k = 0; k <= kFunctionIntervals; ++k) {
    const Double x = function_sample_x(document, k);
    const DataPoint sample{x, value_at(evaluator, x)};
    if (evaluator.GetEvalError()) break;
    samples.push_back(sample);
  }
  return samples;
}

std::optional<FoundPoint> PointFinder::nearest_function(const ControlState& state, SurfacePlace at,
                                                        Double reach) {
  const GraphDocument& document = state.document;
  const Mapping mapping = mapping_of(state);
  std::optional<FoundPoint> found;
  Double least = reach;
  for (int slot = 1; slot <= functions_of(document); ++slot) {
    if (!is_drawn(document.y_func(slot))) continue;
    const std::vector<DataPoint> line = samples(document, slot);
    for (std::size_t i = 1; i < line.size(); ++i) {
      const DataPoint from = line[i - 1], to = line[i];
      if (!mapping.InPlot(from) || !mapping.InPlot(to)) continue;
      const LinePlace place = nearest_on_line({mapping.SurfX(from.x), mapping.SurfY(from.y)},
                                              {mapping.SurfX(to.x), mapping.SurfY(to.y)}, at);
      if (place.distance > least) continue;
      ExprEvaluator& evaluator = m_evaluator.get();
      const Double x = from.x + place.along * (to.x - from.x);
      const DataPoint value{x, value_at(evaluator, x)};
      if (evaluator.GetEvalError() || !mapping.InPlot(value)) continue;
      least = place.distance;
      found = FoundPoint{true, slot, 0, value};
    }
  }
  return found;
}

std::vector<PointFinder::Curve> PointFinder::curves(const ControlState& state) {
  const GraphDocument& document = state.document;
  m_index.follow(document);
  std::vector<Curve> shown;
  if (!can_be_mapped(state)) return shown;
  for (int k = 1; k <= m_index.curves(); ++k) {
    if (document.y_visible(k)) shown.push_back({false, k});
  }
  for (int slot = 1; slot <= functions_of(document); ++slot) {
    if (is_drawn(document.y_func(slot))) shown.push_back({true, slot});
  }
  return shown;
}

std::vector<FoundPoint> PointFinder::points(const ControlState& state, const Curve& curve) {
  const GraphDocument& document = state.document;
  const Mapping mapping = mapping_of(state);
  std::vector<FoundPoint> result;
  const auto add = [&](int point, DataPoint value) {
    if (mapping.InPlot(value)) result.push_back({curve.is_function, curve.number, point, value});
  };
  if (curve.is_function) {
    const std::vector<DataPoint> line = samples(document, curve.number);
    for (std::size_t i = 0; i < line.size(); ++i) add(static_cast<int>(i) + 1, line[i]);
  } else {
    for (int rank = 0; rank < m_index.count(); ++rank)
      add(m_index.point(document, rank), m_index.value(document, curve.number, rank));
  }
  return result;
}

std::optional<FoundPoint> PointFinder::first(const ControlState& state) {
  for (const Curve& curve : curves(state)) {
    const std::vector<FoundPoint> there = points(state, curve);
    if (!there.empty()) return there.front();
  }
  return std::nullopt;
}

std::optional<FoundPoint> PointFinder::moved(const ControlState& state, const FoundPoint& from,
                                             PointMove move) {
  if (move == PointMove::kPreviousCurve) return on_next_curve(state, from, -1);
  if (move == PointMove::kNextCurve) return on_next_curve(state, from, 1);
  if (!renewed(state, from)) return std::nullopt;
  const std::vector<FoundPoint> there = points(state, {from.is_function, from.curve});
  const auto same = std::find_if(there.begin(), there.end(), [&](const FoundPoint& point) {
    return point.point == from.point;
  });
  const std::ptrdiff_t place = moved_place(there, same - there.begin(), move);
  return there[static_cast<std::size_t>(
      std::clamp<std::ptrdiff_t>(place, 0, std::ssize(there) - 1))];
}

std::optional<FoundPoint> PointFinder::on_next_curve(const ControlState& state,
                                                     const FoundPoint& from, int step) {
  std::vector<Curve> shown = curves(state);
  if (step < 0) std::reverse(shown.begin(), shown.end());
  auto curve = std::find_if(shown.begin(), shown.end(), [&](const Curve& one) {
    return one.is_function == from.is_function && one.number == from.curve;
  });
  if (curve == shown.end()) return std::nullopt;
  for (++curve; curve != shown.end(); ++curve) {
    const std::vector<FoundPoint> there = points(state, *curve);
    if (there.empty()) continue;
    return *std::min_element(
        there.begin(), there.end(), [&](const FoundPoint& left, const FoundPoint& right) {
          return std::abs(left.value.x - from.value.x) < std::abs(right.value.x - from.value.x);
        });
  }
  return renewed(state, from);
}

std::optional<FoundPoint> PointFinder::renewed(const ControlState& state, const FoundPoint& from) {
  for (const Curve& curve : curves(state)) {
    if (curve.is_function != from.is_function || curve.number != from.curve) continue;
    const std::vector<FoundPoint> there = points(state, curve);
    const auto same = std::find_if(there.begin(), there.end(), [&](const FoundPoint& point) {
      return point.point == from.point;
    });
    if (same != there.end()) return *same;
  }
  return std::nullopt;
}

}  // namespace kurv
