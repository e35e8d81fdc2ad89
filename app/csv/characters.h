// Kinds of characters in the text of a table, for the inner loops of its readers.
#pragma once

#include <string_view>

namespace kurv::app {

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

// Whether the first character is a digit or a minus sign.
constexpr bool begins_as_number(std::string_view text) {
  return !text.empty() && (is_digit(text.front()) || text.front() == '-');
}

}  // namespace kurv::app
