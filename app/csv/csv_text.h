// This is where the bytes of a table become text. Another encoding is converted to UTF-8 here, so
// that the parser and everything after it need not know of it. Bytes that are not UTF-8 are passed
// on as they are; where a name or a cell is shown, to_utf8() reads them as code page 1252.
#pragma once

#include <string>

namespace kurv::app {

// The text of a CSV file, without a UTF-8 byte order mark. A pipe is read like a file. Throws
// UserError when it cannot be read, is empty, is larger than 2 GiB, or is no text.
std::string read_csv_text(const std::string& path);

}  // namespace kurv::app
