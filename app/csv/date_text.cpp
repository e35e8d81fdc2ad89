#include "app/csv/date_text.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "app/csv/characters.h"
#include "app/csv/date_spelling.h"
#include "app/csv/month_names.h"
#include "app/csv/time_axis.h"

namespace kurv::app {

namespace {

namespace chrono = std::chrono;

constexpr bool is_letter(char c) {
  const char lower = to_lower(c);
  return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

// A number or a name in a date.
struct Part {
  std::string_view text;
  int number = -1;  // of the digits; -1 for a name
  // The characters before it.
  std::string_view separator;

  bool is_name() const { return number < 0; }
  bool is_year() const { return !is_name() && text.size() == 4; }
  bool is_short_year() const { return !is_name() && text.size() == 2; }
  bool is_day_or_month() const { return !is_name() && text.size() <= 2; }
};

constexpr std::size_t kMaxParts = 4;
using Parts = std::vector<Part>;

// Splits "31. Dec 2012" into three parts; nothing where a part or a separator is of no date.
std::optional<Parts> split_date(std::string_view text) {
  constexpr std::size_t kLongestNumber = 8;
  Parts parts;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t before = at;
    while (at < text.size() && !is_digit(text[at]) && !is_letter(text[at])) ++at;
    Part part;
    part.separator = text.substr(before, at - before);
    if (part.separator.size() > 2) return std::nullopt;
    const std::size_t begin = at;
    if (at < text.size() && is_digit(text[at])) {
      while (at < text.size() && is_digit(text[at])) ++at;
      if (at - begin > kLongestNumber) return std::nullopt;
      part.number = 0;
      for (const char c : text.substr(begin, at - begin))
        part.number = part.number * 10 + (c - '0');
    } else {
      while (at < text.size() && is_letter(text[at])) ++at;
    }
    part.text = text.substr(begin, at - begin);
    if (part.text.empty() || parts.size() == kMaxParts) return std::nullopt;
    parts.push_back(part);
  }
  return parts;
}

bool is_one_of(std::string_view separator, std::string_view characters) {
  return separator.size() == 1 && characters.find(separator.front()) != characters.npos;
}

int full_year(const Part& part) {
  if (part.text.size() == 4) return part.number;
  return part.number + (part.number < 70 ? 2000 : 1900);
}

std::optional<DateValue> day_of(int year, unsigned month, int day) {
  const chrono::year_month_day date{chrono::year(year), chrono::month(month),
                                    chrono::day(static_cast<unsigned>(day))};
  if (day < 1 || !date.ok()) return std::nullopt;
  const auto days = chrono::sys_days(date).time_since_epoch().count();
  return DateValue{static_cast<double>(days), DateKind::kDay};
}

std::optional<DateValue> month_of(int year, unsigned month) {
  std::optional<DateValue> result = day_of(year, month, 1);
  if (result) result->kind = DateKind::kMonth;
  return result;
}

// Three numbers with the same separator, "/", "." or "-".
std::optional<DateValue> numbers(const Parts& parts, DateOrder order) {
  const std::string_view separator = parts[1].separator;
  if (!is_one_of(separator, "/.-") || parts[2].separator != separator) return std::nullopt;
  const auto date = [](const Part& year, const Part& month, const Part& day) {
    return day_of(full_year(year), static_cast<unsigned>(month.number), day.number);
  };
  const bool days_are_short = parts[1].is_day_or_month();
  if (!days_are_short) return std::nullopt;
  if (parts[0].is_year() && parts[2].is_day_or_month()) return date(parts[0], parts[1], parts[2]);
  if (!parts[0].is_day_or_month()) return std::nullopt;
  if (!parts[2].is_year() && !parts[2].is_short_year()) return std::nullopt;
  if (order == DateOrder::kYearFirst && parts[2].is_short_year() && parts[0].is_short_year()) {
    return date(parts[0], parts[1], parts[2]);
  }
  // With points the day is first everywhere.
  if (order == DateOrder::kMonthFirst && separator != ".")
    return date(parts[2], parts[0], parts[1]);
  return date(parts[2], parts[1], parts[0]);
}

bool are_separators_of_names(const Parts& parts) {
  return std::all_of(parts.begin() + 1, parts.end(), [](const Part& part) {
    const std::string_view separator = part.separator;
    return separator.empty() || is_one_of(separator, " -/.,") || separator == ". " ||
           separator == ", " || separator == ".-";
  });
}

// Of "31 Dec 2012", "Dec 31, 2012", "2012-Dec-31", "Dec 2012" and "Q1 2012".
std::optional<DateValue> with_name(const Parts& parts) {
  if (!are_separators_of_names(parts)) return std::nullopt;
  if (parts.size() == 3) {
    for (std::size_t i = 0; i < 2; ++i) {
      if (!parts[i].is_name()) continue;
      const std::optional<unsigned> month = month_named(parts[i].text);
      const Part& other = parts[1 - i];
      if (!month) {
        // "2012-Q1" and "Q1 2012" have three parts, too.
        const bool quarter =
            equals_ignoring_case(parts[i].text, "q") && parts[i + 1].separator.empty();
        const Part& year = i == 0 ? parts[2] : parts[0];
        if (!quarter || !year.is_year() || parts[i + 1].number < 1 || parts[i + 1].number > 4) {
          return std::nullopt;
        }
        return month_of(year.number, static_cast<unsigned>(parts[i + 1].number) * 3 - 2);
      }
      if (other.is_name() || parts[2].is_name()) return std::nullopt;
      if (other.is_year() && parts[2].is_day_or_month())
        return day_of(other.number, *month, parts[2].number);
      if (!other.is_day_or_month() || (!parts[2].is_year() && !parts[2].is_short_year()))
        return std::nullopt;
      return day_of(full_year(parts[2]), *month, other.number);
    }
    return std::nullopt;
  }
  if (parts.size() != 2) return std::nullopt;
  const Part& name = parts[0].is_name() ? parts[0] : parts[1];
  const Part& year = parts[0].is_name() ? parts[1] : parts[0];
  const std::optional<unsigned> month = name.is_name() ? month_named(name.text) : std::nullopt;
  if (!month || year.is_name()) return std::nullopt;
  // "Dec-12" is a month of 2012, but "12-Dec" is a day without a year.
  if (!year.is_year() && !(year.is_short_year() && parts[0].is_name())) return std::nullopt;
  return month_of(full_year(year), *month);
}

std::optional<DateValue> parse_day(std::string_view text, DateOrder order) {
  constexpr std::size_t kLongest = 40;
  if (text.empty() || text.size() > kLongest) return std::nullopt;
  std::optional<Parts> parts = split_date(text);
  if (!parts || parts->empty() || !parts->front().separator.empty()) return std::nullopt;
  if (parts->size() > 2 && parts->front().is_name() && is_weekday_name(parts->front().text) &&
      !month_named(parts->front().text)) {
    parts->erase(parts->begin());
  }
  const bool named =
      std::any_of(parts->begin(), parts->end(), [](const Part& part) { return part.is_name(); });
  if (named) return with_name(*parts);
  if (parts->size() == 3) return numbers(*parts, order);
  if (parts->size() == 1 && text.size() == 8) {
    const std::optional<double> days = days_of_digits(parts->front().number);
    return days ? std::optional(DateValue{*days, DateKind::kDay}) : std::nullopt;
  }
  if (parts->size() != 2 || !is_one_of((*parts)[1].separator, "-/.")) return std::nullopt;
  const Part& first = parts->front();
  const Part& second = parts->back();
  if (first.is_year() && second.text.size() == 2)
    return month_of(first.number, static_cast<unsigned>(second.number));
  // With a point, it is rather a number.
  const bool is_number = second.separator == "." &&
                         (first.text.size() != 2 || second.number < 1800 || second.number > 2199);
  if (second.is_year() && first.is_day_or_month() && !is_number)
    return month_of(second.number, static_cast<unsigned>(first.number));
  return std::nullopt;
}

// Reads "12:34:56.5" and what may follow it.
class TimeReader {
 public:
  explicit TimeReader(std::string_view text) : m_rest(text) {}

