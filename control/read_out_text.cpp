#include "control/read_out_text.h"

#include <algorithm>
#include <cmath>

#include "render/number_format.h"
#include "render/number_pattern.h"

namespace kurv {

namespace {

// More decimals are written with an exponent.
constexpr int kMostDecimals = 9;
// A number has no more significant digits.
constexpr int kMostDigits = 15;

int power_of_ten(Double value) {
  if (value == 0 || !std::isfinite(value)) return 0;
  return static_cast<int>(std::floor(std::log10(std::abs(value))));
}

// The decimals that tell values apart that are so far apart.
int decimals_of(Double resolution) {
  if (!(resolution > 0) || !std::isfinite(resolution)) return 0;
  // The logarithm of 0.001 may be slightly less than -3.
  return std::max(0, static_cast<int>(std::ceil(-std::log10(resolution) - 1e-9)));
}

// A place for each decimal: the first ones always have a digit, the others where the value has one.
String decimal_places(int always, int at_most) {
  const auto count = [](int places) { return static_cast<std::size_t>(std::max(places, 0)); };
  if (at_most <= 0) return {};
  return '.' + String(count(always), '0') + String(count(at_most - always), '#');
}

// Whether the pattern has digit places alone, to which others can be added.
bool is_plain(std::string_view pattern) {
  return !pattern.empty() && pattern.find_first_not_of("0#,.") == std::string_view::npos &&
         std::count(pattern.begin(), pattern.end(), '.') <= 1 && !pattern.ends_with(',') &&
         pattern.find(",.") == std::string_view::npos;
}

// A pattern writes its point also where no decimals come after it.
String formatted(Double value, const String& pattern) {
  String text = format_number(value, pattern);
  const std::size_t point = text.find('.');
  const bool is_bare =
      point != String::npos && (point + 1 == text.size() || text[point + 1] == 'E');
  if (is_bare) text.erase(point, 1);
  return text;
}

String with_exponent(Double value, int decimals) {
  const int digits = std::clamp(power_of_ten(value) + decimals, 0, kMostDigits - 1);
  return formatted(value, '0' + decimal_places(0, digits) + "E+0");
}

bool tells_apart(Double value, Double resolution, std::string_view pattern) {
  const String text = format_number(value, pattern);
  return text != format_number(value - resolution, pattern) &&
         text != format_number(value + resolution, pattern);
}

String value_as_text(Double value, std::string_view pattern, Double resolution, int needed,
                     int at_most) {
  if (needed > kMostDecimals) return with_exponent(value, at_most);
  if (is_plain(pattern)) {
    const PatternSection section = parse_pattern(pattern).front();
    const auto always = std::max(static_cast<int>(section.least_fraction_digits), needed);
    const auto places = std::max(static_cast<int>(section.fraction_places), at_most);
    const std::string_view whole = pattern.substr(0, pattern.find('.'));
    return formatted(value, String(whole) + decimal_places(always, std::max(always, places)));
  }
  const PatternSection section = parse_pattern(pattern).front();
  if (section.has_exponent) {
    // The digits of the mantissa, of which the pattern may have more.
    const int digits =
        std::max(static_cast<int>(section.fraction_places), power_of_ten(value) + at_most);
    return with_exponent(value, digits - power_of_ten(value));
  }
  // Of the other patterns, such as those with a percent sign.
  if (tells_apart(value, resolution, pattern)) return format_number(value, pattern);
  return formatted(value, '0' + decimal_places(needed, at_most));
}

}  // namespace

String place_text(Double value, std::string_view pattern, Double resolution) {
  const int needed = decimals_of(resolution);
  return value_as_text(value, pattern, resolution, needed, needed);
}

String value_text(Double value, std::string_view pattern, Double resolution) {
  const int needed = decimals_of(resolution);
  // No zeros that the value does not have, but those of the label format.
  return value_as_text(value, pattern, resolution, needed > kMostDecimals ? needed : 0, needed + 2);
}

}  // namespace kurv
