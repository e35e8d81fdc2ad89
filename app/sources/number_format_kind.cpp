#include "app/sources/number_format_kind.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <string>

namespace kurv::app {

namespace {

// What the first section of a format code shows.
struct Parts {
  bool has_percent = false;
  bool has_date = false;
  bool has_month_or_minute = false;
  bool has_time = false;
  bool has_elapsed = false;

  FormatKind kind() const {
    if (has_elapsed) return FormatKind::kDuration;
    const bool has_month = has_month_or_minute && !has_time;
    if (has_date || has_month) return has_time ? FormatKind::kDateTime : FormatKind::kDate;
    if (has_time) return FormatKind::kTime;
    return has_percent ? FormatKind::kPercent : FormatKind::kNumber;
  }
};

// "[h]", "[mm]", "[ss]" count beyond a day. Other brackets hold colours, conditions and languages.
bool is_elapsed(std::string_view bracket) {
  if (bracket.empty()) return false;
  const char unit = to_lower(bracket.front());
  return (unit == 'h' || unit == 'm' || unit == 's') &&
         std::all_of(bracket.begin(), bracket.end(), [&](char c) { return to_lower(c) == unit; });
}

// The length of what begins `code` and is shown as it is: "text", \c, a blank as wide as c (_c), a
// fill of c (*c), a bracket, AM/PM. 0 where it begins with something else.
std::size_t literal_length(std::string_view code) {
  const auto until = [&](char end) {
    const std::size_t found = code.find(end, 1);
    return found == std::string_view::npos ? code.size() : found + 1;
  };
  switch (code.front()) {
    case '"':
      return until('"');
    case '[':
      return until(']');
    case '\\':
    case '_':
    case '*':
      return std::min<std::size_t>(2, code.size());
    default:
      break;
  }
  for (const std::string_view word : {"general", "am/pm", "a/p"}) {
    if (equals_ignoring_case(code.substr(0, word.size()), word)) return word.size();
  }
  return 0;
}

void read_letter(char letter, Parts& parts) {
  switch (to_lower(letter)) {
    case '%':
      parts.has_percent = true;
      break;
    case 'y':
    case 'd':
      parts.has_date = true;
      break;
    case 'm':
      parts.has_month_or_minute = true;
      break;
    case 'h':
    case 's':
      parts.has_time = true;
      break;
    default:
      break;
  }
}

}  // namespace

FormatKind kind_of_format(std::string_view code) {
  Parts parts;
  while (!code.empty() && code.front() != ';') {
    const std::size_t literal = literal_length(code);
    if (literal == 0) {
      read_letter(code.front(), parts);
      code.remove_prefix(1);
      continue;
    }
    const std::string_view text = code.substr(0, literal);
    if (text.size() > 2 && text.front() == '[' && is_elapsed(text.substr(1, text.size() - 2))) {
      parts.has_elapsed = true;
    }
    if (to_lower(text.front()) == 'a') parts.has_time = true;  // AM/PM
    code.remove_prefix(literal);
  }
  return parts.kind();
}

FormatKind kind_of_built_in_format(unsigned id) {
  if (id == 9 || id == 10) return FormatKind::kPercent;
  if (id == 22) return FormatKind::kDateTime;
  if (id == 46) return FormatKind::kDuration;
  if ((id >= 18 && id <= 21) || id == 45 || id == 47) return FormatKind::kTime;
  // Those from 27 on are used in East Asia.
  if (id >= 32 && id <= 35) return FormatKind::kTime;
  if ((id >= 14 && id <= 17) || (id >= 27 && id <= 36) || (id >= 50 && id <= 58)) {
    return FormatKind::kDate;
  }
  return FormatKind::kNumber;
}

}  // namespace kurv::app
