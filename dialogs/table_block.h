// Converts a block of a table's cells to text, and text to a block of cells.
//
// Rows and columns count from 1. Text is UTF-8.
#pragma once

#include <KurvGraph/values.h>

#include <functional>
#include <string_view>

namespace kurv {

// A rectangle of cells, its first and last row and column included.
struct CellBlock {
  int first_row = 1;
  int first_column = 1;
  int last_row = 0;
  int last_column = 0;

  bool is_empty() const { return last_row < first_row || last_column < first_column; }
};

// Appends the text of a cell.
using AppendCell = std::function<void(String& text, int row, int column)>;
// Sets the text of a cell. The text is valid only during the call.
using SetCell = std::function<void(int row, int column, std::string_view text)>;

// Tabs between columns, CR LF between rows; nothing after the last of either.
String block_text(const CellBlock& block, const AppendCell& append);

// Sets each cell of the block to the empty text.
void clear_block(const CellBlock& block, const SetCell& set);

// Sets the cells of a text, without their outer blanks, into a grid of `rows` and `columns`, the
// first of them at (row, column). Tabs separate columns; CR LF, CR and LF separate rows, and a line
// end that is the last of the text begins no row. An empty text is one empty cell. Returns whether
// something had to be left out because it fell outside the grid; nothing is lost with an empty
// cell.
bool paste_text(std::string_view text, int row, int column, int rows, int columns,
                const SetCell& set);

// Saves a table as a text file: the heading, which is row 0, and then each row, every cell followed
// by a comma, the last one too, and CR LF at the end of the row. Replaces an existing file. Throws
// kPathNotFound, kPermissionDenied, kPathFileAccessError, kDiskFull, kDeviceIoError.
void save_table(const String& path, int rows, int columns, const AppendCell& append);

}  // namespace kurv
