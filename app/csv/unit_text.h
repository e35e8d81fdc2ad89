// Units of measurement in the header of a table.
#pragma once

#include <string_view>

namespace kurv::app {

// Whether a text is a unit: one in brackets, "[s]" or "(°C)", a usual one, "hPa", or one that is
// made of usual ones, "m/s" or "W m-2".
bool is_unit_text(std::string_view text);

// The unit at the end of a name, "s" of "time [s]" and "°C" of "Temp (°C)", and the name without
// it. The unit is empty where there is none.
struct NameAndUnit {
  std::string_view name;
  std::string_view unit;
};
NameAndUnit split_unit(std::string_view name);

// Without the brackets around it.
std::string_view bare_unit(std::string_view text);

}  // namespace kurv::app
