// What the numbers of an axis count.
#pragma once

namespace kurv {

// With round limits the ticks of a time axis are whole years, months, days, hours, minutes or
// seconds where the data allow it; those of kNumbers are round numbers of any size.
enum class AxisUnit { kNumbers, kYears, kMonths, kDays, kHours, kMinutes, kSeconds };

}  // namespace kurv
