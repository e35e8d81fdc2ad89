// Expressions are UTF-8; these are the few questions that reading one asks about its characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace kurv::expr {

struct Character {
  char32_t code = 0;
  std::size_t size = 0;  // in bytes; 0 where the bytes are no character
};

// The character that begins at byte `at`, which lies inside the text. Overlong forms, surrogates
// and codes above U+10FFFF are no characters.
Character character_at(std::string_view text, std::size_t at);

// How many characters a valid text has.
std::size_t count_characters(std::string_view text);

constexpr bool is_digit(char32_t code) {
  return code >= '0' && code <= '9';
}

// What a variable's name may begin with: A to Z, a to z, the underscore, and each character above
// U+007F that does not lie in a block of blanks, punctuation, signs, pictures or controls.
bool is_letter(char32_t code);

// Controls and blanks, which a message cannot show as they are.
bool is_invisible(char32_t code);

}  // namespace kurv::expr
