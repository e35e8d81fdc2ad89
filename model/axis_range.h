// The four limits from the data.
#pragma once

#include <KurvGraph/services.h>

#include "model/graph_document.h"

namespace kurv::basKurvGraph01 {

// How many of curves 1..NumY have a flag that is not zero.
int count_visible_curves(const GraphDocument& document);

// Sets the limits to the extremes of all x and of the visible y values, and widens an axis that is
// not exact outward to whole multiples of ten times a power of ten. With no visible curve all four
// stay as they are. Equal y limits move apart by one each. Throws kInvalidProcedureCall where x is
// to be widened and all its values are equal. Never draws.
//
// Where round_limits is on, round_axis_range() does it.
void compute_axis_range(GraphDocument& document, const NumericService& numeric);

}  // namespace kurv::basKurvGraph01
