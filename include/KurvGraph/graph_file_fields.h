/// @file
/// The lines of a graph file: their names, their order, and how each is read. The reader and the
/// writer follow the same tables.
#pragma once

#include <KurvGraph/export.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace kurv {

/// What every graph file begins with. A version stamp of the program that wrote it follows, which
/// is not read.
inline constexpr std::string_view kGraphFileTag = "QXPLOT/V500//";
/// Between the entries of a list. Nothing is quoted, so no entry can contain it.
inline constexpr char kGraphFileSeparator = ',';
/// A longer line is refused; no graph needs it.
inline constexpr std::size_t kMaxGraphFileLine = std::size_t{1} << 26;

/// How a line, or an entry of a list, is read.
enum class GraphFieldKind {
  kTag,      ///< begins with kGraphFileTag
  kCopy,     ///< repeats the title for programs that want nothing else; not read
  kCount,    ///< the number that the line begins with
  kText,     ///< the whole line
  kWhole,    ///< a number, rounded to 16 bits
  kNumber,   ///< a finite number
  kBoolean,  ///< True, False or a number
};

/// A field of a graph file: one line.
struct GraphFileField {
  std::string_view name;  ///< of the property, or of what else the line holds
  GraphFieldKind kind;    ///< how the line is read
};

/// The fields that every graph file has, one a line from line 1 on. The lists follow.
KURV_EXPORT std::span<const GraphFileField> graph_file_fields();
/// The line of the field with that name. Throws std::out_of_range where there is none.
KURV_EXPORT std::size_t graph_file_line(std::string_view name);

/// What a line of a list has an entry for.
enum class GraphFileEntries {
  kPoints,     ///< each point
  kColumns,    ///< x and each curve
  kCurves,     ///< each curve
  kFunctions,  ///< each function curve
};

/// A list of a graph file: one or more lines of entries with commas between them.
struct GraphFileList {
  std::string_view name;     ///< what its entries are called, in the plural
  GraphFieldKind kind;       ///< of each entry: kNumber, kText or kBoolean
  GraphFileEntries entries;  ///< of each line
  std::size_t first_line;    ///< counted from 1
  std::size_t lines;         ///< how many it has
};

/// The lists that follow the fields of a file with so many curves, in the order of their lines: the
/// values, a line for x and for each curve, then names, visibility flags and expressions, a line
/// each.
KURV_EXPORT std::vector<GraphFileList> graph_file_lists(int curves);
/// The first line of the list with that name. Throws std::out_of_range where there is none.
KURV_EXPORT std::size_t graph_file_list_line(std::string_view name, int curves);
/// How many lines such a file has.
KURV_EXPORT std::size_t graph_file_length(int curves);

}  // namespace kurv
