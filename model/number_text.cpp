#include <KurvGraph/number_text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include <KurvGraph/text.h>

#include "model/decimal.h"
#include "model/plain_number.h"

namespace kurv {

namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

// How the digits of one number are laid out.
struct Form {
  char decimal_separator = '.';
  bool leading_zero = true;
};

// digits[0].digits[1..] times ten to the power of `exponent`, as plain digits.
void append_plain(String& text, std::string_view digits, int exponent, const Form& form) {
  const auto zeros = [&](int count) { text.append(static_cast<std::size_t>(count), '0'); };
  const int length = static_cast<int>(digits.size());
  if (exponent < 0) {
    if (form.leading_zero) text += '0';
    text += form.decimal_separator;
    zeros(-exponent - 1);
    text += digits;
  } else if (exponent + 1 >= length) {
    text += digits;
    zeros(exponent + 1 - length);
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    text += digits.substr(0, whole);
    text += form.decimal_separator;
    text += digits.substr(whole);
  }
}

// The exponent comes with its sign and its two or three digits.
void append_scientific(String& text, std::string_view digits, std::string_view exponent,
                       const Form& form) {
  text += digits.substr(0, 1);
  if (digits.size() > 1) {
    text += form.decimal_separator;
    text += digits.substr(1);
  }
  text += 'E';
  text += exponent;
}

// The magnitude of a finite number that is not zero. The plain form is laid out here because
// std::to_chars would fill the places after the shortest digits of a large Single with those of
// its exact value.
template <class Float>
void append_magnitude(String& text, Float value, const Form& form) {
  std::array<char, 32> buffer;
  char* const first = buffer.data();
  char* const last =
      std::to_chars(first, first + buffer.size(), value, std::chars_format::scientific).ptr;
  char* const mark = std::find(first, last, 'e');
  int exponent = 0;
  std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, last, exponent);

  // The first digit overwrites the point, so that all digits are adjacent.
  const bool has_point = first[1] == '.';
  if (has_point) first[1] = first[0];
  const char* const digits = has_point ? first + 1 : first;
  const std::string_view all(digits, static_cast<std::size_t>(mark - digits));
  if (exponent >= -5 && exponent < 15) {
    append_plain(text, all, exponent, form);
  } else {
    append_scientific(text, all, {mark + 1, static_cast<std::size_t>(last - mark - 1)}, form);
  }
}

template <class Float>
void append_shortest(String& text, Float value, const Form& form) {
  if (std::isnan(value)) {
    text += "NaN";
  } else if (value == 0) {
    text += '0';
  } else {
    if (value < 0) text += '-';
    if (std::isinf(value)) {
      text += "Inf";
    } else {
      append_magnitude(text, std::abs(value), form);
    }
  }
}

template <class Float>
String printed(Float value, char decimal_separator) {
  String text;
  if (!(value < 0)) text += ' ';
  append_shortest(text, value, {decimal_separator, false});
  text += ' ';
  return text;
}

// The digits follow "0.", so that the exponent is small: that of a text of a million digits may be
// too long for std::from_chars.
Double magnitude_of(const Decimal& number) {
  constexpr std::int64_t kLargestPoint = std::numeric_limits<Double>::max_exponent10 + 1;
  constexpr std::int64_t kSmallestPoint = -330;
  if (number.digits.empty() || number.point < kSmallestPoint) return 0;
  if (number.point > kLargestPoint) return kInfinity;

  const String text = "0." + number.digits + "e" + std::to_string(number.point);
  Double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) return number.point > 0 ? kInfinity : 0;
  return value;
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_plain_number(std::string_view text, Double& value) {
  return !text.empty() && read_plain_number(text, value) == text.size();
}

std::optional<Double> number_with_point(std::string_view text) {
  Double value = 0;
  if (is_plain_number(text, value)) return value;
  const std::optional<Decimal> number = parse_decimal(text);
  if (!number) return std::nullopt;
  const Double magnitude = magnitude_of(*number);
  return number->negative ? -magnitude : magnitude;
}

std::size_t count_digits(std::string_view text) {
  return std::min(text.find_first_not_of("0123456789"), text.size());
}

// How much of a text without blanks is its leading number; 0 where there is none.
std::size_t leading_number_length(std::string_view text) {
  const auto sign_at = [&](std::size_t at) {
    return at < text.size() && (text[at] == '+' || text[at] == '-');
  };
  std::size_t length = sign_at(0) ? 1 : 0;
  std::size_t digits = count_digits(text.substr(length));
  length += digits;
  if (length < text.size() && text[length] == '.') {
    const std::size_t fraction = count_digits(text.substr(length + 1));
    digits += fraction;
    length += 1 + fraction;
  }
  if (digits == 0) return 0;
  if (length < text.size() && (text[length] == 'e' || text[length] == 'E')) {
    const std::size_t power = sign_at(length + 1) ? length + 2 : length + 1;
    const std::size_t places = power < text.size() ? count_digits(text.substr(power)) : 0;
    if (places > 0) length = power + places;
  }
  return length;
}

}  // namespace

String number_to_text(Double value) {
  String text;
  append_shortest(text, value, {});
  return text;
}

String number_to_text(Single value) {
  String text;
  append_shortest(text, value, {});
  return text;
}

void append_number(String& text, Double value, char decimal_separator) {
  append_shortest(text, value, {decimal_separator});
}

String printed_number(Double value, char decimal_separator) {
  return printed(value, decimal_separator);
}

String printed_number(Single value, char decimal_separator) {
  return printed(value, decimal_separator);
}

std::optional<Double> text_to_number(std::string_view text, char decimal_separator) {
  // Nearly every number that comes in is read here, without making any copy of its text.
  Double value = 0;
  if (decimal_separator == '.' && is_plain_number(text, value)) return value;
  text = trim_blanks(text);
  if (equals_ignoring_case(text, "nan")) return std::numeric_limits<Double>::quiet_NaN();
  if (equals_ignoring_case(text, "inf")) return kInfinity;
  if (equals_ignoring_case(text, "-inf")) return -kInfinity;
  if (decimal_separator == '.') return number_with_point(text);
  if (text.find('.') != text.npos) return std::nullopt;
  String pointed(text);
  std::replace(pointed.begin(), pointed.end(), decimal_separator, '.');
  return number_with_point(pointed);
}

std::optional<Boolean> text_to_boolean(std::string_view text, char decimal_separator) {
  if (const std::optional<Boolean> word = word_to_boolean(text)) return word;
  const std::optional<Double> number = text_to_number(text, decimal_separator);
  if (!number) return std::nullopt;
  return Boolean(*number != 0);
}

Double leading_number(std::string_view text) {
  // Stops at the first character that cannot be part of a number, so a long text is not copied.
  String candidate;
  for (const char c : text) {
    if (c == ' ' || c == '\t') continue;
    if (!is_digit(c) && std::string_view("+-.eE").find(c) == std::string_view::npos) break;
    candidate += c;
  }
  candidate.resize(leading_number_length(candidate));
  return text_to_number(candidate).value_or(0);
}

}  // namespace kurv
