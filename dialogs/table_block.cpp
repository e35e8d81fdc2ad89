#include "dialogs/table_block.h"

#include <KurvGraph/text.h>

#include "io/text_file.h"

namespace kurv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Removes the cell at the beginning of a text, up to the next tab or line end, and returns it.
std::string_view take_cell(std::string_view& text) {
  const std::string_view cell = text.substr(0, text.find_first_of("\t\r\n"));
  text.remove_prefix(cell.size());
  return cell;
}

// Removes the tab or line end at the beginning of a text. Returns whether it is a tab.
bool take_separator(std::string_view& text) {
  const bool is_tab = text.starts_with('\t');
  text.remove_prefix(text.starts_with(kLineEnd) ? kLineEnd.size() : 1);
  return is_tab;
}

}  // namespace

String block_text(const CellBlock& block, const AppendCell& append) {
  String text;
  for (int row = block.first_row; row <= block.last_row; ++row) {
    if (row > block.first_row) text += kLineEnd;
    for (int column = block.first_column; column <= block.last_column; ++column) {
      if (column > block.first_column) text += '\t';
      append(text, row, column);
    }
  }
  return text;
}

void clear_block(const CellBlock& block, const SetCell& set) {
  for (int row = block.first_row; row <= block.last_row; ++row) {
    for (int column = block.first_column; column <= block.last_column; ++column) {
      set(row, column, {});
    }
  }
}

bool paste_text(std::string_view text, int row, int column, int rows, int columns,
                const SetCell& set) {
  bool left_out = false;
  int at = column;
  while (true) {
    const std::string_view cell = trim_blanks(take_cell(text));
    if (row <= rows && at <= columns) {
      set(row, at, cell);
    } else if (!cell.empty()) {
      left_out = true;
    }
    if (text.empty()) return left_out;
    if (take_separator(text)) {
      ++at;
    } else if (text.empty()) {
      return left_out;
    } else {
      ++row;
      at = column;
    }
  }
}

void save_table(const String& path, int rows, int columns, const AppendCell& append) {
  // A truncated table cannot be recognised as such, so an existing file is kept until all is
  // written.
  OutputFile file(path, [](const String&) { return false; });
  String line;
  for (int row = 0; row <= rows; ++row) {
    line.clear();
    for (int column = 1; column <= columns; ++column) {
      append(line, row, column);
      line += ',';
    }
    file.write(line += kLineEnd);
  }
  file.close();
}

}  // namespace kurv
