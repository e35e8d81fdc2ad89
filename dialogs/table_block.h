// A block of a table's cells as text, and text as a block of cells.
//
// Rows and columns count from 1. Text is UTF-8.
#pragma once

#include <KurvGraph/values.h>

#include <functional>
#include <string_view>

namespace kurv {

// From its first row and column to its last, both belonging to it.
struct CellBlock {
  int first_row = 1;
  int first_column = 1;
  int last_row = 0;
  int last_column = 0;

  bool is_empty() const { return last_row < first_row || last_column < first_column; }
};

// Appends what a cell shows to a text.
using AppendCell = std::function<void(String& text, int row, int column)>;
// Takes what a cell shall hold. The text is valid during the call alone.
using PutCell = std::function<void(int row, int column, std::string_view text)>;

// Tabs between columns, CR LF between rows; nothing behind the last of either.
String block_text(const CellBlock& block, const AppendCell& append);

void put_empty(const CellBlock& block, const PutCell& put);

// Puts the cells of a text, without their outer blanks, into a grid of `rows` and `columns`, the
// first of them at (row, column). Tabs part columns; CR LF, CR and LF part rows, and a line end
// that is the last of the text begins no row. An empty text is one empty cell. Returns whether
// something had to be left out because it fell outside the grid; nothing is lost with an empty
// cell.
bool put_text(std::string_view text, int row, int column, int rows, int columns,
              const PutCell& put);

// The file that a table is saved as: for each row, beginning with the heading, which is row 0,
// every cell followed by a comma, the last one too, and CR LF. Replaces an existing file. Throws
// kPathNotFound, kPermissionDenied, kPathFileAccessError, kDiskFull, kDeviceIoError.
void save_table(const String& path, int rows, int columns, const AppendCell& append);

}  // namespace kurv
