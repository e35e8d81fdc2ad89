// What is odd about a graph file.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/command_line/graph_file_text.h"

namespace kurv::app {

struct Oddity {
  std::size_t line;      // counted from 1
  std::string sentence;  // without the line, and without a full stop
  bool fatal;            // the file does not load
};

// In the order of the lines. What stands on a list line many times is told once.
std::vector<Oddity> check_graph_file(const GraphFileText& file, char decimal_separator);

}  // namespace kurv::app
