// Limits of both axes, and the number of ticks that they share, such that every tick is a round
// number.
#pragma once

#include <optional>

#include <KurvGraph/axis_unit.h>
#include <KurvGraph/values.h>

namespace kurv {

// The extremes of the data on one axis: finite, min <= max.
struct DataRange {
  Double min = 0;
  Double max = 0;
  AxisUnit unit = AxisUnit::kNumbers;
  // False for an axis whose limits are the extremes; the other axis alone decides then.
  bool is_rounded = true;
};

struct AxisLimits {
  Double min = 0;
  Double max = 1;
};

struct RoundLimits {
  AxisLimits x;
  AxisLimits y;
  int ticks = 10;  // intervals of each axis
};

// The data are inside the limits, which differ, and the distance of the ticks is 1, 2, 2.5 or 5
// times a power of ten. It is 1.5, 3, 4 or 6 times one where the former would leave more than a
// quarter of an axis empty. On a time axis it is a whole number of units: days and years as above,
// months of which a whole number makes a year, hours that make a day, minutes and seconds that make
// an hour and a minute; or a fraction, where whole units would leave more than a quarter empty.
//
// There are `ticks` intervals; without that number 5 to 12, or up to 20 where fewer would leave
// more than a quarter of an axis empty, and among those the number that leaves the least of the
// plot empty. Zero is a limit where the way to it is at most a third of the span of the data, and
// that way does not count as empty; years do not begin at zero. Limits of a single value are zero
// and twice the value.
//
// Numbers that differ after the fourteenth digit or are below 1E-300 have limits that are farther
// apart. Where no round number is large enough, the limits are the extremes.
RoundLimits choose_round_limits(const DataRange& x, const DataRange& y,
                                std::optional<int> ticks = {});

}  // namespace kurv
