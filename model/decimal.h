// A number as its decimal digits: the half-way house between a text and a Double.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// Its magnitude is 0.DIGITS times ten to the power of `point`, so `point` is also the number of
// digits before the decimal point. There is no zero at either end of the digits; the number zero
// has none at all, and its point is 0.
struct Decimal {
  bool negative = false;
  String digits;
  std::int64_t point = 0;
};

// Digits with an optional sign, point and exponent, and nothing around them. Exponents beyond any
// that a Double or a text's length could call for are cut to 10^15, so that no sum overflows.
std::optional<Decimal> parse_decimal(std::string_view text);

}  // namespace kurv
