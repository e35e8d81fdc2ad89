#include "model/round_axis_range.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "model/axis_range.h"
#include "model/round_limits.h"
#include "model/tick_labels.h"

namespace kurv {

namespace {

constexpr Double kBeyond = std::numeric_limits<Double>::infinity();

// The minimum is above the maximum where there is no value.
void include_finite(const GraphDocument& document, int column, DataRange& range) {
  if (document.NumData < 1) return;
  const auto values = document.xyArr.column(column);
  for (int i = 1; i <= document.NumData; ++i) {
    const Double value = values(i);
    if (!std::isfinite(value)) continue;
    range.min = std::min(range.min, value);
    range.max = std::max(range.max, value);
  }
}

DataRange x_range(const GraphDocument& document) {
  DataRange range{kBeyond, -kBeyond};
  include_finite(document, 1, range);
  if (range.min > range.max) range = {0, 0};
  const RoundLimitsSwitch& rounding = document.round_limits;
  if (rounding.x_unit_column == 1) range.unit = rounding.x_unit;
  range.is_rounded = !document.XLimitsExact && range.min < range.max;
  return range;
}

DataRange y_range(const GraphDocument& document) {
  DataRange range{kBeyond, -kBeyond};
  for (int k = 1; k <= document.NumY; ++k) {
    if (document.y_visible(k)) include_finite(document, k + 1, range);
  }
  if (range.min > range.max) return {0, 1};
  range.is_rounded = !document.YLimitsExact;
  if (document.YLimitsExact && range.min == range.max) {
    range.min -= 1;
    range.max += 1;
  }
  return range;
}

TickPlaces tick_places(const GraphDocument& document) {
  return {document.xmin, document.xmax, document.ymin, document.ymax, document.NumTicks};
}

}  // namespace

void keep_settings_as_chosen(GraphDocument& document) {
  RoundLimitsSwitch& rounding = document.round_limits;
  rounding.ticks = document.NumTicks;
  rounding.x_format = document.AxisLabelFormatX;
  rounding.y_format = document.AxisLabelFormatY;
  rounding.labelled = tick_places(document);
}

void begin_round_limits(GraphDocument& document) {
  RoundLimitsSwitch& rounding = document.round_limits;
  rounding.before = {document.XLimitsExact, document.YLimitsExact, document.NumTicks,
                     document.AxisLabelFormatX, document.AxisLabelFormatY};
  document.XLimitsExact = false;
  document.YLimitsExact = false;
  keep_settings_as_chosen(document);
}

void end_round_limits(GraphDocument& document) {
  const RoundLimitsSwitch& rounding = document.round_limits;
  document.XLimitsExact = rounding.before.XLimitsExact;
  document.YLimitsExact = rounding.before.YLimitsExact;
  document.NumTicks = rounding.before.NumTicks;
  document.AxisLabelFormatX = rounding.before.AxisLabelFormatX;
  document.AxisLabelFormatY = rounding.before.AxisLabelFormatY;
}

void round_axis_range(GraphDocument& document) {
  if (basKurvGraph01::count_visible_curves(document) == 0) return;
  const DataRange x = x_range(document);
  const DataRange y = y_range(document);
  RoundLimitsSwitch& rounding = document.round_limits;
  std::optional<int> ticks;
  if (document.NumTicks > 0 && document.NumTicks != rounding.ticks) ticks = document.NumTicks;

  const RoundLimits chosen = choose_round_limits(x, y, ticks);
  document.xmin = chosen.x.min;
  document.xmax = chosen.x.max;
  document.ymin = chosen.y.min;
  document.ymax = chosen.y.max;
  if (!ticks && (x.is_rounded || y.is_rounded)) {
    document.NumTicks = static_cast<Integer>(chosen.ticks);
    rounding.ticks = document.NumTicks;
  }
  rounding.labelled = {};
}

bool has_exact_labels(const GraphDocument& document) {
  const int ticks = document.NumTicks;
  return !document.XLimitsExact && !document.YLimitsExact &&
         document.AxisLabelFormatX == exact_label_format(document.xmin, document.xmax, ticks) &&
         document.AxisLabelFormatY == exact_label_format(document.ymin, document.ymax, ticks);
}

void renew_exact_label_formats(GraphDocument& document) {
  RoundLimitsSwitch& rounding = document.round_limits;
  if (!rounding.is_on || rounding.labelled == tick_places(document)) return;
  const String x = document.AxisLabelFormatX;
  const String y = document.AxisLabelFormatY;
  const bool is_x_chosen = x == rounding.x_format;
  const bool is_y_chosen = y == rounding.y_format;
  choose_exact_label_formats(document);
  if (!is_x_chosen) document.AxisLabelFormatX = x;
  if (!is_y_chosen) document.AxisLabelFormatY = y;
}

void choose_exact_label_formats(GraphDocument& document) {
  RoundLimitsSwitch& rounding = document.round_limits;
  const int ticks = document.NumTicks;
  rounding.x_format = exact_label_format(document.xmin, document.xmax, ticks);
  rounding.y_format = exact_label_format(document.ymin, document.ymax, ticks);
  rounding.labelled = tick_places(document);
  document.AxisLabelFormatX = rounding.x_format;
  document.AxisLabelFormatY = rounding.y_format;
}

}  // namespace kurv
