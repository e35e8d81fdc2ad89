#include "dialogs/field_rules.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "dialogs/length_text.h"
#include "render/number_format.h"

namespace kurv {

namespace {

std::optional<Integer> whole_number(std::optional<Double> number, Double min, Double max) {
  // Written so that NaN is refused.
  if (!number || !(*number >= min && *number <= max)) return std::nullopt;
  return to_integer(*number);
}

}  // namespace

std::optional<Integer> tick_count(std::string_view text, char decimal_separator) {
  return whole_number(text_to_number(text, decimal_separator), kMinEnteredTicks, kMaxEnteredTicks);
}

std::optional<Integer> marker_size(std::string_view text, char decimal_separator) {
  return whole_number(length_in_twips(text, decimal_separator), kMinEnteredMarkerSize,
                      kMaxEnteredMarkerSize);
}

std::optional<Integer> line_width(std::string_view text, char decimal_separator) {
  return whole_number(text_to_number(text, decimal_separator), kMinEnteredLineWidth,
                      kMaxEnteredLineWidth);
}

Integer margin_twips(std::string_view text, char decimal_separator) {
  const Double number = length_in_twips(text, decimal_separator).value_or(0);
  if (std::isnan(number)) return 0;
  constexpr Double kMinMargin = std::numeric_limits<Integer>::min();
  constexpr Double kMaxMargin = std::numeric_limits<Integer>::max();
  return to_integer(std::clamp(number, kMinMargin, kMaxMargin));
}

std::optional<Double> axis_limit(std::string_view changed, std::string_view min,
                                 std::string_view max, char decimal_separator) {
  const auto number = [&](std::string_view text) {
    return text_to_number(text, decimal_separator);
  };
  const std::optional<Double> limit = number(changed);
  const std::optional<Double> low = number(min);
  const std::optional<Double> high = number(max);
  // No point can be mapped to an axis with an infinite limit or a limit of NaN.
  if (!limit || !std::isfinite(*limit) || !low || !high || !(*low < *high)) return std::nullopt;
  return limit;
}

String limits_refusal(std::string_view min, std::string_view max, char decimal_separator) {
  const std::optional<Double> low = text_to_number(min, decimal_separator);
  const std::optional<Double> high = text_to_number(max, decimal_separator);
  if (!low || std::isnan(*low)) return "Minimum: not a number";
  if (!high || std::isnan(*high)) return "Maximum: not a number";
  if (!std::isfinite(*low)) return "Minimum: too large a number";
  if (!std::isfinite(*high)) return "Maximum: too large a number";
  return *low < *high ? "" : "Minimum must be below maximum";
}

String format_refusal(std::string_view format) {
  if (format.empty()) return "Type a format such as 0.00";
  // Far enough apart for formats that divide by thousands.
  constexpr Double kSmall = 1e3;
  constexpr Double kLarge = 9.87e14;
  const bool shows_numbers = format_number(kSmall, format) != format_number(kLarge, format);
  return shows_numbers ? "" : "Shows no number: use 0 and #";
}

}  // namespace kurv
