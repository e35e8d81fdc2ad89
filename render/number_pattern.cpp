#include "render/number_pattern.h"

#include <algorithm>
#include <utility>

namespace kurv {

namespace {

using Kind = PatternItem::Kind;

// Reads one section from the front of the pattern and leaves the pattern at the rest.
class SectionReader {
 public:
  explicit SectionReader(std::string_view& rest) : m_rest(rest) {}

  PatternSection read() {
    m_section.given = !m_rest.empty() && m_rest.front() != ';';
    while (!m_rest.empty()) {
      const char c = take();
      if (c == ';') break;
      read_item(c);
    }
    end_commas();
    return std::move(m_section);
  }

 private:
  char take() {
    const char c = m_rest.front();
    m_rest.remove_prefix(1);
    return c;
  }

  void add(Kind kind, char literal) { m_section.items.push_back({kind, literal}); }

  void read_item(char c) {
    if (c == '"') return read_quoted();
    if (c == '\\') return add(Kind::kLiteral, m_rest.empty() ? c : take());
    if (c == '%') m_section.percent = true;
    // An exponent ends the number: digit places after it would have no digits to show.
    if (m_section.has_exponent) return add(Kind::kLiteral, c);
    if (c == '0' || c == '#') return read_digit_place(c);
    if (c == '.' && !m_section.has_point) return read_point();
    if (c == ',' && m_section.has_digit_places()) {
      ++m_open_commas;
      return;
    }
    if ((c == 'E' || c == 'e') && starts_exponent()) return read_exponent(c);
    add(Kind::kLiteral, c);
  }

  // A quote that is not closed quotes the rest of the pattern.
  void read_quoted() {
    while (!m_rest.empty()) {
      const char c = take();
      if (c == '"') return;
      add(Kind::kLiteral, c);
    }
  }

  // Zeros are shown from the first `0` to the last, also at a `#` between them.
  void read_digit_place(char c) {
    if (m_open_commas > 0) m_section.grouped = true;
    m_open_commas = 0;
    if (m_section.has_point) {
      ++m_section.fraction_places;
      if (c == '0') m_section.least_fraction_digits = m_section.fraction_places;
    } else {
      ++m_section.integer_places;
      if (c == '0' || m_section.least_integer_digits > 0) ++m_section.least_integer_digits;
    }
    add(Kind::kDigitPlace, c);
  }

  void read_point() {
    end_commas();
    m_section.has_point = true;
    add(Kind::kPoint, '.');
  }

  // Commas without a digit place after them do not group: they scale.
  void end_commas() {
    m_section.thousands += m_open_commas;
    m_open_commas = 0;
  }

  bool starts_exponent() const {
    return m_section.has_digit_places() && (m_rest.starts_with("+0") || m_rest.starts_with("-0"));
  }

  void read_exponent(char letter) {
    end_commas();
    m_section.has_exponent = true;
    m_section.exponent_has_plus = take() == '+';
    const std::size_t zeros = std::min(m_rest.find_first_not_of('0'), m_rest.size());
    m_section.least_exponent_digits = static_cast<std::int64_t>(zeros);
    m_rest.remove_prefix(zeros);
    add(Kind::kExponent, letter);
  }

  std::string_view& m_rest;
  PatternSection m_section;
  // Commas after a digit place; the next character decides whether they group or scale.
  std::int64_t m_open_commas = 0;
};

}  // namespace

PatternSections parse_pattern(std::string_view pattern) {
  PatternSections sections;
  for (PatternSection& section : sections) section = SectionReader(pattern).read();
  return sections;
}

}  // namespace kurv
