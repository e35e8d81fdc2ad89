/// @file
/// Conversions between numbers and text. None of them depends on a locale; the caller passes the
/// decimal separator, which is a point by default.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

/// The fewest digits that read back to the same value: plain digits from 1E-5 up to below 1E+15,
/// otherwise as in "1.5E+20" and "2E-07". No negative zero. "NaN", "Inf" and "-Inf".
KURV_EXPORT String number_to_text(Double value);
/// The same for a number of single precision, whose text is shorter.
KURV_EXPORT String number_to_text(Single value);

/// Appends the same text, without the temporary string: for files of many numbers.
KURV_EXPORT void append_number(String& text, Double value, char decimal_separator = '.');

/// As a print statement writes it: a blank where a negative number has its sign, no zero before the
/// separator of a fraction, and a blank at the end: " .5 ", " 500 ", "-3 ".
KURV_EXPORT String printed_number(Double value, char decimal_separator = '.');
/// The same for a number of single precision.
KURV_EXPORT String printed_number(Single value, char decimal_separator = '.');

/// The whole text as a number, blanks around it allowed: "3", ".5", "5.", "-1e-3", "1E3", "+2", and
/// "NaN", "Inf", "-Inf" in any letter case. No hexadecimal, no thousands separators; nothing for
/// any other text. A magnitude too large for a Double is an infinity, one too small is zero.
KURV_EXPORT std::optional<Double> text_to_number(std::string_view text,
                                                 char decimal_separator = '.');

/// The whole text as a Boolean: "True" or "False" in any letter case, or a number; only zero is
/// False.
KURV_EXPORT std::optional<Boolean> text_to_boolean(std::string_view text,
                                                   char decimal_separator = '.');

/// The number that a text begins with, whatever follows it; 0 where it begins with none. Blanks are
/// skipped even inside the number, so "1 2 3" is 123. The separator is always a point, and "NaN"
/// and "Inf" are not read.
KURV_EXPORT Double leading_number(std::string_view text);

}  // namespace kurv
