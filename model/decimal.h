// A parsed decimal number: digits and the position of the point.
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

// Parses digits with an optional sign, point and exponent, and nothing around them. Exponents are
// clamped to 10^15, far beyond the range of a Double and the length of any text, so that adding to
// one never overflows.
std::optional<Decimal> parse_decimal(std::string_view text);

}  // namespace kurv
