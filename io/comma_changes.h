// What the lists of a graph file do not keep.
#pragma once

#include <KurvGraph/comma_change.h>

#include <vector>

#include "model/graph_document.h"

namespace kurv {

// The name of x, the names of curves and the expressions that a graph file with this content
// changes, in the order of its lists. Of the numbers, which a decimal comma splits, the first one
// alone: all after it in its column move. Looks at each number only where the decimal separator is
// a comma.
std::vector<CommaChange> comma_changes(const GraphDocument& document, char decimal_separator);

}  // namespace kurv
