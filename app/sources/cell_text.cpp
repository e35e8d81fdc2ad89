#include "app/sources/cell_text.h"

#include <KurvGraph/number_text.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace kurv::app {

namespace {

constexpr std::int64_t kMillisecondsOfDay = 86'400'000;
// The days from 1970-01-01 back to the day before day 1 of 1900, and to day 0 of 1904.
constexpr std::int64_t kDay0Of1900 = -25568;
constexpr std::int64_t kDay0Of1904 = -24107;
// 9999-12-31 in the system of 1900. It counts a 29th of February 1900, which is day 60.
constexpr double kMaxDay = 2958466;
constexpr std::int64_t kNoDay = 60;

void append_padded(std::string& text, std::int64_t number, int digits) {
  std::string written = std::to_string(number);
  while (static_cast<int>(written.size()) < digits) written.insert(0, 1, '0');
  text += written;
}

void append_fraction(std::string& text, std::int64_t milliseconds) {
  if (milliseconds == 0) return;
  text += '.';
  append_padded(text, milliseconds, 3);
  text.erase(text.find_last_not_of('0') + 1);
}

void append_time(std::string& text, std::int64_t milliseconds) {
  append_padded(text, milliseconds / 3'600'000, 2);
  text += ':';
  append_padded(text, milliseconds / 60'000 % 60, 2);
  text += ':';
  append_padded(text, milliseconds / 1'000 % 60, 2);
  append_fraction(text, milliseconds % 1'000);
}

void append_date(std::string& text, std::int64_t days_since_1970) {
  const std::chrono::year_month_day date{
      std::chrono::sys_days{std::chrono::days{static_cast<int>(days_since_1970)}}};
  append_padded(text, static_cast<int>(date.year()), 4);
  text += '-';
  append_padded(text, static_cast<unsigned>(date.month()), 2);
  text += '-';
  append_padded(text, static_cast<unsigned>(date.day()), 2);
}

std::int64_t days_since_1970(std::int64_t day, DateSystem system) {
  if (system == DateSystem::k1904) return day + kDay0Of1904;
  return day + kDay0Of1900 - (day > kNoDay ? 1 : 0);
}

std::string shortest(double value) {
  std::string text;
  append_number(text, value);
  return text;
}

}  // namespace

std::string number_cell(std::string_view text) {
  const std::optional<double> value = text_to_number(text);
  return value ? shortest(*value) : std::string(text);
}

// Moves the decimal point of the shortest text instead of multiplying, because 0.07 * 100 is
// 7.000000000000001.
std::string percent_cell(std::string_view text) {
  const std::optional<double> value = text_to_number(text);
  if (!value || !std::isfinite(*value)) return std::string(text);
  char digits[32];
  const auto written =
      std::to_chars(digits, digits + sizeof digits, *value, std::chars_format::scientific);
  const std::string_view number(digits, static_cast<std::size_t>(written.ptr - digits));
  const std::size_t e = number.find('e');
  int exponent = 0;
  const std::size_t sign = number[e + 1] == '+' ? 1 : 0;
  std::from_chars(number.data() + e + 1 + sign, number.data() + number.size(), exponent);
  const std::string moved = std::string(number.substr(0, e)) + 'e' + std::to_string(exponent + 2);
  return number_cell(moved) + '%';
}

const char* boolean_cell(bool value) {
  return value ? "TRUE" : "FALSE";
}

std::optional<std::string> date_cell(double days, FormatKind kind, DateSystem system) {
  if (!(days >= 0 && days < kMaxDay)) return std::nullopt;
  const std::int64_t total = std::llround(days * static_cast<double>(kMillisecondsOfDay));
  const std::int64_t day = total / kMillisecondsOfDay;
  const std::int64_t time = total % kMillisecondsOfDay;
  std::string text;
  const bool is_time = kind == FormatKind::kTime && day == 0;
  // There is no day 0 in 1900, so it is a time alone, whatever the format is.
  if (kind == FormatKind::kDuration || is_time || (day == 0 && system == DateSystem::k1900)) {
    append_time(text, total);
    return text;
  }
  if (system == DateSystem::k1900 && day == kNoDay) return std::nullopt;
  append_date(text, days_since_1970(day, system));
  if (kind == FormatKind::kDate && time == 0) return text;
  text += 'T';
  append_time(text, time);
  return text;
}

std::string iso_cell(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point != std::string_view::npos &&
      text.find_first_not_of("0123456789", point + 1) == std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
  }
  return std::string(text);
}

std::string duration_cell(std::string_view text) {
  std::string_view rest = text;
  const bool is_negative = rest.starts_with('-');
  if (is_negative) rest.remove_prefix(1);
  if (!rest.starts_with('P')) return std::string(text);
  rest.remove_prefix(1);
  double seconds = 0;
  while (!rest.empty()) {
    if (rest.starts_with('T')) rest.remove_prefix(1);
    const std::size_t length = rest.find_first_not_of("0123456789.");
    if (length == 0 || length == std::string_view::npos) return std::string(text);
    const std::optional<double> number = text_to_number(rest.substr(0, length));
    const std::size_t unit = std::string_view("SMHD").find(rest[length]);
    if (!number || unit == std::string_view::npos) return std::string(text);
    constexpr double kSeconds[] = {1, 60, 3'600, 86'400};
    seconds += *number * kSeconds[unit];
    rest.remove_prefix(length + 1);
  }
  if (!(seconds < 1e12)) return std::string(text);
  std::string result = is_negative ? "-" : "";
  append_time(result, std::llround(seconds * 1'000));
  return result;
}

}  // namespace kurv::app
