// A fast path for numbers in the usual notation: a file may hold millions.
#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

#include <KurvGraph/values.h>

namespace kurv {

// Reads the number that a text begins with where it is plain: digits, maybe with a minus sign, a
// point or an exponent, and finite. Returns its length. Returns 0 for any other text, which
// text_to_number() may still accept, and then leaves `value` unchanged.
//
// The number is returned through a reference, because an optional is returned in memory: it is
// stored in parts and loaded as a whole, and the stall of that load costs half as much as parsing.
inline std::size_t read_plain_number(std::string_view text, Double& value) {
  // std::from_chars() also accepts "nan" and "inf", so the first character is checked.
  const char* const first = text.data();
  const char* const end = first + text.size();
  const char* const begin = first + (text.starts_with('-') ? 1 : 0);
  if (begin == end || !((*begin >= '0' && *begin <= '9') || *begin == '.')) return 0;
  const auto result = std::from_chars(first, end, value);
  return result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - first) : 0;
}

}  // namespace kurv
