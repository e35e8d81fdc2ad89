#include "render/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>

#include <KurvGraph/number_text.h>

#include "model/decimal.h"
#include "render/number_pattern.h"

namespace kurv {

namespace {

using Kind = PatternItem::Kind;

// A number as a section shows it: rounded, and with its power of ten split off where it has one.
struct Rounded {
  Decimal mantissa;
  std::int64_t exponent = 0;
};

// A Double holds fifteen significant digits of any decimal number. Rounding starts from them, so
// that 1.005, whose Double is slightly smaller, is a tie as its reader expects.
Decimal fifteen_digits(Double value) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::scientific, 14);
  return parse_decimal({buffer.data(), result.ptr}).value();
}

void drop_trailing_zeros(Decimal& number) {
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) number.point = 0;
}

// Keeps the first `count` digits, which may be none or fewer, and rounds half away from zero.
void keep_digits(Decimal& number, std::int64_t count) {
  if (count >= std::ssize(number.digits)) return;
  const bool up = count >= 0 && number.digits[static_cast<std::size_t>(count)] >= '5';
  number.digits.resize(static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
  if (up) {
    while (!number.digits.empty() && number.digits.back() == '9') number.digits.pop_back();
    if (number.digits.empty()) {
      number.digits = "1";
      ++number.point;
    } else {
      ++number.digits.back();
    }
  }
  drop_trailing_zeros(number);
}

Rounded rounded_for(const PatternSection& section, Decimal number) {
  Rounded result{std::move(number)};
  Decimal& mantissa = result.mantissa;
  if (mantissa.digits.empty()) return result;

  mantissa.point += (section.percent ? 2 : 0) - 3 * section.thousands;
  if (section.has_exponent) {
    keep_digits(mantissa, section.integer_places + section.fraction_places);
    result.exponent = mantissa.point - section.integer_places;
    mantissa.point = section.integer_places;
  } else if (section.has_digit_places()) {
    keep_digits(mantissa, mantissa.point + section.fraction_places);
  }
  return result;
}

// Writes a rounded number item by item.
class NumberWriter {
 public:
  NumberWriter(const PatternSection& section, const Rounded& number)
      : m_section(section),
        m_number(number),
        m_integer_digits(std::max(number.mantissa.point, section.least_integer_digits)),
        m_fraction_digits(std::max(std::ssize(number.mantissa.digits) - number.mantissa.point,
                                   section.least_fraction_digits)),
        m_next_power(std::max(number.mantissa.point, section.integer_places)),
        m_places_left(section.integer_places) {}

  String text(bool minus) {
    if (minus) m_text += '-';
    for (const PatternItem& item : m_section.items) write(item);
    return std::move(m_text);
  }

 private:
  void write(const PatternItem& item) {
    switch (item.kind) {
      case Kind::kLiteral:
        m_text += item.literal;
        break;
      case Kind::kDigitPlace:
        write_digit_place();
        break;
      case Kind::kPoint:
        // Where the pattern has no integer places, the integer digits go right before the point.
        if (m_section.integer_places == 0 && m_section.has_digit_places()) write_integer_digits(0);
        m_text += item.literal;
        m_after_point = true;
        break;
      case Kind::kExponent:
        write_exponent(item.literal);
        break;
    }
  }

  // The first integer place takes all the digits for which there is no place before it.
  void write_digit_place() {
    if (m_after_point) {
      --m_next_power;
      if (-m_next_power <= m_fraction_digits) m_text += digit(m_next_power);
    } else {
      write_integer_digits(--m_places_left);
    }
  }

  void write_integer_digits(std::int64_t last_power) {
    while (m_next_power > last_power) {
      --m_next_power;
      if (m_next_power >= m_integer_digits) continue;
      m_text += digit(m_next_power);
      if (m_section.grouped && m_next_power > 0 && m_next_power % 3 == 0) m_text += ',';
    }
  }

  // The digit of ten to the power of `power`; zero beyond the digits on either side.
  char digit(std::int64_t power) const {
    const Decimal& mantissa = m_number.mantissa;
    const std::int64_t index = mantissa.point - 1 - power;
    if (index < 0 || index >= std::ssize(mantissa.digits)) return '0';
    return mantissa.digits[static_cast<std::size_t>(index)];
  }

  void write_exponent(char letter) {
    m_text += letter;
    if (m_number.exponent < 0) {
      m_text += '-';
    } else if (m_section.exponent_has_plus) {
      m_text += '+';
    }
    const String digits = std::to_string(std::abs(m_number.exponent));
    const std::int64_t padding = m_section.least_exponent_digits - std::ssize(digits);
    if (padding > 0) m_text.append(static_cast<std::size_t>(padding), '0');
    m_text += digits;
  }

  const PatternSection& m_section;
  const Rounded& m_number;
  std::int64_t m_integer_digits;   // how many are written before the point
  std::int64_t m_fraction_digits;  // and how many after it, where there are places
  std::int64_t m_next_power;       // one above the power of ten of the digit to write next
  std::int64_t m_places_left;      // integer places still to come
  bool m_after_point = false;
  String m_text;
};

// A section without text leaves its numbers to the first one.
const PatternSection& section_for(Double value, const PatternSections& sections) {
  const PatternSection& own = sections[value > 0 ? 0 : value < 0 ? 1 : 2];
  return own.given ? own : sections.front();
}

}  // namespace

String format_number(Double value, std::string_view pattern) {
  if (!std::isfinite(value)) return number_to_text(value);
  const PatternSections sections = parse_pattern(pattern);
  const PatternSection& section = section_for(value, sections);
  if (!section.given) return number_to_text(value);

  const Rounded number = rounded_for(section, fifteen_digits(value));
  // What rounds to zero is formatted as zero, with the section of zero too: a label that reads 0
  // must not have the marks of a negative value.
  if (value != 0 && number.mantissa.digits.empty()) return format_number(0, pattern);
  // A section for negative values shows by itself that they are negative.
  const bool minus = value < 0 && &section == &sections.front();
  return NumberWriter(section, number).text(minus);
}

}  // namespace kurv
