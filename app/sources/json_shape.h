// Where in a JSON file its table is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kurv::app {

struct JsonShape {
  enum class Kind {
    kValues,   // each value of the file is a row: one object or array a line
    kRows,     // each element of an array is a row
    kColumns,  // the arrays in an object are the columns
  };
  Kind kind = Kind::kValues;
  // The keys that lead to that array or object, joined by points; empty for the value of the file.
  std::string path;
  // The bytes before an incomplete last line; all of them where there is none.
  std::size_t complete_size = 0;
};

// Throws UserError, which begins with `file_path`, for a file that is no JSON, and where it has no
// table or several of them.
JsonShape find_json_table(std::string_view text, const std::string& file_path);

}  // namespace kurv::app
