// Two small questions about text that conversions ask before they read it.
#pragma once

#include <algorithm>
#include <string_view>

namespace kurv {

inline std::string_view without_outer_blanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Only the letters A to Z have two cases here, because the words of this system are ASCII and a
// locale must not have a say.
inline bool is_word(std::string_view text, std::string_view word) {
  const auto small = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  };
  return std::equal(text.begin(), text.end(), word.begin(), word.end(),
                    [&](char left, char right) { return small(left) == small(right); });
}

}  // namespace kurv
