// A table on the clipboard or dragged from another program, as text.
#pragma once

#include <QMimeData>
#include <string>
#include <vector>

namespace kurv::app {

// The local files that the data name.
std::vector<std::string> files_in(const QMimeData& data);

// Whether there is text that may hold a table. Addresses of files and pages are none.
bool has_table_text(const QMimeData& data);

// The text of a table in UTF-8: the first table of a page, with tabs between the cells, or else the
// plain text. Merged cells have their text in the first of the cells that they cover. Nothing that
// a page refers to is loaded.
std::string table_text(const QMimeData& data);

// Whether a table is found in the text that has at least two rows and a column of numbers.
bool holds_numbers(const std::string& text);

}  // namespace kurv::app
