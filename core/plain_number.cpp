#include "core/plain_number.h"

#include <charconv>
#include <system_error>

namespace kurv {

std::size_t read_plain_number(std::string_view text, Double& value) {
  // A sign or a point may come first, but the library knows words as well.
  const auto is_digit = [&](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  if (text.size() <= sign || !(is_digit(sign) || text[sign] == '.')) return 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() ? static_cast<std::size_t>(result.ptr - text.data()) : 0;
}

}  // namespace kurv
