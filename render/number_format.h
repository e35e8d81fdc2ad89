// Numbers as tick labels show them, by a pattern such as "0.00" or "0.00E+0".
#pragma once

#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// A pattern is made of digit places, `0` (always a digit) and `#` (a digit where there is one), a
// decimal point `.`, `,` between digit places for groups of three, `,` after the last digit place
// before the point or the end for a division by a thousand each, `%` for a multiplication by a
// hundred, and an exponent `E+0`, `E-0`, `e+0`, `e-0` with any number of zeros as its minimum of
// digits: "E+" always writes the exponent's sign, "E-" only a minus. Everything else is literal,
// also "quoted" text and what follows a backslash. Up to three sections separated by `;` are for
// positive values, negative values and zero.
//
// Rounding is half away from zero on the decimal text of at most 15 significant digits: 2.5 with
// "0" gives 3, 1.005 with "0.00" gives 1.01, 9.995 with "0.00E+0" gives 1.00E+1. A negative value
// that rounds to zero is written without a sign. An empty pattern gives the shortest form of the
// number. NaN and infinities are written "NaN", "Inf", "-Inf". Never fails; the result is bounded
// by a small multiple of the pattern's length plus the widest number.
String format_number(Double value, std::string_view pattern);

}  // namespace kurv
