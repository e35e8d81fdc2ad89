#include "model/decimal.h"

#include <charconv>
#include <iterator>
#include <system_error>

namespace kurv {

namespace {

constexpr std::int64_t kFarExponent = 1'000'000'000'000'000;

bool take_sign(std::string_view& text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  return negative;
}

std::string_view take_digits(std::string_view& text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
  text.remove_prefix(digits.size());
  return digits;
}

// exponent = [("e" | "E") [sign] digits], to the end of the text
std::optional<std::int64_t> parse_exponent(std::string_view text) {
  if (text.empty()) return 0;
  if (text.front() != 'e' && text.front() != 'E') return std::nullopt;
  text.remove_prefix(1);
  const bool negative = take_sign(text);
  const std::string_view digits = take_digits(text);
  if (digits.empty() || !text.empty()) return std::nullopt;

  std::int64_t exponent = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (result.ec != std::errc() || exponent > kFarExponent) exponent = kFarExponent;
  return negative ? -exponent : exponent;
}

Decimal normalised(std::string_view whole, std::string_view fraction, std::int64_t exponent) {
  Decimal number;
  number.digits.reserve(whole.size() + fraction.size());
  number.digits.append(whole).append(fraction);
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  if (number.digits.empty()) return number;

  const std::size_t leading_zeros = number.digits.find_first_not_of('0');
  number.digits.erase(0, leading_zeros);
  number.point = std::ssize(whole) - static_cast<std::int64_t>(leading_zeros) + exponent;
  return number;
}

}  // namespace

// number = [sign] (digits ["." [digits]] | "." digits) [exponent]
std::optional<Decimal> parse_decimal(std::string_view text) {
  const bool negative = take_sign(text);
  const std::string_view whole = take_digits(text);
  std::string_view fraction;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    fraction = take_digits(text);
  }
  if (whole.empty() && fraction.empty()) return std::nullopt;
  const std::optional<std::int64_t> exponent = parse_exponent(text);
  if (!exponent) return std::nullopt;

  Decimal number = normalised(whole, fraction, *exponent);
  number.negative = negative;
  return number;
}

}  // namespace kurv
