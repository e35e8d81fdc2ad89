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
  m_instants = m_instants && instant_of_digits(value);
  m_seconds = m_seconds && between(1);
  m_milliseconds = m_milliseconds && between(1000);
  if (m_any && value > m_last) ++m_ups;
  if (m_any && value < m_last) ++m_downs;
  m_last = value;
  m_any_pattern = m_days || m_instants || m_seconds || m_milliseconds;
}

// A few numbers out of order are late rows of a log.
bool NumberPattern::is_in_order() const {
  return std::min(m_ups, m_downs) * 4 <= std::max(m_ups, m_downs);
}

DateSurvey::Digits NumberPattern::dates(std::optional<DateOrder> chosen, std::string_view name,
                                        bool is_counted) const {
  using Digits = DateSurvey::Digits;
  if (!m_any || chosen == DateOrder::kNone) return Digits::kNone;
  if (is_counted && chosen == DateOrder::kUnixSeconds) return Digits::kUnixSeconds;
  if (is_counted && chosen == DateOrder::kUnixMilliseconds) return Digits::kUnixMilliseconds;
  const bool is_named = is_name_of_times(name);
  const bool are_different = m_ups + m_downs > 0;
  if (is_named || are_different || chosen == DateOrder::kYearFirst) {
    if (m_days) return Digits::kYearMonthDay;
    if (m_instants) return Digits::kYearMonthDayTime;
  }
  if (!is_in_order() || !is_named) return Digits::kNone;
  if (m_seconds) return Digits::kUnixSeconds;
  return m_milliseconds ? Digits::kUnixMilliseconds : Digits::kNone;
}

Double days_of_number(Double value, DateSurvey::Digits digits) {
  if (digits == DateSurvey::Digits::kUnixSeconds) return value / kSecondsPerDay;
  if (digits == DateSurvey::Digits::kUnixMilliseconds) return value / (1000 * kSecondsPerDay);
  if (digits == DateSurvey::Digits::kYearMonthDayTime)
    return instant_of_digits(value).value_or(std::numeric_limits<Double>::quiet_NaN());
  return days_of_digits(value).value_or(std::numeric_limits<Double>::quiet_NaN());
}

}  // namespace kurv::app
