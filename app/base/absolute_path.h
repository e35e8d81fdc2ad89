// The path of a file from the root.
#pragma once

#include <string>

namespace kurv::app {

// Without "." and ".."; of a relative path as it is where the working folder is gone.
std::string absolute_path(const std::string& path);

}  // namespace kurv::app
