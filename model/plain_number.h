// Numbers as nearly all are written, read quickly: a file may hold millions of them.
#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

#include <KurvGraph/values.h>

namespace kurv {

// Reads the number that a text begins with where it is plain: digits, maybe with a minus sign, a
// point or an exponent, and finite. Returns its length. Returns 0 for any other, which
// text_to_number() may still know, and then leaves `value` alone.
//
// The number goes back through a reference: an optional would be put together in memory piece by
// piece and taken from there as a whole, and waiting for that costs half as much as reading.
inline std::size_t read_plain_number(std::string_view text, Double& value) {
  // A sign or a point may come first, but the library knows words as well.
  const char* const first = text.data();
  const char* const end = first + text.size();
  const char* const begin = first + (text.starts_with('-') ? 1 : 0);
  if (begin == end || !((*begin >= '0' && *begin <= '9') || *begin == '.')) return 0;
  const auto result = std::from_chars(first, end, value);
  return result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - first) : 0;
}

}  // namespace kurv
