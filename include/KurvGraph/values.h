/// @file
/// The value types of the control's interface, and the checked operations on them.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <variant>

#include <KurvGraph/arrays.h>

/// The control, the widget and all that belongs to them.
namespace kurv {

using Integer = std::int16_t;  ///< 16 bits, signed
using Single = float;          ///< IEEE 754, 32 bits
using Double = double;         ///< IEEE 754, 64 bits; NaN is a missing value
using String = std::string;    ///< UTF-8

/// Sixteen bits, of which True has all set and False has none.
///
/// Other bit patterns come in from hosts and files and are kept: "non-zero" and "exactly -1" are
/// different questions, and both are asked.
class Boolean {
 public:
  /// False.
  constexpr Boolean() = default;
  /// Only a real bool converts; a number would hide which of the two questions was meant.
  template <std::same_as<bool> Truth>
  constexpr Boolean(Truth value) : m_bits(value ? Integer{-1} : Integer{0}) {}

  /// The value of these bits, which are kept as they are.
  static constexpr Boolean from_bits(Integer bits) {
    Boolean value;
    value.m_bits = bits;
    return value;
  }

  /// All sixteen bits: -1 for True, 0 for False.
  constexpr Integer bits() const { return m_bits; }
  /// Whether any bit is set.
  constexpr explicit operator bool() const { return m_bits != 0; }
  /// Whether all bits are set.
  constexpr bool is_exactly_true() const { return m_bits == -1; }

  /// Whether both have the same bits.
  friend constexpr bool operator==(Boolean, Boolean) = default;

 private:
  Integer m_bits = 0;
};

/// A self-describing value; std::monostate is the empty one.
using Variant = std::variant<std::monostate, Boolean, Integer, Single, Double, String, List<Double>,
                             Matrix<Double>, List<String>, List<Boolean>>;

/// The nearest 16-bit integer, ties to even. Throws kOverflow where there is none (NaN included).
KURV_EXPORT Integer to_integer(Double value);

/// Throws kDivisionByZero when `divisor` is zero, whatever the dividend.
inline Double divide(Double dividend, Double divisor) {
  if (divisor == 0) throw Fault(FaultKind::kDivisionByZero);
  return dividend / divisor;
}

/// Narrows for the drawing surface: out of range becomes an infinity, NaN stays NaN.
KURV_EXPORT Single to_single(Double value);

/// @name Conversions of a self-describing value
/// As a dispatch interface makes them. Text is read as text_to_number() reads it; an empty value is
/// zero, False or the empty text; True counts as -1. They throw kTypeMismatch for arrays and for
/// text that is no number, kOverflow for a number that does not fit; an infinite one fits into a
/// Double alone.
/// @{

/// The value as an Integer, rounded to the nearest, ties to even.
KURV_EXPORT Integer to_integer(const Variant& value);
/// The value as a Single.
KURV_EXPORT Single to_single(const Variant& value);
/// The value as a Double.
KURV_EXPORT Double to_double(const Variant& value);
/// The value as text, as number_to_text() and boolean_to_text() write it.
KURV_EXPORT String to_string(const Variant& value);
/// The value as a Boolean. Text may also be "True" or "False" in any letter case.
KURV_EXPORT Boolean to_boolean(const Variant& value);

/// @}

}  // namespace kurv
