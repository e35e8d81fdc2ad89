// The exchanges of a selection sort, found in O(n log n).
//
// A stable sort would be simpler, but hosts read the sorted points back, and points of equal x have
// to come in the order in which a selection sort leaves them.
#pragma once

#include <vector>

#include <KurvGraph/arrays.h>
#include <KurvGraph/services.h>
#include <KurvGraph/values.h>

namespace kurv {

// The exchanges, in order, by which a selection sort puts values(1..count) into ascending order: at
// each place the first smallest value from there on is taken. NaN compares with nothing, so it is
// never taken and never moves. O(count log count).
std::vector<Exchange> selection_sort_exchanges(const Column<const Double>& values, int count);

}  // namespace kurv
