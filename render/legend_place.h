// The place inside the plot where the legend hides the least.
#pragma once

#include <optional>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

struct LegendPlace {
  Single left = 0;
  Single top = 0;
  // The share of the points inside the plot that the legend would hide, 0..1.
  Double hidden = 0;
};

// For a legend of the layout's size in its plot, at some distance of the frame: of the places that
// hide the fewest points, and of those the shortest lines, the one that is nearest to a corner, top
// left first. Up to a quarter more than the fewest counts as the same, so that the legend is in a
// corner where the points are everywhere. Points and lines are counted in cells of a few pixels.
// Nothing where the legend
// is larger than the plot. Throws kDivisionByZero where the limits of an axis are equal.
std::optional<LegendPlace> find_legend_place(const GraphDocument& document, const Layout& layout);

}  // namespace kurv
