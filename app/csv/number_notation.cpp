#include "app/csv/number_notation.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "app/csv/characters.h"

namespace kurv::app {

namespace {

constexpr std::string_view kMinus = "\u2212";
// What typesetters write for it.
constexpr std::string_view kEnDash = "\u2013";

std::size_t minus_length(std::string_view text) {
  if (text.starts_with('-')) return 1;
  for (const std::string_view minus : {kMinus, kEnDash}) {
    if (text.starts_with(minus)) return minus.size();
  }
  return 0;
}

// Removes the minus sign that bookkeepers write after a number; false without one.
bool take_trailing_minus(std::string_view& text) {
  if (text.empty() || !is_digit(text.front())) return false;
  for (const std::string_view minus : {std::string_view("-"), kMinus, kEnDash}) {
    if (!text.ends_with(minus)) continue;
    text.remove_suffix(minus.size());
    return is_digit(text.back());
  }
  return false;
}

std::size_t thousands_length(std::string_view text, char thousands) {
  if (text.empty() || thousands == '\0') return 0;
  if (thousands == ' ') return blank_length(text);
  if (thousands == '\'') return apostrophe_length(text);
  return text.front() == thousands ? 1 : 0;
}

// The number as text_to_number() reads it: without groups, with a decimal point.
class PlainText {
 public:
  PlainText(std::string_view text, const NumberNotation& notation) {
    m_good = take_sign(text) && take_groups(text, notation) && take_fraction(text, notation) &&
             take_exponent(text);
  }

  std::optional<Double> value() const {
    return m_good ? text_to_number({m_text.data(), m_size}) : std::nullopt;
  }

 private:
  bool append(std::string_view text) {
    if (text.size() > m_text.size() - m_size) return false;
    std::copy(text.begin(), text.end(), m_text.begin() + static_cast<std::ptrdiff_t>(m_size));
    m_size += text.size();
    return true;
  }

  bool take_sign(std::string_view& text) {
    if (const std::size_t length = minus_length(text)) {
      text.remove_prefix(length);
      return append("-");
    }
    if (!text.starts_with('+')) return true;
    const bool done = append(text.substr(0, 1));
    text.remove_prefix(1);
    return done;
  }

  bool take_digits(std::string_view& text, std::size_t& count) {
    count = 0;
    while (count < text.size() && is_digit(text[count])) ++count;
    const bool done = append(text.substr(0, count));
    text.remove_prefix(count);
    return done;
  }

  bool take_groups(std::string_view& text, const NumberNotation& notation) {
    std::size_t digits = 0;
    if (!take_digits(text, digits)) return false;
    if (digits == 0 || digits > 3) return true;
    while (const std::size_t length = thousands_length(text, notation.thousands)) {
      text.remove_prefix(length);
      if (!take_digits(text, digits) || digits != 3) return false;
    }
    return true;
  }

  bool take_fraction(std::string_view& text, const NumberNotation& notation) {
    if (text.empty() || text.front() != notation.decimal) {
      return text.empty() || (text.front() != '.' && text.front() != ',');
    }
    text.remove_prefix(1);
    std::size_t digits = 0;
    return append(".") && take_digits(text, digits);
  }

  // Some programs write "D" for double precision.
  bool take_exponent(std::string_view text) {
    const bool is_double = (text.starts_with('D') || text.starts_with('d')) && text.size() > 1 &&
                           m_size > 0 &&
                           (is_digit(m_text[m_size - 1]) || m_text[m_size - 1] == '.');
    if (!is_double) return append(text);
    return append("E") && append(text.substr(1));
  }