  // As a part of a day; a UTC offset may move it to another day. An elapsed time may have more than
  // 23 hours where it has seconds: "75:30" could be minutes and seconds.
  std::optional<double> read(bool may_be_elapsed) {
    const std::optional<int> hour = number(1, may_be_elapsed ? 4 : 2);
    const bool has_minutes = hour && accept(':');
    const std::optional<int> minute = has_minutes ? number(2, 2) : std::nullopt;
    if (!minute || *minute > 59) return std::nullopt;
    double second = 0;
    const bool has_seconds = accept(':');
    if (has_seconds) {
      const std::optional<int> whole = number(2, 2);
      if (!whole || *whole > 59) return std::nullopt;
      second = *whole;
      if (accept('.') || accept(',')) {
        const std::optional<double> part = fraction();
        if (!part) return std::nullopt;
        second += *part;
      }
    }
    const bool elapsed = may_be_elapsed && has_seconds && m_rest.empty();
    const std::optional<int> full_hour = elapsed ? hour : half_day(*hour);
    const std::optional<int> offset = zone();
    if (!full_hour || !offset || !m_rest.empty()) return std::nullopt;
    return (*full_hour * 60 + *minute - *offset + second / 60) / (24.0 * 60);
  }

 private:
  bool accept(char c) {
    if (!m_rest.starts_with(c)) return false;
    m_rest.remove_prefix(1);
    return true;
  }

