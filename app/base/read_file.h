// The bytes of a file that claims to be text.
#pragma once

#include <string>

namespace kurv::app {

// The whole file, without the byte order mark of UTF-8. A pipe is read like a file. Throws
// UserError when it cannot be read, is empty, larger than 2 GiB, or no text.
std::string read_text_file(const std::string& path);

// The whole file as it is, whatever it holds. Throws UserError when it cannot be read or is larger
// than 2 GiB.
std::string read_graph_file_bytes(const std::string& path);

}  // namespace kurv::app
