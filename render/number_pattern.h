// The patterns of format_number(), parsed.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kurv {

struct PatternItem {
  enum class Kind : char { kLiteral, kDigitPlace, kPoint, kExponent };
  Kind kind = Kind::kLiteral;
  char literal = '\0';  // the byte to write; for an exponent its letter
};

// How a number of one sign is written. The items give the order of the parts, the counts the number
// of digits: a digit that the number has is written at any place, a zero beyond its digits only
// within the least counts.
struct PatternSection {
  bool given = false;  // false where the pattern has no text for this section
  std::vector<PatternItem> items;

  std::int64_t integer_places = 0;
  std::int64_t least_integer_digits = 0;
  std::int64_t fraction_places = 0;
  std::int64_t least_fraction_digits = 0;

  bool has_point = false;
  bool grouped = false;
  bool percent = false;
  std::int64_t thousands = 0;  // how often the number is divided by a thousand

  bool has_exponent = false;
  bool exponent_has_plus = false;
  std::int64_t least_exponent_digits = 0;

  bool has_digit_places() const { return integer_places + fraction_places > 0; }
};

// For positive values, negative values and zero.
using PatternSections = std::array<PatternSection, 3>;

// Takes any bytes, in linear time; what follows a third section is dropped.
PatternSections parse_pattern(std::string_view pattern);

}  // namespace kurv
