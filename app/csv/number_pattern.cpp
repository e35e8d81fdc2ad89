#include "app/csv/number_pattern.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <limits>

#include "app/csv/date_text.h"

namespace kurv::app {

namespace {

// The beginnings of the years 2000 and 2040.
constexpr double kFirstSecond = 946684800;
constexpr double kLastSecond = 2208988800;

bool is_name_of_times(std::string_view name) {
  constexpr std::array<std::string_view, 9> kWords{"time", "date",  "epoch", "unix", "stamp",
                                                   "zeit", "datum", "heure", "fecha"};
  const std::string lower = to_lower(name);
  return lower == "t" || lower == "ts" || lower == "x" ||
         std::any_of(kWords.begin(), kWords.end(),
                     [&](std::string_view word) { return lower.find(word) != std::string::npos; });
}

}  // namespace

void NumberPattern::check(Double value) {
  const auto between = [&](double scale) {
    return value >= kFirstSecond * scale && value < kLastSecond * scale;
  };
  m_days = m_days && days_of_digits(value);
  m_seconds = m_seconds && between(1);
  m_milliseconds = m_milliseconds && between(1000);
  if (!m_any) m_first = value;
  m_ascending = m_ascending && value >= m_last;
  m_last = value;
  m_any_pattern = m_days || m_seconds || m_milliseconds;
}

DateSurvey::Digits NumberPattern::dates(std::optional<DateOrder> chosen, std::string_view name,
                                        std::size_t column) const {
  using Digits = DateSurvey::Digits;
  if (!m_any || chosen == DateOrder::kNone) return Digits::kNone;
  if (column == 0 && chosen == DateOrder::kUnixSeconds) return Digits::kUnixSeconds;
  if (column == 0 && chosen == DateOrder::kUnixMilliseconds) return Digits::kUnixMilliseconds;
  const bool is_named = is_name_of_times(name);
  if (m_days && (is_named || (m_ascending && m_last > m_first))) return Digits::kYearMonthDay;
  if (!m_ascending || !is_named) return Digits::kNone;
  if (m_seconds) return Digits::kUnixSeconds;
  return m_milliseconds ? Digits::kUnixMilliseconds : Digits::kNone;
}

Double days_of_number(Double value, DateSurvey::Digits digits) {
  if (digits == DateSurvey::Digits::kUnixSeconds) return value / kSecondsPerDay;
  if (digits == DateSurvey::Digits::kUnixMilliseconds) return value / (1000 * kSecondsPerDay);
  return days_of_digits(value).value_or(std::numeric_limits<Double>::quiet_NaN());
}

}  // namespace kurv::app
