// Limits of one axis after a zoom or a pan.
#pragma once

#include "model/round_limits.h"

namespace kurv {

// Places on an axis are 0 at its minimum and 1 at its maximum, whichever of them is larger.
struct AxisMove {
  Double from = 0;    // the place of a value on the axis as it is
  Double to = 0;      // where that value is afterwards
  Double factor = 1;  // of the span; below 1 is closer
};

// How far a zoom goes, and what its limits have to suit.
struct AxisBounds {
  Double largest_span = 0;  // a zoom makes no span larger than this
  int ticks = 10;           // intervals of the axis
};

// The limits after the move. They differ, are finite, and their order stays.
//
// Limits and ticks have few digits: they are multiples of a power of ten that is at most 1/2000 of
// the span. The value at `from` is at `to` all the same, to within 1/4000 of the span. A pan keeps
// the span. Zooming in ends at a span of 1E-10 of the value, so that fifteen digits are
// enough for labels. Where the limits cannot be moved they are returned as they are; so are limits
// that are equal or not finite.
AxisLimits moved_limits(const AxisLimits& limits, const AxisMove& move, const AxisBounds& bounds);

}  // namespace kurv
