// Lengths as users write them: "480", "12 mm", "0.5 in".
#pragma once

#include <KurvGraph/values.h>

#include <optional>
#include <string_view>

namespace kurv {

// The whole text in twips: a number of twips with the separator of the graph, as text_to_number()
// reads it, or a finite number and a unit, with or without a blank between them: mm, cm, in, pt,
// px, twips, in any letter case. A number with a unit may have a point or a comma. Nothing for
// any other text. Not rounded, and infinite where the number of twips is too large for a Double.
std::optional<Double> length_in_twips(std::string_view text, char decimal_separator);

// "8.5 mm", with one decimal place.
String in_millimetres(Double twips, char decimal_separator);
// "0.33 in", with two decimal places.
String in_inches(Double twips, char decimal_separator);

}  // namespace kurv
