// Saving, printing and copying the picture of a graph.
#pragma once

namespace kurv {

struct ControlState;

// Asks for a file and writes the graph to it, or its picture where the bitmap filter was chosen,
// which leaves the graph as saved or unsaved as it was. Cancelled, it changes nothing.
void save_dialog(ControlState& state);

// Hands the picture to the control's printer, which is created at its first print. Throws
// kCannotCreateObject where neither a host nor a desktop has a class for it.
void print_graph(ControlState& state);

// Puts the picture on the clipboard in place of what was there.
void copy_graph(ControlState& state);

}  // namespace kurv