  std::array<char, 80> m_text;
  std::size_t m_size = 0;
  bool m_good = false;
};

constexpr std::array<std::string_view, 13> kCurrencies{
    "\u20AC", "$", "\u00A3", "\u00A5", "EUR", "USD", "GBP", "CHF", "JPY", "US$", "kr", "Fr.", "R$"};

// The length of the number that the text begins with, as far as its characters show.
std::size_t number_length(std::string_view text, const NumberNotation& notation) {
  std::size_t at = minus_length(text);
  if (at == 0 && text.starts_with('+')) at = 1;
  for (;;) {
    if (at < text.size() && (is_digit(text[at]) || text[at] == '.' || text[at] == ',')) {
      ++at;
      continue;
    }
    const std::size_t length = thousands_length(text.substr(at), notation.thousands);
    if (length == 0 || at + length >= text.size() || !is_digit(text[at + length])) break;
    at += length;
  }
  // An exponent has digits; otherwise the letter belongs to the unit.
  if (at > 0 && at + 1 < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t digits = at + 1;
    if (text[digits] == '-' || text[digits] == '+') ++digits;
    std::size_t end = digits;
    while (end < text.size() && is_digit(text[end])) ++end;
    if (end > digits) at = end;
  }
  return at;
}

}  // namespace

bool is_unit_of_cell(std::string_view text) {
  constexpr std::size_t kLongest = 14;
  if (text.empty() || text.size() > kLongest || minus_length(text) > 0) return false;
  const auto is_letter = [](char c) {
    const char lower = to_lower(c);
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(c) >= 0x80;
  };
  if (!is_letter(text.front()) && text.front() != '%' && text.front() != '$') return false;
  while (!text.empty() && is_digit(text.back())) text.remove_suffix(1);
  if (text.ends_with(' ')) return false;
  return std::all_of(text.begin(), text.end(), [&](char c) {
    return is_letter(c) || c == '%' || c == '$' || c == '/' || c == ' ' || c == '^' || c == '*' ||
           c == '-' || c == '"' || c == '\'';
  });
}

namespace {

// Digits directly before letters and digits are those of an identifier, except an exponent of one
// digit: "5m2" is an area, "0x10" and "5A10" are none.
bool is_identifier(std::string_view text, std::string_view rest) {
  if (rest.empty() || text.size() == rest.size()) return false;
  const bool is_hexadecimal = text.size() - rest.size() == 1 && text.front() == '0' &&
                              (rest.front() == 'x' || rest.front() == 'X');
  const auto digits = std::count_if(rest.begin(), rest.end(), is_digit);
  return is_hexadecimal || digits > 1;
}

// "(12.50)", "$(12.50)" and "($12.50)".
std::optional<Quantity> read_in_brackets(std::string_view text, const NumberNotation& notation) {
  std::string_view currency = take_currency(text);
  if (text.size() < 3 || text.front() != '(' || text.back() != ')') return std::nullopt;
  text = text.substr(1, text.size() - 2);
  if (currency.empty()) currency = take_currency(text);
  const bool begins_as_number =
      !text.empty() && (is_digit(text.front()) || text.front() == notation.decimal);
  const std::optional<Double> value = begins_as_number ? read_number(text, notation) : std::nullopt;
  if (!value) return std::nullopt;
  return Quantity{-*value, currency};
}

}  // namespace

std::size_t blank_length(std::string_view text) {
  if (text.starts_with(' ')) return 1;
  for (const std::string_view blank : {"\u00A0", "\u2009", "\u202F"}) {
    if (text.starts_with(blank)) return blank.size();
  }
  return 0;
}

std::string_view take_currency(std::string_view& text) {
  for (const std::string_view currency : kCurrencies) {
    if (!text.starts_with(currency)) continue;
    text.remove_prefix(currency.size());
    while (const std::size_t length = blank_length(text)) text.remove_prefix(length);
    return currency;
  }
  return {};
}

std::size_t apostrophe_length(std::string_view text) {
  constexpr std::string_view kTypographic = "\u2019";
  if (text.starts_with('\'')) return 1;
  return text.starts_with(kTypographic) ? kTypographic.size() : 0;
}

std::optional<Double> read_number(std::string_view text, const NumberNotation& notation) {
  if (notation.decimal == '.') {
    if (const std::optional<Double> value = text_to_number(text)) return value;
  }
  if (!take_trailing_minus(text)) return PlainText(text, notation).value();
  const std::optional<Double> value = PlainText(text, notation).value();
  return value ? std::optional(-*value) : std::nullopt;
}

std::optional<Quantity> read_quantity(std::string_view text, const NumberNotation& notation) {
  // Bookkeepers write negative numbers in brackets.
  if (const std::optional<Quantity> amount = read_in_brackets(text, notation)) return amount;
  const bool negative = text.starts_with('-');
  std::string_view rest = text.substr(negative ? 1 : 0);
  const std::string_view currency = take_currency(rest);
  if (currency.empty()) rest = text;
  const std::size_t length = number_length(rest, notation);
  if (length == 0) return std::nullopt;
  const std::optional<Double> value = read_number(rest.substr(0, length), notation);
  if (!value) return std::nullopt;
  const std::string_view number = rest;
  rest.remove_prefix(length);
  if (is_identifier(number, rest) && rest.find_first_of(" /^") == rest.npos) return std::nullopt;
  while (const std::size_t blank = blank_length(rest)) rest.remove_prefix(blank);
  if (!currency.empty()) {
    if (!rest.empty()) return std::nullopt;
    return Quantity{negative ? -*value : *value, currency};
  }
  if (!is_unit_of_cell(rest)) return std::nullopt;
  return Quantity{*value, rest};
}

}  // namespace kurv::app
