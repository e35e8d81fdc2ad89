// How a graph leaves the control.
#pragma once

namespace kurv {

struct ControlState;

// Asks for a file and writes the graph to it. Cancelled, it changes nothing.
void save_dialog(ControlState& state);

}  // namespace kurv
