#include "app/csv/csv_text.h"

#include <KurvGraph/text.h>

#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "app/base/read_file.h"
#include "app/base/user_error.h"
#include "app/sources/spreadsheet.h"

namespace kurv::app {

namespace {

// Files that people take for tables, by their first bytes.
void refuse_other_kinds(std::string_view bytes, const std::string& path) {
  if (bytes.starts_with("%PDF-")) {
    throw UserError(path +
                    " is a PDF document, not a table; copy the table from it and paste it, or save "
                    "it as a CSV file first.");
  }
  if (bytes.starts_with("PAR1")) {
    throw UserError(
        path + " is a Parquet file, which cannot be read; save the table as a CSV file first.");
  }
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
  bytes = trim_whitespace(bytes.substr(0, 200));
  for (const std::string_view tag : {"<!doctype html", "<html", "<head", "<body", "<table"}) {
    if (!equals_ignoring_case(bytes.substr(0, tag.size()), tag)) continue;
    throw UserError(path +
                    " is a web page (HTML), not a table; open it in a browser or a spreadsheet "
                    "program and save its table as a CSV file first.");
  }
}

}  // namespace

UserError no_text(const std::string& path) {
  return UserError(path +
                   " is no text; save the table as a CSV file first, or name its encoding with "
                   "--encoding.");
}

std::string name_of_source(const std::string& path) {
  return path == kStandardInput ? "standard input" : path;
}

DecodedText decode_csv_text(std::string bytes, std::optional<Encoding> encoding,
                            const std::string& path) {
  refuse_other_kinds(bytes, path);
  if (!encoding) encoding = encoding_of_beginning(bytes);
  if (!encoding) throw no_text(path);
  DecodedText result = decode(std::move(bytes), *encoding);
  // Cells are found by 32 bits, and UTF-8 may need three bytes where another encoding has one.
  if (result.text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw UserError(path + " is larger than 4 GiB in UTF-8; cut it into smaller files first.");
  }
  if (result.text.find('\0') != std::string::npos) throw no_text(path);
  if (trim_whitespace(result.text).empty()) {
    throw UserError(path + " is empty; it needs a row of names and rows of numbers.");
  }
  return result;
}

std::string read_table_bytes(const std::string& path, std::optional<Encoding> encoding) {
  const std::string name = name_of_source(path);
  // What has no encoding is refused before it is read to its end.
  bool is_first = true;
  bool is_workbook = false;
  const auto check_block = [&](std::string_view block) {
    if (is_first) refuse_other_kinds(block, name);
    if (is_first) is_workbook = looks_like_spreadsheet(block);
    if (is_first && !is_workbook && !encoding) {
      const std::optional<Encoding> guess = encoding_of_beginning(block);
      if (!guess) throw no_text(name);
      if (*guess != Encoding::kUtf8) encoding = guess;
    }
    is_first = false;
    const bool has_nuls =
        encoding && *encoding >= Encoding::kUtf16Le && *encoding <= Encoding::kUtf32Be;
    if (!has_nuls && !is_workbook && block.find('\0') != std::string_view::npos)
      throw no_text(name);
  };
  return path == kStandardInput ? read_standard_input(check_block)
                                : read_file(path, "table", check_block);
}

}  // namespace kurv::app
