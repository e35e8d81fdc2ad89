// Scatter curves that are computed from others.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Appends a visible scatter curve of this name, computes it point by point from the expression over
// the names of x and of the curves before it, computes the limits of the axes and redraws. Name and
// expression have been checked. The new curve does not follow later changes of the others.
//
// A point that cannot be evaluated gets what the evaluator returns for it, which is the missing
// value NaN unless the evaluator is a host's own; deliberate. With SortXY on, the points are taken
// in the order of x, and that becomes the order in which the host gave them; deliberate too.
//
// Throws kSubscriptOutOfRange for the 150th curve of a host's data, which has no column. That curve
// is counted, named and visible then, so every later redraw fails likewise until an intake: whoever
// offers the command offers it below 149 curves only.
void append_derived_curve(ControlState& state, const String& name, const String& expression);

}  // namespace kurv
