#include "model/tick_labels.h"

#include <algorithm>
#include <cmath>

namespace kurv {

namespace {

// Labels have at most fifteen significant digits, and the last one is needed for rounding errors.
constexpr int kMostPlaces = 14;

int first_place(Double magnitude) {
  return static_cast<int>(std::floor(std::log10(magnitude)));
}

Double largest_magnitude(Double min, Double max) {
  return std::max(std::abs(min), std::abs(max));
}

// Whether every tick is a multiple of ten to the power of `place`, but for rounding errors.
bool are_multiples(Double min, Double max, int ticks, int place) {
  const Double scale = std::pow(10.0, -place);
  const Double tolerance = largest_magnitude(min, max) * scale * 1e-15;
  for (int i = 0; i <= ticks; ++i) {
    const Double value = tick_value(min, max, ticks, i) * scale;
    if (!(std::abs(value - std::round(value)) <= tolerance)) return false;
  }
  return true;
}

// The power of ten of the last digit that labels need.
int last_place(Double min, Double max, int ticks) {
  const int first = first_place(largest_magnitude(min, max));
  for (int place = first; place > first - kMostPlaces; --place) {
    if (are_multiples(min, max, ticks, place)) return place;
  }
  const Double distance = std::abs(max / ticks - min / ticks);
  const int hundredth = distance > 0 ? first_place(distance) - 2 : first;
  return std::clamp(hundredth, first - kMostPlaces, first);
}

String with_decimals(const String& pattern, int decimals) {
  if (decimals <= 0) return pattern;
  return pattern + '.' + String(static_cast<std::size_t>(decimals), '0');
}

// Zero has no exponent.
String exponent_format(int decimals, bool shows_zero) {
  const String positive = with_decimals("0", decimals) + "E+0";
  return shows_zero ? positive + ";-" + positive + ";0" : positive;
}

}  // namespace

Double tick_value(Double min, Double max, int ticks, int tick) {
  return Double(tick) / ticks * (max - min) + min;
}

bool needs_exponent(Double min, Double max) {
  const Double largest = largest_magnitude(min, max);
  return largest < 0.001 || largest >= 1e7;
}

String exact_label_format(Double min, Double max, int ticks) {
  constexpr Double kFirstGrouped = 10000;
  const Double largest = largest_magnitude(min, max);
  if (ticks < 1 || !std::isfinite(max - min) || largest == 0) return "0.00E+0";
  const int place = last_place(min, max, ticks);
  if (needs_exponent(min, max)) {
    return exponent_format(first_place(largest) - place, min <= 0 && max >= 0);
  }
  return with_decimals(largest >= kFirstGrouped ? "#,##0" : "0", -place);
}

}  // namespace kurv
