#include "app/csv/line_fields.h"

#include <KurvGraph/text.h>

#include <algorithm>

#include "app/csv/characters.h"
#include "app/csv/table_options.h"

namespace kurv::app {

namespace {

constexpr std::string_view kDigits = "0123456789";

constexpr bool is_ascii_letter(char c) {
  return to_lower(c) >= 'a' && to_lower(c) <= 'z';
}

// Removes the first `length` bytes and the line end after them.
std::string_view take(std::string_view& text, std::size_t length) {
  const std::string_view line = text.substr(0, length);
  text.remove_prefix(length);
  if (text.starts_with("\r\n")) text.remove_prefix(1);
  if (!text.empty()) text.remove_prefix(1);
  return line;
}

std::string_view without_quotes(std::string_view field) {
  field = trim_blanks(field);
  if (field.size() < 2 || field.front() != '"' || field.back() != '"') return field;
  return trim_blanks(field.substr(1, field.size() - 2));
}

// A blank between digits separates groups of three, or a date from its time.
bool blanks_are_inside_values(std::string_view text) {
  if (text.find(' ') == text.npos || text.find(':') != text.npos) return true;
  for (std::size_t at = text.find(' '); at != text.npos; at = text.find(' ', at + 1)) {
    const std::string_view group = text.substr(at + 1, 3);
    if (group.size() != 3 || !std::all_of(group.begin(), group.end(), is_digit)) return false;
    if (at + 4 < text.size() && is_digit(text[at + 4])) return false;
  }
  return true;
}

}  // namespace

std::string_view take_line(std::string_view& text) {
  return take(text, std::min(text.find_first_of("\r\n"), text.size()));
}

std::string_view take_row(std::string_view& text) {
  bool in_quotes = false;
  bool after_quotes = false;
  bool at_start = true;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (in_quotes) {
      in_quotes = c != '"';
      after_quotes = !in_quotes;
      continue;
    }
    if (c == '\n' || c == '\r') return take(text, i);
    // A doubled quotation mark inside quotes, or a first one at the start of a field.
    in_quotes = c == '"' && (after_quotes || at_start);
    after_quotes = false;
    const bool separates = c == ',' || c == ';' || c == '\t' || c == '|';
    at_start = separates || (at_start && c == ' ');
  }
  return take(text, text.size());
}

bool are_one_time(std::string_view field, std::string_view next, bool with_dates) {
  const auto is_time = [](std::string_view text) {
    return text.find(':') != text.npos && text.front() >= '0' && text.front() <= '9';
  };
  if (field.size() < 4 || next.size() < 2) return false;
  if (equals_ignoring_case(next, "am") || equals_ignoring_case(next, "pm")) return is_time(field);
  if (!with_dates || !is_time(next) || is_time(field) || !looks_like_value(field)) return false;
  return std::count_if(field.begin(), field.end(),
                       [](char c) { return c == '-' || c == '/' || c == '.'; }) == 2;
}

std::vector<std::string_view> split_row(std::string_view row, char separator, bool with_dates) {
  std::vector<std::string_view> fields;
  std::size_t at = 0;
  const auto skip_blanks = [&] {
    while (at < row.size() && is_blank(row[at]) && row[at] != separator) ++at;
    while (separator == kBlanks && at < row.size() && is_blank(row[at])) ++at;
  };
  const auto separates = [&](char c) {
    return c == separator || (separator == kBlanks && c == '\t');
  };
  for (;;) {
    skip_blanks();
    if (separator == kBlanks && at == row.size()) return fields;
    const std::size_t begin = at;
    if (at < row.size() && row[at] == '"') {
      do {
        at = std::min(row.find('"', at + 1), row.size() - 1) + 1;
      } while (at < row.size() && row[at] == '"');
    }
    while (at < row.size() && !separates(row[at])) ++at;
    const std::string_view field = without_quotes(row.substr(begin, at - begin));
    if (separator == kBlanks && !fields.empty() && are_one_time(fields.back(), field, with_dates)) {
      const auto length =
          static_cast<std::size_t>(field.data() + field.size() - fields.back().data());
      fields.back() = {fields.back().data(), length};
    } else {
      fields.push_back(field);
    }
    if (at == row.size()) return fields;
    ++at;
  }
}

bool looks_like_value(std::string_view text) {
  constexpr std::string_view kCharacters = "0123456789.,:-/+ eETZ'";
  // Before a number there may be a sign, a currency or a bracket.
  constexpr std::size_t kLongestStart = 4;
  // The longest ones are dates with times and zones, and numbers with units.
  constexpr std::size_t kLongest = 40;
  constexpr std::size_t kLongestUnit = 8;
  if (text.empty() || text.size() > kLongest || text.front() == ',' || text.back() == ',') {
    return false;
  }
  const std::size_t first = text.find_first_of(kDigits);
  if (first == text.npos || first > kLongestStart) return false;
  const std::string_view start = text.substr(0, first);
  if (std::any_of(start.begin(), start.end(), is_ascii_letter)) return false;
  const std::size_t last = text.find_last_of(kDigits);
  const std::string_view unit = text.substr(last + 1);
  if (unit.size() > kLongestUnit || unit.find_first_of(",;|#_") != unit.npos) return false;
  const std::string_view value = text.substr(first, last + 1 - first);
  return value.find_first_not_of(kCharacters) == value.npos && blanks_are_inside_values(value);
}

bool is_rule(std::string_view line) {
  constexpr std::string_view kCharacters = "-=+|: \t";
  return (line.find("---") != line.npos || line.find("===") != line.npos) &&
         line.find_first_not_of(kCharacters) == line.npos;
}

}  // namespace kurv::app
