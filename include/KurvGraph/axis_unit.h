/// @file
/// What the numbers of an axis count.
#pragma once

namespace kurv {

/// With round limits the ticks of a time axis are whole years, months, days, hours, minutes or
/// seconds where the data allow it; those of kNumbers are round numbers of any size.
enum class AxisUnit {
  kNumbers,  ///< no time
  kYears,    ///< years, such as 2012.5
  kMonths,   ///< months since any one
  kDays,     ///< days since any one
  kHours,    ///< hours since any time
  kMinutes,  ///< minutes since any time
  kSeconds   ///< seconds since any time
};

}  // namespace kurv
