// Which file could not be read or written.
#pragma once

#include <KurvGraph/fault.h>

#include <string>

namespace kurv::app {

// Details of a fault that a graph file may have caused; nothing where the path is empty or the
// fault is not about a file.
std::string unloadable_detail(const std::string& path, const Fault& fault);
std::string unwritable_detail(const std::string& path, const Fault& fault);

}  // namespace kurv::app
