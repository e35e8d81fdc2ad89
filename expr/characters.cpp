#include "expr/characters.h"

#include <algorithm>
#include <array>
#include <span>

#include <KurvGraph/text.h>

namespace kurv::expr {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Whole blocks rather than the properties of each character: a table of those would be larger than
// all the rest of the evaluator, and a name that this one excludes can still be written in
// brackets.
constexpr Range kNotLetters[] = {
    {0x0080, 0x00A9},    // control characters and Latin-1 symbols, up to the feminine ordinal
    {0x00AB, 0x00B4},    // up to the micro sign
    {0x00B6, 0x00B9},    // up to the masculine ordinal; the superscript digits are here
    {0x00BB, 0x00BF},    //
    {0x00D7, 0x00D7},    // multiplication sign
    {0x00F7, 0x00F7},    // division sign
    {0x2000, 0x20FF},    // punctuation, superscript and subscript digits, currencies
    {0x2150, 0x2BFF},    // fractions, arrows, operators, technical symbols, shapes
    {0x2E00, 0x2E7F},    // more punctuation
    {0x3000, 0x3004},    // ideographic blank and punctuation
    {0x3008, 0x3020},    //
    {0xE000, 0xF8FF},    // private use
    {0xFE00, 0xFE1F},    // variation selectors, vertical forms
    {0xFE30, 0xFE6F},    // small and vertical forms
    {0xFEFF, 0xFF20},    // byte order mark, full-width punctuation and digits
    {0xFF3B, 0xFF40},    //
    {0xFF5B, 0xFF65},    //
    {0xFFE0, 0xFFFF},    // full-width currencies, specials
    {0x1F000, 0x1FAFF},  // pictures
    {0xE0000, 0x10FFFF}  // tags, selectors, private use
};

constexpr Range kInvisible[] = {
    {0x0000, 0x0020}, {0x007F, 0x00A0}, {0x00AD, 0x00AD}, {0x2000, 0x200F},
    {0x2028, 0x202F}, {0x205F, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
};

bool contains(std::span<const Range> ranges, char32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const Range& range) {
    return code >= range.first && code <= range.last;
  });
}

}  // namespace

Character character_at(std::string_view text, std::size_t at) {
  // What is left of a leading byte by the length of its character.
  constexpr std::array<unsigned, 5> kLeadingBits = {0, 0x7F, 0x1F, 0x0F, 0x07};

  const std::string_view bytes = text.substr(at);
  const std::size_t size = utf8_length(bytes);
  if (size == 0) return {};
  char32_t code = static_cast<unsigned char>(bytes[0]) & kLeadingBits[size];
  for (const char byte : bytes.substr(1, size - 1)) {
    code = (code << 6) | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return {code, size};
}

std::size_t count_characters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return !is_utf8_continuation(byte); }));
}

bool is_letter(char32_t code) {
  if (code < 0x80) {
    return code == '_' || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
  }
  return !contains(kNotLetters, code);
}

bool is_invisible(char32_t code) {
  return contains(kInvisible, code);
}

}  // namespace kurv::expr
