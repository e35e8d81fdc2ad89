// Reading whole files into memory.
#pragma once

#include <string>

namespace kurv::app {

// A text file without its UTF-8 byte order mark. A pipe is read like a file. Throws UserError when
// it cannot be read, is empty, is larger than 2 GiB, or is no text.
std::string read_text_file(const std::string& path);

// The unchanged bytes of a file. Throws UserError when it cannot be read or is larger than 2 GiB.
std::string read_graph_file_bytes(const std::string& path);

}  // namespace kurv::app
