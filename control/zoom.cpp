#include "control/zoom.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

#include "control/axis_zoom.h"
#include "control/control_state.h"
#include "control/growing_data.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/data_set.h"
#include "model/round_axis_range.h"
#include "model/tick_labels.h"
#include "render/number_format.h"

namespace kurv {

namespace {

// Zooming out ends where the span is so many times that of before the first zoom.
constexpr Double kLargestZoomOut = 1e6;
// With more ticks the labels are not compared: most of them are not drawn.
constexpr int kMostComparedTicks = 100;
// Longer labels would run into each other.
constexpr std::size_t kLongestLabel = 12;

// Places on both axes, see AxisMove.
struct PlotPlace {
  Double x;
  Double y;
};

PlotPlace plot_place(const ControlState& state, SurfacePoint at) {
  const PlotRect& plot = state.layout.plot;
  return {(at.x - plot.PlotLeft) / plot.PlotWidth,
          (plot.PlotTop + plot.PlotHeight - at.y) / plot.PlotHeight};
}

PlotPlace kept_inside(const PlotPlace& place) {
  return {std::clamp(place.x, 0.0, 1.0), std::clamp(place.y, 0.0, 1.0)};
}

bool are_same(const AxisLimits& left, const AxisLimits& right) {
  return left.min == right.min && left.max == right.max;
}

void store_limits(GraphDocument& document, const ViewLimits& limits) {
  document.xmin = limits.x.min;
  document.xmax = limits.x.max;
  document.ymin = limits.y.min;
  document.ymax = limits.y.max;
}

ViewLimits document_limits(const GraphDocument& document) {
  return {{document.xmin, document.xmax}, {document.ymin, document.ymax}};
}

// -- Label formats --------------------------------------------------------------------------------

void restore_format(String& format, const FittedSetting<String>& fitted) {
  if (!fitted.fitted.empty() && format == fitted.fitted) format = fitted.before;
}

// Whether the labels of neighbouring ticks differ, and none of them is too long.
bool shows_ticks(const AxisLimits& axis, int ticks, const String& format) {
  if (ticks < 1 || ticks > kMostComparedTicks) return true;
  String last;
  for (int i = 0; i <= ticks; ++i) {
    const String label = format_number(tick_value(axis.min, axis.max, ticks, i), format);
    if (label.size() > kLongestLabel || (i > 0 && label == last)) return false;
    last = label;
  }
  return true;
}

void fit_format(String& format, FittedSetting<String>& fitted, const AxisLimits& axis, int ticks) {
  fitted = {};
  if (shows_ticks(axis, ticks, format)) return;
  const String exact = exact_label_format(axis.min, axis.max, ticks);
  if (exact == format) return;
  fitted = {format, exact};
  format = exact;
}

void restore_formats(ControlState& state) {
  restore_format(state.document.AxisLabelFormatX, state.zoom.x_format);
  restore_format(state.document.AxisLabelFormatY, state.zoom.y_format);
}

void fit_formats(ControlState& state) {
  GraphDocument& document = state.document;
  renew_exact_label_formats(document);
  const ViewLimits limits = document_limits(document);
  fit_format(document.AxisLabelFormatX, state.zoom.x_format, limits.x, document.NumTicks);
  fit_format(document.AxisLabelFormatY, state.zoom.y_format, limits.y, document.NumTicks);
}

// -- Limits ---------------------------------------------------------------------------------------

bool follows_data(const ControlState& state) {
  if (!state.document.Autoscale || validate_points(state.document)) return false;
  GraphDocument copy = state.document;
  basKurvGraph01::compute_axis_range(copy, *state.services.numeric);
  const ViewLimits computed = document_limits(copy);
  const ViewLimits limits = document_limits(state.document);
  return are_same(computed.x, limits.x) && are_same(computed.y, limits.y);
}

void begin_zoom(ControlState& state) {
  if (is_zoomed(state)) return;
  const GraphDocument& document = state.document;
  state.zoom = {true,
                document.xmin,
                document.xmax,
                document.ymin,
                document.ymax,
                document.Autoscale,
                follows_data(state),
                {},
                {}};
}

// Draws the graph with these limits, where they are others.
void show_limits(ControlState& state, const ViewLimits& limits, const StepLabel& label) {
  const ViewLimits before = document_limits(state.document);
  if (are_same(limits.x, before.x) && are_same(limits.y, before.y)) return;
  const StepRecorder step(state, label);
  restore_formats(state);
  begin_zoom(state);
  state.document.Autoscale = false;
  store_limits(state.document, limits);
  fit_formats(state);
  build_the_graph(state);
}

ViewLimits moved_view(const ControlState& state, const ViewLimits& limits, const AxisMove& x,
                      const AxisMove& y) {
  const ZoomState& zoom = state.zoom;
  const ViewLimits home = is_zoomed(state)
                              ? ViewLimits{{zoom.xmin, zoom.xmax}, {zoom.ymin, zoom.ymax}}
                              : document_limits(state.document);
  const auto bounds = [&](const AxisLimits& axis) {
    return AxisBounds{std::abs(axis.max - axis.min) * kLargestZoomOut, state.document.NumTicks};
  };
  return {moved_limits(limits.x, x, bounds(home.x)), moved_limits(limits.y, y, bounds(home.y))};
}

// -- Round limits ---------------------------------------------------------------------------------

DataRange tick_range(const AxisLimits& axis, AxisUnit unit) {
  const auto [min, max] = std::minmax(axis.min, axis.max);
  return {min, max, unit, true};
}

AxisLimits in_order_of(const AxisLimits& axis, const AxisLimits& limits) {
  return axis.min < axis.max ? limits : AxisLimits{limits.max, limits.min};
}

// Round limits around these. The number of ticks stays.
ViewLimits round_limits_around(const GraphDocument& document, const ViewLimits& limits) {
  const RoundLimitsSwitch& rounding = document.round_limits;
  const bool has_unit = rounding.x_unit_column == 1;
  const RoundLimits chosen =
      choose_round_limits(tick_range(limits.x, has_unit ? rounding.x_unit : AxisUnit::kNumbers),
                          tick_range(limits.y, AxisUnit::kNumbers), document.NumTicks);
  return {in_order_of(limits.x, chosen.x), in_order_of(limits.y, chosen.y)};
}

}  // namespace

ViewLimits view_limits(const ControlState& state) {
  return document_limits(state.document);
}

bool can_zoom(const ControlState& state) {
  const PlotRect& plot = state.layout.plot;
  return state.document.GraphValid && plot.PlotWidth > 0 && plot.PlotHeight > 0;
}

void zoom_at(ControlState& state, SurfacePoint at, ZoomFactors factors) {
  if (!can_zoom(state)) return;
  const PlotPlace pointer = plot_place(state, at);
  const bool is_below = pointer.y < 0, is_left = pointer.x < 0;
  if (is_below && !is_left) factors.y = 1;
  if (is_left && !is_below) factors.x = 1;
  const PlotPlace place = kept_inside(pointer);
  show_limits(state,
              moved_view(state, document_limits(state.document), {place.x, place.x, factors.x},
                         {place.y, place.y, factors.y}),
              {.name = "Zoom", .key = "zoom"});
}

void pan_from(ControlState& state, const ViewLimits& limits, SurfacePoint distance) {
  if (!can_zoom(state)) return;
  const PlotRect& plot = state.layout.plot;
  const AxisMove x{0, Double(distance.x) / plot.PlotWidth, 1};
  const AxisMove y{0, -Double(distance.y) / plot.PlotHeight, 1};
  show_limits(state, moved_view(state, limits, x, y), {.name = "Pan", .key = "pan"});
}

void zoom_to(ControlState& state, SurfacePoint corner, SurfacePoint opposite) {
  if (!can_zoom(state)) return;
  const PlotPlace a = kept_inside(plot_place(state, corner));
  const PlotPlace b = kept_inside(plot_place(state, opposite));
  const auto [left, right] = std::minmax(a.x, b.x);
  const auto [bottom, top] = std::minmax(a.y, b.y);
  // Without an area it shows nothing; nor does one with a corner that is not a number.
  if (!(left < right) || !(bottom < top)) return;
  ViewLimits limits = moved_view(state, document_limits(state.document), {left, 0, right - left},
                                 {bottom, 0, top - bottom});
  const Integer ticks = state.document.NumTicks;
  if (state.document.round_limits.is_on && ticks >= 1 && ticks <= kMostComparedTicks) {
    limits = round_limits_around(state.document, limits);
  }
  show_limits(state, limits, {"Zoom"});
}

bool is_zoomed(const ControlState& state) {
  return state.zoom.is_on && !state.document.Autoscale;
}

void show_all(ControlState& state) {
  if (!is_zoomed(state)) return;
  const StepRecorder step(state, {"Show All"});
  GraphDocument& document = state.document;
  restore_formats(state);
  const ZoomState zoom = std::exchange(state.zoom, {});
  document.Autoscale = zoom.Autoscale;
  store_limits(document, {{zoom.xmin, zoom.xmax}, {zoom.ymin, zoom.ymax}});
  if (zoom.followed_data && !validate_points(document)) {
    basKurvGraph01::compute_axis_range(document, *state.services.numeric);
    if (!document.round_limits.is_on) choose_formats_again(state);
  }
  build_the_graph(state);
}

void forget_zoom(ControlState& state) {
  if (is_zoomed(state)) state.document.Autoscale = state.zoom.Autoscale;
  state.zoom = {};
}

void end_zoom(ControlState& state) {
  restore_formats(state);
  forget_zoom(state);
}

}  // namespace kurv
