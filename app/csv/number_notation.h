// Numbers in the notation of a table: its decimal sign, the sign between groups of three digits,
// and units after or before the number.
#pragma once

#include <KurvGraph/values.h>

#include <optional>
#include <string_view>

namespace kurv::app {

struct NumberNotation {
  char decimal = '.';
  // As in TableOptions.
  char thousands = '\0';
};

// The whole text as a number. A minus sign may be "−" (U+2212) or "–" (U+2013), and after the
// digits, "5-". The groups between thousands signs have three digits, except the first one.
// Infinite where the text says so or the number is too large.
std::optional<Double> read_number(std::string_view text, const NumberNotation& notation);

// A number with a unit after it, or a currency before it: "12 %", "€ 3.50", "20 °C".
struct Quantity {
  Double value;
  std::string_view unit;
};
std::optional<Quantity> read_quantity(std::string_view text, const NumberNotation& notation);

// Whether a text after a number may be its unit: letters, signs such as "°" and "%", a slash or a
// blank between them, and an exponent at the end.
bool is_unit_of_cell(std::string_view text);

// The currency that the text begins with, which is removed together with the blanks after it; empty
// without one.
std::string_view take_currency(std::string_view& text);

// The length of the blank that the text begins with: a space, or one of the three that cannot break
// a line or are thin (U+00A0, U+2009, U+202F); 0 without one.
std::size_t blank_length(std::string_view text);
// The same for an apostrophe, "'" or "’".
std::size_t apostrophe_length(std::string_view text);

}  // namespace kurv::app