  std::optional<int> number(std::size_t least, std::size_t most) {
    std::size_t digits = 0;
    int value = 0;
    while (digits < std::min(most, m_rest.size()) && is_digit(m_rest[digits])) {
      value = value * 10 + (m_rest[digits++] - '0');
    }
    if (digits < least) return std::nullopt;
    m_rest.remove_prefix(digits);
    return value;
  }

  std::optional<double> fraction() {
    if (m_rest.empty() || !is_digit(m_rest.front())) return std::nullopt;
    double value = 0;
    for (double place = 0.1; !m_rest.empty() && is_digit(m_rest.front()); place /= 10) {
      value += place * (m_rest.front() - '0');
      m_rest.remove_prefix(1);
    }
    return value;
  }

  // The hour of the day from that of a half day, where "AM" or "PM" follows.
  std::optional<int> half_day(int hour) {
    const std::string_view text = trim_blanks(m_rest);
    for (const std::string_view half : {"am", "pm", "a.m.", "p.m."}) {
      if (!equals_ignoring_case(text.substr(0, half.size()), half)) continue;
      m_rest = text.substr(half.size());
      if (hour < 1 || hour > 12) return std::nullopt;
      return hour % 12 + (half.front() == 'p' ? 12 : 0);
    }
    return hour <= 23 ? std::optional(hour) : std::nullopt;
  }

  // The UTC offset in minutes.
  std::optional<int> zone() {
    const std::string_view text = trim_blanks(m_rest);
    for (const std::string_view utc : {"Z", "z", "UTC", "GMT"}) {
      if (text != utc) continue;
      m_rest = {};
      return 0;
    }
    const bool west = text.starts_with('-');
    if (!west && !text.starts_with('+')) return 0;
    m_rest = text.substr(1);
    const std::optional<int> hour = number(2, 2);
    const bool has_minutes = accept(':') || !m_rest.empty();
    const std::optional<int> minute = has_minutes ? number(2, 2) : std::optional(0);
    if (!hour || !minute || *hour > 23 || *minute > 59) return std::nullopt;
    return (west ? -1 : 1) * (*hour * 60 + *minute);
  }

