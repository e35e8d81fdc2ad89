#include "control/axis_zoom.h"

#include <algorithm>
#include <cmath>

namespace kurv {

namespace {

constexpr Double kLeastRelativeSpan = 1e-10;
constexpr Double kLeastSpan = 1e-290;
constexpr Double kLargestLimit = 1e300;
// Limits are multiples of a power of ten that is at most this part of the span. On a plot of 1000
// pixels that is half a pixel.
constexpr Double kGrid = 1.0 / 2000;
// With more ticks, the distance of two of them is not rounded.
constexpr int kMostRoundedTicks = 100;

Double largest_magnitude(const AxisLimits& limits) {
  return std::max(std::abs(limits.min), std::abs(limits.max));
}

int grid_place(Double span) {
  return static_cast<int>(std::floor(std::log10(span) + std::log10(kGrid)));
}

// The nearest multiple of ten to the power of `place`.
Double on_grid(Double value, int place) {
  const Double power = std::pow(10.0, std::abs(place));
  return place < 0 ? std::round(value * power) / power : std::round(value / power) * power;
}

Double zoomed_span(Double span, Double value, Double factor, Double largest) {
  const Double zoomed = span * factor;
  const Double least = std::max(std::abs(value) * kLeastRelativeSpan, kLeastSpan);
  if (factor < 1) return std::max(zoomed, std::min(span, least));
  // Out of a span that numbers hardly hold, the first step is a large one.
  if (factor > 1) return std::max(std::min(zoomed, std::max(span, largest)), least);
  return span;
}

// A span of which each tick is on the grid.
Double rounded_span(Double span, int ticks, int place) {
  const int parts = ticks >= 1 && ticks <= kMostRoundedTicks ? ticks : 1;
  return parts * on_grid(span / parts, place);
}

// `max` without the rounding error of the sum that it is.
Double without_error(Double max, Double span, int place) {
  const Double rounded = on_grid(max, place);
  return std::abs(rounded - max) <= span * 1e-9 ? rounded : max;
}

bool can_be_limits(const AxisLimits& limits, const AxisLimits& before) {
  const Double largest = largest_magnitude(limits);
  const Double largest_before = largest_magnitude(before);
  const Double span = std::abs(limits.max - limits.min);
  if (!std::isfinite(span) || !(largest <= std::max(kLargestLimit, largest_before))) return false;
  // Moved far away, the axis would have too few digits for its labels.
  if (largest > largest_before && span < largest * kLeastRelativeSpan) return false;
  return limits.min != limits.max && (limits.min < limits.max) == (before.min < before.max);
}

}  // namespace

AxisLimits moved_limits(const AxisLimits& limits, const AxisMove& move, const AxisBounds& bounds) {
  const Double old_span = std::abs(limits.max - limits.min);
  const Double value = limits.min + move.from * (limits.max - limits.min);
  if (!std::isfinite(old_span) || old_span == 0 || !std::isfinite(value)) return limits;
  if (!(move.factor > 0)) return limits;

  Double span = zoomed_span(old_span, value, move.factor, bounds.largest_span);
  const bool has_new_span = span != old_span;
  if (!std::isfinite(span) || (!has_new_span && move.factor != 1)) return limits;
  if (!has_new_span && move.from == move.to) return limits;
  const int place = grid_place(span);
  if (has_new_span) span = rounded_span(span, bounds.ticks, place);

  const Double signed_span = limits.min < limits.max ? span : -span;
  const Double min = on_grid(value - move.to * signed_span, place);
  const AxisLimits moved{min, without_error(min + signed_span, span, place)};
  return can_be_limits(moved, limits) ? moved : limits;
}

}  // namespace kurv
