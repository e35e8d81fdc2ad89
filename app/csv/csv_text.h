// This is where the bytes of a table become text. Another encoding is converted to UTF-8 here, so
// that the parser and everything after it need not know of it.
#pragma once

#include <optional>
#include <string>

#include "app/base/user_error.h"
#include "app/csv/text_encoding.h"

namespace kurv::app {

// A path that means standard input.
inline constexpr const char* kStandardInput = "-";
// What messages call the file: its path, or "standard input".
std::string name_of_source(const std::string& path);

// The error about bytes that are no text.
UserError no_text(const std::string& path);

// The bytes of a table. A pipe is read like a file, and "-" is standard input. Throws
// UserError when the file cannot be read, is larger than 2 GiB, or is neither text nor a workbook.
std::string read_table_bytes(const std::string& path, std::optional<Encoding> encoding = {});

// The bytes as text. Without an encoding it is guessed. Throws UserError when they are empty or no
// text.
DecodedText decode_csv_text(std::string bytes, std::optional<Encoding> encoding,
                            const std::string& path);

}  // namespace kurv::app
