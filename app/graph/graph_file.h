// Recognising and loading graph files, with errors for the user of the program.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>
#include <KurvGraph/fault.h>

#include <string>

#include "app/base/user_error.h"

namespace kurv::app {

// By the extension .gdf in any letter case.
bool is_named_as_graph_file(const std::string& path);

// By its name or by the tag that it begins with. A pipe is recognised by its name alone, because
// bytes that are read from it cannot be read again.
bool is_graph_file(const std::string& path);

// Loads the file into the graph, which redraws. Throws UserError with the reason where it does not
// load.
void load_graph_file(Control& graph, const std::string& path);
void load_graph_file(KurvGraph& graph, const std::string& path);

// The error for a file that could not be written.
UserError unwritable_graph_file(const std::string& path, const Fault& fault);

}  // namespace kurv::app
