// Standard output as a file to write a picture or a graph to.
#pragma once

#include <string>
#include <string_view>

namespace kurv::app {

inline bool is_standard_output(const std::string& path) {
  return path == "-";
}

// Throws UserError when the bytes cannot be written.
void write_standard_output(std::string_view bytes);

}  // namespace kurv::app
