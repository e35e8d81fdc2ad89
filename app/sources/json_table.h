// JSON files as tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// The table of a JSON file as text in UTF-8: fields are separated by tabs, rows by line feeds.
// Numbers are written in the shortest way, Booleans as "TRUE" and "FALSE", null as an empty
// field.
struct JsonTable {
  std::string text;
  // The first row has the names of the columns; otherwise it may have them.
  bool has_header = false;
  // Whole sentences about what is left out.
  std::vector<std::string> notes;
};

// Whether a text begins as JSON with a table does: with an object, or with an array of values. A
// section "[Data]" of another file is none.
bool looks_like_json(std::string_view bytes);

// Reads an array of objects or of arrays, an object of arrays, an object that has one of these
// somewhere inside, and files with an object or array a line, whose last line may be incomplete.
// The keys of objects in a row are joined: "a.b". Throws UserError, which begins with `path`, for
// other files.
JsonTable read_json_table(std::string_view bytes, const std::string& path);

}  // namespace kurv::app
