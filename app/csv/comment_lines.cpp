#include "app/csv/comment_lines.h"

#include <KurvGraph/text.h>

#include "app/csv/csv_separator.h"
#include "app/csv/line_fields.h"
#include "app/csv/row_sample.h"

namespace kurv::app {

namespace {

constexpr const char* kPrefixes[] = {"#", "%", "//"};

}  // namespace

std::string find_comment_prefix(std::string_view text) {
  std::string_view first;
  while (first.empty() && !text.empty()) first = trim_blanks(take_line(text));
  for (const std::string_view prefix : kPrefixes) {
    if (first.starts_with(prefix)) return std::string(prefix);
  }
  return {};
}

std::string find_later_comment_prefix(std::string_view text, char separator) {
  const std::size_t width = usual_width(text, separator, {});
  const std::vector<std::string_view> rows = sample_rows(text, {});
  for (const std::string_view prefix : kPrefixes) {
    bool any = false;
    bool all_differ = true;
    for (const std::string_view row : rows) {
      if (!trim_blanks(row).starts_with(prefix)) continue;
      any = true;
      all_differ = all_differ && split_row(row, separator).size() != width;
    }
    if (any && all_differ) return std::string(prefix);
  }
  return {};
}

}  // namespace kurv::app
