// Diagnostics for a graph file: what keeps it from loading, and what is read otherwise than it
// looks.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/command_line/graph_file_text.h"

namespace kurv::app {

struct Diagnostic {
  std::size_t line;     // counted from 1
  std::string message;  // without the line number, and without a full stop
  bool is_error;        // the file does not load; otherwise it is a warning
};

// In the order of the lines. Of the entries of a list that are wrong in the same way, only the
// first is reported.
std::vector<Diagnostic> check_graph_file(const GraphFileText& file, char decimal_separator);

}  // namespace kurv::app
