// What the number format of a spreadsheet cell says about the cell's number.
#pragma once

#include <string_view>

namespace kurv::app {

enum class FormatKind {
  kNumber,
  kPercent,
  kDate,
  kDateTime,
  kTime,      // of a day
  kDuration,  // hours, minutes or seconds that go on beyond a day
};

// A format code such as "0.00%", "yyyy-mm-dd" or "[h]:mm:ss". Where it has several sections, the
// first one counts.
FormatKind kind_of_format(std::string_view code);

// A format that has a number instead of a code. Those above 163 have codes and are numbers here.
FormatKind kind_of_built_in_format(unsigned id);

}  // namespace kurv::app
