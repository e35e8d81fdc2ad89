// Files that are written as a whole, or stay as they were.
#pragma once

#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

// Writes the bytes into a file beside it, and gives that the name of the path. A link is followed,
// not replaced. Throws a FileFault.
void write_whole_file(const String& path, std::string_view bytes);

}  // namespace kurv
