// kurv info: prints the contents of a graph file, or its diagnostics, without drawing it.
#pragma once

#include <iosfwd>

#include "app/command_line/command_line.h"

namespace kurv::app {

// Returns the exit status: 1 when the file would not load. Throws UserError when it cannot be read
// at all.
int print_info(const InfoRequest& request, std::ostream& out);

}  // namespace kurv::app
