#include "expr/characters.h"

#include <algorithm>
#include <array>
#include <span>

namespace kurv::expr {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Whole blocks rather than the properties of each character: a table of those would be larger than
// all the rest of the evaluator, and a name that this one turns away can still be quoted.
constexpr Range kNoLetters[] = {
    {0x0080, 0x00A9},    // controls and Latin-1 signs, up to the feminine ordinal
    {0x00AB, 0x00B4},    // up to the micro sign
    {0x00B6, 0x00B9},    // up to the masculine ordinal; the raised digits are here
    {0x00BB, 0x00BF},    //
    {0x00D7, 0x00D7},    // multiplication sign
    {0x00F7, 0x00F7},    // division sign
    {0x2000, 0x20FF},    // punctuation, raised and lowered digits, currencies
    {0x2150, 0x2BFF},    // fractions, arrows, operators, technical signs, shapes
    {0x2E00, 0x2E7F},    // more punctuation
    {0x3000, 0x3004},    // ideographic blank and punctuation
    {0x3008, 0x3020},    //
    {0xE000, 0xF8FF},    // private use
    {0xFE00, 0xFE1F},    // variation selectors, vertical forms
    {0xFE30, 0xFE6F},    // small and vertical forms
    {0xFEFF, 0xFF20},    // byte order mark, full-width signs and digits
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

bool lies_in(std::span<const Range> ranges, char32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const Range& range) {
    return code >= range.first && code <= range.last;
  });
}

unsigned char byte_at(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool is_continuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// By the leading byte alone; 0 where none begins so.
std::size_t size_after(unsigned char leading) {
  if (leading < 0x80) return 1;
  if (leading >= 0xC2 && leading < 0xE0) return 2;
  if (leading >= 0xE0 && leading < 0xF0) return 3;
  if (leading >= 0xF0 && leading < 0xF5) return 4;
  return 0;
}

}  // namespace

Character character_at(std::string_view text, std::size_t at) {
  constexpr std::array<unsigned, 5> kLeadingBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};

  const unsigned char leading = byte_at(text, at);
  const std::size_t size = size_after(leading);
  if (size == 0 || size > text.size() - at) return {};

  char32_t code = leading & kLeadingBits[size];
  for (std::size_t i = 1; i < size; ++i) {
    const unsigned char byte = byte_at(text, at + i);
    if (!is_continuation(byte)) return {};
    code = (code << 6) | (byte & 0x3FU);
  }
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kSmallest[size] || code > 0x10FFFF || surrogate) return {};
  return {code, size};
}

std::size_t count_characters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return !is_continuation(static_cast<unsigned char>(byte));
  }));
}

bool is_letter(char32_t code) {
  if (code < 0x80) {
    return code == '_' || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
  }
  return !lies_in(kNoLetters, code);
}

bool is_invisible(char32_t code) {
  return lies_in(kInvisible, code);
}

std::string_view without_blanks_around(std::string_view name) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = name.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return name.substr(first, name.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace kurv::expr
