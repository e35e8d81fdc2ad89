// Prepares the data that have been loaded: sorts, validates, chooses label formats.
#pragma once

#include <optional>

#include <KurvGraph/services.h>

#include "model/graph_document.h"

namespace kurv {

// Puts the points of xyArr in the order that a selection sort on x gives: at each place the first
// smallest of what follows is exchanged into it, whole points at a time. Not stable, and a NaN
// stays where it is. O(n log n) comparisons; every exchange goes through the service, a Double at a
// time.
void Sort_xy(GraphDocument& document, const SwapService& swap);

// Stores xyArr as the copy in the host's order, sorts it as Sort_xy() does, and stores that as the
// sorted copy, together with the sort permutation. Leaves xyArr sorted.
void store_both_orders(GraphDocument& document, const SwapService& swap);

// The same, but leaves in xyArr the copy that SortXY selects.
void refresh_sorted_data(GraphDocument& document, const SwapService& swap);

// How many points and curves a matrix of the document has. The counts of the document are larger
// after an intake that has failed midway. A redraw fails then; what goes through the data at any
// other time asks these functions.
int points_in(const GraphDocument& document, const Matrix<Double>& data);
int curves_in(const GraphDocument& document, const Matrix<Double>& data);

// Nothing when the data can be plotted, otherwise the message for the user. Checks the limits.
std::optional<String> Validate(const GraphDocument& document);

// The same, but checks the x values in the host's order: two of them have to be finite and differ.
// The limits do not show whether an x is missing or infinite.
std::optional<String> validate_points(const GraphDocument& document);

// Picks number formats that suit the ranges of the axes, y first; a range of medium size keeps the
// format that there is. Where round_limits is on, the formats show all ticks exactly.
void choose_label_formats(GraphDocument& document, const NumericService& numeric);

}  // namespace kurv
