// The curve that a click means.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <optional>

namespace kurv {

struct ControlState;

// The scatter curve whose row of the legend is at the point; outside of legend and titles, which
// cover the curves, the one that is drawn nearest to it, at most `reach` twips away. Of several at
// the same distance it is the one that is painted last. Goes through all points of the graph.
std::optional<int> curve_at(const ControlState& state, SurfacePoint at, Double reach);

}  // namespace kurv
