// The lines of a graph file: their names, their order, and how each is read. The reader and the
// writer follow the same table.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace kurv {

// What every graph file begins with. A version stamp of the program that wrote it follows, which is
// not read.
inline constexpr std::string_view kGraphFileTag = "QXPLOT/V500//";

enum class GraphFieldKind {
  kTag,
  kCopy,     // repeats the title for programs that want nothing else; not read
  kCount,    // the number that the line begins with
  kText,     // the whole line
  kWhole,    // a number, rounded to 16 bits
  kNumber,   // a number
  kBoolean,  // True, False or a number
};

struct GraphFileField {
  std::string_view name;
  GraphFieldKind kind;
};

// The fields that every graph file has, one a line from line 1 on. The lists follow.
std::span<const GraphFileField> graph_file_fields();
// The line of the field with that name. Throws std::out_of_range where there is none.
std::size_t graph_file_line(std::string_view name);

// The lines after the fields, for a file with so many curves.
struct GraphFileLists {
  std::size_t data;       // of x; the lines of the curves follow it
  std::size_t names;      // of x and the curves
  std::size_t flags;      // whether each curve is visible
  std::size_t functions;  // the expressions of the function curves; the last line
};
GraphFileLists graph_file_lists(int curves);

}  // namespace kurv
