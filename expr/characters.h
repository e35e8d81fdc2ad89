// Decodes the UTF-8 of an expression, and sorts its characters into the classes that the lexer
// needs.
#pragma once

#include <cstddef>
#include <string_view>

namespace kurv::expr {

struct Character {
  char32_t code = 0;
  std::size_t size = 0;  // in bytes; 0 where the bytes are not valid UTF-8
};

// The character that begins at byte `at`, which must be below the size of the text. Overlong forms,
// surrogates and codes above U+10FFFF are not valid.
Character character_at(std::string_view text, std::size_t at);

// The number of characters in valid UTF-8.
std::size_t count_characters(std::string_view text);

constexpr bool is_digit(char32_t code) {
  return code >= '0' && code <= '9';
}

// What a variable's name may begin with: A to Z, a to z, the underscore, and each character above
// U+007F outside the blocks of blanks, punctuation, symbols, pictures and control characters.
bool is_letter(char32_t code);

// Control characters and blanks, which a message cannot show as they are.
bool is_invisible(char32_t code);

}  // namespace kurv::expr
