// Reading whole files into memory.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/base/user_error.h"

namespace kurv::app {

// The error for a file that cannot be read, by its errno.
UserError unreadable(const std::string& path, int error);

// The unchanged bytes of a file. `kind` is what the message about a directory asks for instead,
// such as "table". `check_block` is called with each block as it is read; by throwing it refuses an
// endless device or a video before that is read to its end. Throws UserError when the file cannot
// be read or is larger than 2 GiB.
std::string read_file(const std::string& path, const std::string& kind,
                      const std::function<void(std::string_view)>& check_block);

// The same for what comes through standard input.
std::string read_standard_input(const std::function<void(std::string_view)>& check_block);

// The same for a graph file, of which any bytes are taken.
std::string read_graph_file_bytes(const std::string& path);

}  // namespace kurv::app
