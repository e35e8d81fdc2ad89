// The graph in a picture of another size.
#pragma once

#include <KurvGraph/plot_surface.h>

namespace kurv {

struct ControlState;

// Paints the graph as it would be after a resize to the size of that surface. Works on copies, as
// draw_on() does. Title, subtitle and legend are fitted where they are in fitted places. Otherwise
// they keep their distance from the plot, and inside of it the proportion of the distances from its
// two sides.
void draw_resized_on(const ControlState& state, PlotSurface& surface);

}  // namespace kurv
