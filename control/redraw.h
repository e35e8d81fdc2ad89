// The redraw pipeline, which is called after every change, and the same picture on another surface.
#pragma once

#include <KurvGraph/plot_surface.h>

namespace kurv {

struct ControlState;

// Clears the surface and paints the whole graph from the document. Does nothing until a data intake
// has succeeded. A fault leaves on the surface what was painted until then.
void build_the_graph(ControlState& state);

// Paints what the next redraw would show on another surface, from copies of document and layout and
// with an evaluator of its own, so that nothing of the control changes. Clears that surface first,
// and leaves it so until a data intake has succeeded. Throws what a redraw throws.
void draw_on(const ControlState& state, PlotSurface& surface);

}  // namespace kurv
