// Saving the graph and opening another.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Loads a graph file, see Control::file_load().
void file_load(ControlState& state, const String& path);

// Writes the graph to its file, or asks for one where it has none; nothing where it is saved.
void Save_graph(ControlState& state);

// Writes the graph to the path, to which it belongs from then on.
void save_graph_file(ControlState& state, const String& path);

// Asks for a file and loads it if it looks like a graph: by its first line, or by its name. Redraws
// in either case, unless the user cancels.
void open_graph(ControlState& state);

}  // namespace kurv
