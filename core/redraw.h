// The one redraw pipeline, which everybody calls after a change.
#pragma once

namespace kurv {

struct ControlState;

// Clears the surface and paints the whole graph from the document. Does nothing until a data intake
// has succeeded. A fault leaves on the surface what was painted until then.
void build_the_graph(ControlState& state);

}  // namespace kurv
