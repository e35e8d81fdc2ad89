#include "dialogs/length_text.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "render/number_format.h"

namespace kurv {

namespace {

constexpr Double kTwipsPerInch = 1440;
constexpr Double kMillimetresPerInch = 25.4;
constexpr Double kTwipsPerMillimetre = kTwipsPerInch / kMillimetresPerInch;

struct Unit {
  std::string_view name;
  Double twips;
};

// A pixel is a logical one, which is the same length at every scale of the desktop.
constexpr std::array kUnits{Unit{"mm", kTwipsPerMillimetre},
                            Unit{"cm", 10 * kTwipsPerMillimetre},
                            Unit{"in", kTwipsPerInch},
                            Unit{"\"", kTwipsPerInch},
                            Unit{"pt", 20},
                            Unit{"px", 15},
                            Unit{"twips", 1}};

bool ends_with(std::string_view text, std::string_view unit) {
  return text.size() > unit.size() &&
         equals_ignoring_case(text.substr(text.size() - unit.size()), unit);
}

// With a point or a comma.
std::optional<Double> finite_number(std::string_view text) {
  std::optional<Double> number = text_to_number(text, '.');
  if (!number) number = text_to_number(text, ',');
  return number && std::isfinite(*number) ? number : std::nullopt;
}

String shown(Double value, std::string_view pattern, char decimal_separator) {
  String text = format_number(value, pattern);
  std::replace(text.begin(), text.end(), '.', decimal_separator);
  return text;
}

}  // namespace

std::optional<Double> length_in_twips(std::string_view text, char decimal_separator) {
  text = trim_blanks(text);
  const auto unit = std::find_if(kUnits.begin(), kUnits.end(), [text](const Unit& candidate) {
    return ends_with(text, candidate.name);
  });
  if (unit == kUnits.end()) return text_to_number(text, decimal_separator);
  text.remove_suffix(unit->name.size());
  const std::optional<Double> number = finite_number(text);
  return number ? std::optional(*number * unit->twips) : std::nullopt;
}

String in_millimetres(Double twips, char decimal_separator) {
  return shown(twips / kTwipsPerMillimetre, "0.0 \\m\\m", decimal_separator);
}

String in_inches(Double twips, char decimal_separator) {
  return shown(twips / kTwipsPerInch, "0.00 \\in", decimal_separator);
}

}  // namespace kurv
