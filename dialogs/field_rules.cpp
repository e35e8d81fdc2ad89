#include "dialogs/field_rules.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kurv {

namespace {

std::optional<Integer> whole_number(std::string_view text, char decimal_separator, Double min,
                                    Double max) {
  const std::optional<Double> number = text_to_number(text, decimal_separator);
  // Written so that NaN is refused.
  if (!number || !(*number >= min && *number <= max)) return std::nullopt;
  return to_integer(*number);
}

}  // namespace

std::optional<Integer> tick_count(std::string_view text, char decimal_separator) {
  return whole_number(text, decimal_separator, kMinEnteredTicks, kMaxEnteredTicks);
}

std::optional<Integer> marker_size(std::string_view text, char decimal_separator) {
  return whole_number(text, decimal_separator, kMinEnteredMarkerSize, kMaxEnteredMarkerSize);
}

std::optional<Integer> line_width(std::string_view text, char decimal_separator) {
  return whole_number(text, decimal_separator, kMinEnteredLineWidth, kMaxEnteredLineWidth);
}

Integer margin_twips(std::string_view text, char decimal_separator) {
  const Double number = text_to_number(text, decimal_separator).value_or(0);
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

}  // namespace kurv
