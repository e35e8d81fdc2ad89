// Graph files on the command line.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>
#include <KurvGraph/fault.h>

#include <string>
#include <string_view>

#include "app/base/user_error.h"

namespace kurv::app {

// What the first line of a graph file begins with.
inline constexpr std::string_view kGraphFileTag = "QXPLOT/V500//";

// By the extension .gdf in any letter case.
bool is_named_as_graph_file(const std::string& path);

// By its name or by its beginning. A pipe is judged by its name alone, because what is read from it
// is gone.
bool is_graph_file(const std::string& path);

// Into the graph, which redraws. Throws UserError that says why the file does not load.
void load_graph_file(Control& graph, const std::string& path);
void load_graph_file(KurvGraph& graph, const std::string& path);

// Why the file could not be written.
UserError unwritable_graph_file(const std::string& path, const Fault& fault);

}  // namespace kurv::app
