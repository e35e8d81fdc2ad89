#include "app/csv/iso_date.h"

#include <chrono>
#include <cmath>

namespace kurv::app {

namespace {

namespace chrono = std::chrono;

constexpr double kMinutesPerDay = 24 * 60;

// Reads a text from its beginning; after the first mismatch good() stays false.
class Reader {
 public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  int digits(std::size_t count) {
    int value = 0;
    for (; count > 0; --count) {
      const char c = m_rest.empty() ? ' ' : m_rest.front();
      if (c < '0' || c > '9') m_good = false;
      if (!m_good) return 0;
      value = value * 10 + (c - '0');
      m_rest.remove_prefix(1);
    }
    return value;
  }

  // Whether the next character is one of these; then it is read.
  bool accept(std::string_view characters) {
    if (m_rest.empty() || characters.find(m_rest.front()) == std::string_view::npos) return false;
    m_rest.remove_prefix(1);
    return true;
  }

  void expect(std::string_view characters) {
    if (!accept(characters)) m_good = false;
  }

  // 0.25 from "25": at least one digit.
  double fraction() {
    double digit_value = 0.1;
    double value = digit_value * digits(1);
    while (m_good && !m_rest.empty() && m_rest.front() >= '0' && m_rest.front() <= '9') {
      digit_value /= 10;
      value += digit_value * digits(1);
    }
    return value;
  }

  bool at_end() const { return m_rest.empty(); }
  bool good() const { return m_good; }

 private:
  std::string_view m_rest;
  bool m_good = true;
};

// The offset from UTC in minutes, as in "+02", "+0200" and "+02:00"; nothing where it would be a
// day or more.
std::optional<int> read_utc_offset(Reader& reader) {
  if (reader.accept("Z")) return 0;
  const bool negative = reader.accept("-");
  if (!negative && !reader.accept("+")) return 0;
  const int hour = reader.digits(2);
  const bool has_minutes = reader.accept(":") || !reader.at_end();
  const int minute = has_minutes ? reader.digits(2) : 0;
  if (hour > 23 || minute > 59) return std::nullopt;
  return (negative ? -1 : 1) * (hour * 60 + minute);
}

// A time of day as a fraction of a day, negative or above 1 where the UTC offset moves it to
// another day; nothing for 24:00 and later.
std::optional<double> read_time(Reader& reader) {
  const int hour = reader.digits(2);
  reader.expect(":");
  const int minute = reader.digits(2);
  double second = 0;
  if (reader.accept(":")) {
    second = reader.digits(2);
    if (reader.accept(".,")) second += reader.fraction();
  }
  const std::optional<int> offset = read_utc_offset(reader);
  if (hour > 23 || minute > 59 || second >= 60 || !offset) return std::nullopt;
  return (hour * 60 + minute - *offset + second / 60) / kMinutesPerDay;
}

chrono::sys_days day_of(double days) {
  return chrono::sys_days(chrono::days(static_cast<int>(std::floor(days))));
}

double count(chrono::sys_days day) {
  return static_cast<double>(day.time_since_epoch().count());
}

std::string padded(unsigned value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

}  // namespace

std::optional<double> parse_iso_date(std::string_view text) {
  Reader reader(text);
  const chrono::year year(reader.digits(4));
  reader.expect("-");
  const chrono::month month(static_cast<unsigned>(reader.digits(2)));
  reader.expect("-");
  const chrono::day day(static_cast<unsigned>(reader.digits(2)));
  const chrono::year_month_day date(year, month, day);
  std::optional<double> time = 0;
  if (reader.good() && reader.accept("T ")) time = read_time(reader);
  if (!reader.good() || !reader.at_end() || !date.ok() || !time) return std::nullopt;
  return count(chrono::sys_days(date)) + *time;
}

double decimal_year(double days) {
  const chrono::year year = chrono::year_month_day(day_of(days)).year();
  const double start = count(chrono::sys_days(year / chrono::January / 1));
  const double end = count(chrono::sys_days((year + chrono::years(1)) / chrono::January / 1));
  return static_cast<int>(year) + (days - start) / (end - start);
}

std::string iso_date_text(double days) {
  const chrono::year_month_day date(day_of(days));
  return padded(static_cast<unsigned>(static_cast<int>(date.year())), 4) + '-' +
         padded(static_cast<unsigned>(date.month()), 2) + '-' +
         padded(static_cast<unsigned>(date.day()), 2);
}

bool within_two_years(double first_days, double last_days) {
  const chrono::sys_days first = day_of(first_days);
  // Two years after the 29th of February is the 1st of March.
  const chrono::sys_days limit(chrono::year_month_day(first) + chrono::years(2));
  return last_days - first_days < static_cast<double>((limit - first).count());
}

}  // namespace kurv::app
