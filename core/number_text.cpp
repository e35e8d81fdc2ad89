#include <KurvGraph/number_text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>
#include <system_error>

#include "core/decimal.h"
#include "core/words.h"

namespace kurv {

namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

String plain_text(const Decimal& number) {
  const std::int64_t length = std::ssize(number.digits);
  const auto zeros = [](std::int64_t count) {
    return String(static_cast<std::size_t>(count), '0');
  };
  String text = number.negative ? "-" : "";
  if (number.point <= 0) return text + "0." + zeros(-number.point) + number.digits;
  if (number.point >= length) return text + number.digits + zeros(number.point - length);
  const auto whole = static_cast<std::size_t>(number.point);
  return text + number.digits.substr(0, whole) + "." + number.digits.substr(whole);
}

// The plain form is laid out here because std::to_chars would fill the places behind the shortest
// digits of a large Single with those of its exact value.
template <class Float>
String shortest_text(Float value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Inf" : "-Inf";
  if (value == 0) return "0";

  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::scientific);
  String text(buffer.data(), result.ptr);
  const Decimal number = parse_decimal(text).value();
  if (number.point > -5 && number.point <= 15) return plain_text(number);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

// The digits go behind "0." so that the exponent stays small: std::from_chars cuts long exponents
// off, and a text of a million digits may well carry one that belongs to it.
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

}  // namespace

String number_to_text(Double value) {
  return shortest_text(value);
}

String number_to_text(Single value) {
  return shortest_text(value);
}

std::optional<Double> text_to_number(std::string_view text) {
  text = without_outer_blanks(text);
  if (is_word(text, "nan")) return std::numeric_limits<Double>::quiet_NaN();
  if (is_word(text, "inf")) return kInfinity;
  if (is_word(text, "-inf")) return -kInfinity;
  const std::optional<Decimal> number = parse_decimal(text);
  if (!number) return std::nullopt;
  const Double magnitude = magnitude_of(*number);
  return number->negative ? -magnitude : magnitude;
}

}  // namespace kurv
