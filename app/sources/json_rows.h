// The rows and columns of the table in a JSON file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/sources/json_shape.h"

namespace kurv::app {

struct JsonRows {
  std::string text;
  bool has_header = false;
  // Whole sentences about what was left out.
  std::vector<std::string> notes = {};
};

// The table at `shape` as tab-separated text. Keys are the names of columns, in the order in which
// they come first; those of objects and arrays in a row are joined to "a.b" and "a.1". Rows that
// are arrays have no names. Of equal keys the last one counts. Throws UserError, which begins with
// `file_path`, for more than 16384 columns.
JsonRows read_json_rows(std::string_view text, const JsonShape& shape,
                        const std::string& file_path);

}  // namespace kurv::app
