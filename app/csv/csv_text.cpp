#include "app/csv/csv_text.h"

#include <KurvGraph/text.h>

#include <string_view>

#include "app/base/read_file.h"
#include "app/base/user_error.h"

namespace kurv::app {

std::string read_csv_text(const std::string& path) {
  std::string bytes = read_file(path, "CSV", [&](std::string_view block) {
    if (block.find('\0') == std::string_view::npos) return;
    throw UserError(path + " is no text; save the table as a CSV file in UTF-8 first.");
  });
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  if (trim_whitespace(bytes).empty()) {
    throw UserError(path + " is empty; it needs a row of names and rows of numbers.");
  }
  return bytes;
}

}  // namespace kurv::app
