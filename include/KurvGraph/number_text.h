// Every rule by which a number becomes text or text a number. None of them depends on a locale.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// The fewest digits that read back to the same value: plain digits from 1E-5 up to below 1E+15,
// otherwise as in "1.5E+20" and "2E-07". No negative zero. "NaN", "Inf" and "-Inf".
String number_to_text(Double value);
String number_to_text(Single value);

// The whole text as a number, blanks around it allowed: "3", ".5", "5.", "-1e-3", "1E3", "+2", and
// "NaN", "Inf", "-Inf" in any letter case. No hexadecimal, no thousands separators. Anything else
// is no number. A magnitude too large for a Double is an infinity, one too small is zero.
std::optional<Double> text_to_number(std::string_view text);

}  // namespace kurv
