#include "fonts/characters.h"

#include <hb.h>

#include <algorithm>
#include <cstddef>

#include <KurvGraph/text.h>

namespace kurv {
namespace {

enum class Direction : std::uint8_t { kNeutral, kLeftToRight, kRightToLeft, kNumber, kMark };

hb_unicode_general_category_t category_of(char32_t character) {
  return hb_unicode_general_category(hb_unicode_funcs_get_default(), character);
}

bool is_control(char32_t character) {
  switch (category_of(character)) {
    case HB_UNICODE_GENERAL_CATEGORY_CONTROL:
    case HB_UNICODE_GENERAL_CATEGORY_LINE_SEPARATOR:
    case HB_UNICODE_GENERAL_CATEGORY_PARAGRAPH_SEPARATOR:
      return true;
    default:
      return false;
  }
}

char32_t decoded(std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  if (bytes.size() == 1) return first;
  char32_t character = first & (0x7FU >> bytes.size());
  for (const char byte : bytes.substr(1)) {
    character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
  }
  return character;
}

char32_t take_character(std::string_view& line) {
  constexpr char32_t kReplacement = 0xFFFD;
  const std::size_t length = utf8_length(line);
  const char32_t character = length == 0 ? kReplacement : decoded(line.substr(0, length));
  line.remove_prefix(std::max<std::size_t>(length, 1));
  return is_control(character) ? U' ' : character;
}

bool is_mark(char32_t character) {
  switch (category_of(character)) {
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_FORMAT:
      return true;
    default:
      return false;
  }
}

bool is_letter(char32_t character) {
  switch (category_of(character)) {
    case HB_UNICODE_GENERAL_CATEGORY_LOWERCASE_LETTER:
    case HB_UNICODE_GENERAL_CATEGORY_MODIFIER_LETTER:
    case HB_UNICODE_GENERAL_CATEGORY_OTHER_LETTER:
    case HB_UNICODE_GENERAL_CATEGORY_TITLECASE_LETTER:
    case HB_UNICODE_GENERAL_CATEGORY_UPPERCASE_LETTER:
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_LETTER_NUMBER:
      return true;
    default:
      return false;
  }
}

Direction direction_of(char32_t character) {
  if (is_mark(character)) return Direction::kMark;
  if (category_of(character) == HB_UNICODE_GENERAL_CATEGORY_DECIMAL_NUMBER) {
    return Direction::kNumber;
  }
  if (!is_letter(character)) return Direction::kNeutral;
  const hb_script_t script = hb_unicode_script(hb_unicode_funcs_get_default(), character);
  return hb_script_get_horizontal_direction(script) == HB_DIRECTION_RTL ? Direction::kRightToLeft
                                                                        : Direction::kLeftToRight;
}

bool joins_digits(char32_t character) {
  constexpr std::u32string_view kSeparators = U".,:/+-";
  return kSeparators.find(character) != kSeparators.npos;
}

// Marks go with what they are on, and a separator between two digits with them.
std::vector<Direction> directions_of(const std::u32string& text) {
  std::vector<Direction> directions(text.size());
  std::transform(text.begin(), text.end(), directions.begin(), direction_of);
  Direction before = Direction::kNeutral;
  for (std::size_t i = 0; i < text.size(); ++i) {
    Direction& direction = directions[i];
    if (direction == Direction::kMark) direction = before;
    if (before == Direction::kNumber && joins_digits(text[i]) && i + 1 < text.size() &&
        directions[i + 1] == Direction::kNumber) {
      direction = Direction::kNumber;
    }
    before = direction;
  }
  return directions;
}

bool is_strong(Direction direction) {
  return direction == Direction::kLeftToRight || direction == Direction::kRightToLeft;
}

// A number is part of a text to the left where the letter before it is.
void resolve_numbers(std::vector<Direction>& directions, Direction base) {
  Direction strong = base;
  for (Direction& direction : directions) {
    if (is_strong(direction)) strong = direction;
    if (direction == Direction::kNumber && strong == Direction::kLeftToRight) direction = strong;
  }
}

// Neutral characters have the direction of those on both sides, or else of the line.
void resolve_neutrals(std::vector<Direction>& directions, Direction base) {
  const auto side = [&](std::size_t i) {
    if (i >= directions.size()) return base;
    return directions[i] == Direction::kNumber ? Direction::kRightToLeft : directions[i];
  };
  for (std::size_t begin = 0; begin < directions.size(); ++begin) {
    if (directions[begin] != Direction::kNeutral) continue;
    std::size_t end = begin;
    while (end < directions.size() && directions[end] == Direction::kNeutral) ++end;
    const Direction before = begin == 0 ? base : side(begin - 1);
    const Direction resolved = before == side(end) ? before : base;
    std::fill(directions.begin() + static_cast<std::ptrdiff_t>(begin),
              directions.begin() + static_cast<std::ptrdiff_t>(end), resolved);
    begin = end - 1;
  }
}

}  // namespace

std::u32string take_piece(std::string_view& line) {
  constexpr std::size_t kPiece = 200;
  std::u32string piece;
  std::size_t units = 0;
  while (!line.empty() && units < kPiece) {
    std::string_view rest = line;
    const char32_t character = take_character(rest);
    units += character > 0xFFFF ? 2 : 1;
    if (units > kPiece) break;
    piece += character;
    line = rest;
  }
  return piece;
}

std::vector<std::uint8_t> levels_of(const std::u32string& text) {
  std::vector<Direction> directions = directions_of(text);
  const auto first = std::find_if(directions.begin(), directions.end(), is_strong);
  const Direction base = first == directions.end() ? Direction::kLeftToRight : *first;
  resolve_numbers(directions, base);
  resolve_neutrals(directions, base);
  std::vector<std::uint8_t> levels;
  levels.reserve(text.size());
  for (const Direction direction : directions) {
    if (direction == Direction::kRightToLeft) {
      levels.push_back(1);
    } else {
      const bool is_inside = base == Direction::kRightToLeft || direction == Direction::kNumber;
      levels.push_back(is_inside ? 2 : 0);
    }
  }
  return levels;
}

}  // namespace kurv