  std::string_view m_rest;
};

std::optional<DateValue> parse_instant(std::string_view text, std::size_t colon, DateOrder order) {
  if (colon == 0) return std::nullopt;
  const std::size_t begin = start_of_time(text, colon);
  const std::optional<double> time = TimeReader(text.substr(begin)).read(begin == 0);
  if (!time) return std::nullopt;
  if (begin == 0) return DateValue{*time, DateKind::kTimeOfDay};
  std::string_view day = text.substr(0, begin);
  const char before = day.back();
  if (before != ' ' && before != 'T' && before != 't' && before != ',' && before != '_') {
    return std::nullopt;
  }
  day = trim_blanks(day.substr(0, day.size() - 1));
  if (day.ends_with(',')) day.remove_suffix(1);
  std::optional<DateValue> result = parse_day(day, order);
  if (!result || result->kind != DateKind::kDay) return std::nullopt;
  return DateValue{result->days + *time, DateKind::kInstant};
}

}  // namespace

std::optional<DateValue> parse_date(std::string_view text, DateOrder order) {
  constexpr std::size_t kLongest = 64;
  if (order == DateOrder::kNone || text.size() > kLongest) return std::nullopt;
  // Most words have no digit.
  if (std::none_of(text.begin(), text.end(), is_digit)) return std::nullopt;
  const std::size_t colon = text.find(':');
  if (colon == text.npos) {
    const std::string instant = with_colons(text);
    return instant.empty() ? parse_day(text, order) : parse_instant(instant, 11, order);
  }
  text = without_zone_name(text);
  if (const std::string moved = with_year_before_time(text); !moved.empty())
    return parse_instant(moved, moved.find(':'), order);
  return parse_instant(text, colon, order);
}

std::optional<double> days_of_digits(double value) {
  constexpr double kFirst = 19000101;
  constexpr double kLast = 20991231;
  if (!(value >= kFirst && value <= kLast) || value != std::floor(value)) return std::nullopt;
  const int digits = static_cast<int>(value);
  const std::optional<DateValue> day =
      day_of(digits / 10000, static_cast<unsigned>(digits / 100 % 100), digits % 100);
  return day ? std::optional(day->days) : std::nullopt;
}

std::optional<double> instant_of_digits(double value) {
  constexpr double kClock = 1000000;
  const std::optional<double> day = days_of_digits(std::floor(value / kClock));
  if (!day || value != std::floor(value)) return std::nullopt;
  const int clock = static_cast<int>(std::fmod(value, kClock));
  const int hour = clock / 10000;
  const int minute = clock / 100 % 100;
  const int second = clock % 100;
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return *day + ((hour * 60 + minute) * 60 + second) / kSecondsPerDay;
}

std::optional<NumericDate> numeric_date(std::string_view text) {
  std::array<int, 3> values{};
  std::size_t at = 0;
  char separator = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t most = i == 2 ? 4 : 2;
    std::size_t digits = 0;
    while (at < text.size() && digits < most && is_digit(text[at])) {
      values[i] = values[i] * 10 + (text[at++] - '0');
      ++digits;
    }
    if (digits == 0 || (i == 2 && digits != 2 && digits != 4)) return std::nullopt;
    if (i == 2) {
      if (at < text.size() && text[at] != ' ' && text[at] != 'T' && text[at] != ',') {
        return std::nullopt;
      }
      if (digits == 2) values[i] += values[i] < 70 ? 2000 : 1900;
      break;
    }
    if (at == text.size() || (text[at] != '/' && text[at] != '-' && text[at] != '.')) {
      return std::nullopt;
    }
    if (i == 1 && text[at] != separator) return std::nullopt;
    separator = text[at++];
  }
  return NumericDate{values[0], values[1], values[2], separator};
}

}  // namespace kurv::app
