#include "app/csv/unit_text.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <array>

namespace kurv::app {

namespace {

constexpr std::array<std::string_view, 91> kUnits{
    "EUR",  "USD",  "GBP",  "CHF",     "\u20AC",  "$",      "\u00A3",  "\u00A5",  "s",
    "sec",  "ms",   "us",   "\u00B5s", "\u03BCs", "ns",     "min",     "h",       "hr",
    "d",    "day",  "days", "yr",      "year",    "years",  "m",       "mm",      "cm",
    "km",   "nm",   "um",   "\u00B5m", "\u03BCm", "in",     "ft",      "g",       "kg",
    "mg",   "t",    "lb",   "K",       "C",       "F",      "\u00B0C", "\u00B0F", "\u00B0",
    "deg",  "degC", "rad",  "%",       "\u2030",  "ppm",    "ppb",     "V",       "mV",
    "kV",   "A",    "mA",   "W",       "kW",      "MW",     "kWh",     "Wh",      "J",
    "kJ",   "N",    "kN",   "Nm",      "Pa",      "hPa",    "kPa",     "MPa",     "bar",
    "mbar", "Hz",   "kHz",  "MHz",     "GHz",     "dB",     "l",       "L",       "ml",
    "mL",   "mol",  "lx",   "rpm",     "Ohm",     "\u03A9", "\u2126",  "-",       "count",
    "psu"};

bool is_one_of_the_units(std::string_view text) {
  while (!text.empty() && text.back() >= '0' && text.back() <= '9') text.remove_suffix(1);
  while (text.ends_with('-') || text.ends_with('^')) text.remove_suffix(1);
  for (const std::string_view exponent : {"\u00B2", "\u00B3", "\u207B\u00B9", "\u207B\u00B2"}) {
    if (text.ends_with(exponent)) text.remove_suffix(exponent.size());
  }
  const auto is_known = [](std::string_view unit) {
    return std::find(kUnits.begin(), kUnits.end(), unit) != kUnits.end();
  };
  if (is_known(text)) return true;
  for (const std::string_view prefix :
       {"k", "M", "G", "m", "\u00B5", "\u03BC", "u", "n", "c", "d"}) {
    if (text.size() > prefix.size() && text.starts_with(prefix) &&
        is_known(text.substr(prefix.size()))) {
      return true;
    }
  }
  return false;
}

bool is_in_brackets(std::string_view text) {
  return text.size() > 2 && ((text.front() == '[' && text.back() == ']') ||
                             (text.front() == '(' && text.back() == ')'));
}

}  // namespace

bool is_unit_text(std::string_view text) {
  constexpr std::size_t kLongest = 24;
  text = trim_blanks(text);
  if (text.empty() || text.size() > kLongest) return false;
  if (is_in_brackets(text) || text == "-") return true;
  // One that is known is enough in a quotient: "hab/km²".
  const bool is_quotient = text.find('/') != text.npos;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("/ *"), text.size());
    const bool known = is_one_of_the_units(text.substr(0, end));
    if (known == is_quotient) return known;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return !is_quotient;
}

NameAndUnit split_unit(std::string_view name) {
  const char last = name.empty() ? ' ' : name.back();
  const std::size_t open = last == ']' ? name.rfind('[') : last == ')' ? name.rfind('(') : 0;
  if (open == 0 || open == name.npos) return {name, {}};
  const std::string_view unit = bare_unit(name.substr(open));
  // Some bracketed words are no units.
  if (last == ')' && !is_unit_text(unit)) return {name, {}};
  return {trim_blanks(name.substr(0, open)), unit};
}

std::string_view bare_unit(std::string_view text) {
  text = trim_blanks(text);
  return is_in_brackets(text) ? trim_blanks(text.substr(1, text.size() - 2)) : text;
}

}  // namespace kurv::app
