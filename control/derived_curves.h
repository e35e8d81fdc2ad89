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
// value NaN unless the evaluator is a host's own: a host's evaluator decides itself what it
// returns. With SortXY on, the points are read in the order of x, and that order is stored as the
// host's order too, because the new column has no values in the host's order. Hosts that read the
// points back rely on it.
//
// Throws kSubscriptOutOfRange for the 150th curve of a host's data, which has no column. That curve
// is then already counted, named and visible, so every later redraw throws too until an intake.
// Hosts can read the counts after the fault; the window of the curves and the menus therefore offer
// the command only below 149 curves.
void append_derived_curve(ControlState& state, const String& name, const String& expression);

}  // namespace kurv
