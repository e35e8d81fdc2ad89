// Numbers as nearly all are written, read quickly: a file may hold millions of them.
#pragma once

#include <cstddef>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// Reads the number that a text begins with where it is plain: digits, maybe with a minus sign, a
// point or an exponent, and finite. Returns its length. Returns 0 for any other, which
// text_to_number() may still know, and then leaves `value` alone.
//
// The number goes back through a reference: an optional would be put together in memory piece by
// piece and taken from there as a whole, and waiting for that costs half as much as reading.
std::size_t read_plain_number(std::string_view text, Double& value);

}  // namespace kurv
