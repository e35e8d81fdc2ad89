#include "app/csv/date_spelling.h"

#include <KurvGraph/text.h>

#include <algorithm>

#include "app/csv/characters.h"

namespace kurv::app {

std::size_t start_of_time(std::string_view text, std::size_t colon) {
  const std::size_t before = text.find_last_not_of("0123456789", colon - 1);
  return before == text.npos ? 0 : before + 1;
}

std::string with_colons(std::string_view text) {
  constexpr std::size_t kBegin = 9;
  if (text.size() < kBegin + 4 || (text[kBegin - 1] != 'T' && text[kBegin - 1] != 't')) return {};
  const auto is_number = [&](std::size_t at, std::size_t count) {
    const std::string_view part = text.substr(at, count);
    return std::all_of(part.begin(), part.end(), is_digit);
  };
  if (!is_number(0, kBegin - 1) || !is_number(kBegin, 4)) return {};
  std::string result(text.substr(0, kBegin + 2));
  result.append(":").append(text.substr(kBegin + 2, 2));
  std::string_view rest = text.substr(kBegin + 4);
  if (rest.size() >= 2 && is_digit(rest[0]) && is_digit(rest[1])) {
    result.append(":").append(rest.substr(0, 2));
    rest.remove_prefix(2);
  }
  if (rest.starts_with(':')) return {};
  return result.append(rest);
}

std::string with_year_before_time(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::size_t last = text.find_last_of(' ');
  if (colon == text.npos || colon == 0 || last == text.npos || last < colon ||
      text.size() - last != 5)
    return {};
  const std::string_view year = text.substr(last + 1);
  if (!std::all_of(year.begin(), year.end(), is_digit)) return {};
  const std::size_t begin = start_of_time(text, colon);
  std::string day;
  for (const char c : text.substr(0, begin)) {
    if (c != ' ' || !day.ends_with(' ')) day.push_back(c);
  }
  const bool begins_with_name = !day.empty() && !is_digit(day.front());
  if (!begins_with_name || !day.ends_with(' ')) return {};
  return day.append(year).append(" ").append(trim_blanks(text.substr(begin, last - begin)));
}

std::string_view without_zone_name(std::string_view text) {
  const std::size_t open = text.ends_with(']') ? text.rfind('[') : text.npos;
  if (open == text.npos) return text;
  const std::string_view instant = trim_blanks(text.substr(0, open));
  const std::size_t colon = instant.find(':');
  const bool has_offset = colon != text.npos && instant.find_first_of("+-Z", colon) != text.npos;
  return has_offset ? instant : text;
}

}  // namespace kurv::app
