#include "app/csv/row_sample.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <cstddef>

#include "app/csv/line_fields.h"

namespace kurv::app {

namespace {

constexpr std::size_t kSamplePart = 64 * 1024;
constexpr std::size_t kSampleRows = 100;

using Rows = std::vector<std::string_view>;

// Complete rows of the text, at most so many. A row that is cut off is ignored, unless it is
// the only one. Returns whether these are all.
bool add_rows(std::string_view text, const std::string& comment, std::size_t most, Rows& rows) {
  const bool is_cut = text.size() > kSamplePart;
  text = text.substr(0, kSamplePart);
  std::size_t count = 0;
  while (!text.empty() && count < most) {
    const std::string_view row = take_row(text);
    const std::string_view content = trim_blanks(row);
    if (content.empty() || (!comment.empty() && content.starts_with(comment))) continue;
    if (is_rule(content)) continue;
    if (is_cut && text.empty() && !rows.empty()) return false;
    rows.push_back(row);
    ++count;
  }
  return text.empty() && !is_cut;
}

// From the beginning of the first whole line.
std::string_view from_line(std::string_view text) {
  take_line(text);
  return text;
}

// The last ones of the text.
void add_last_rows(std::string_view text, const std::string& comment, Rows& rows) {
  Rows last;
  add_rows(from_line(text.substr(text.size() - std::min(text.size(), kSamplePart))), comment,
           text.size(), last);
  const std::size_t kept = std::min(last.size(), kSampleRows);
  rows.insert(rows.end(), last.end() - static_cast<std::ptrdiff_t>(kept), last.end());
}

}  // namespace

std::vector<std::string_view> sample_rows(std::string_view text, const std::string& comment) {
  Rows rows;
  if (add_rows(text, comment, kSampleRows, rows)) return rows;
  add_rows(from_line(text.substr(text.size() / 2)), comment, kSampleRows, rows);
  add_last_rows(text, comment, rows);
  return rows;
}

std::vector<std::string_view> last_rows(const std::vector<std::string_view>& rows) {
  constexpr std::size_t kFewest = 3;
  const std::size_t count = std::min(rows.size(), std::max(kFewest, rows.size() / 3));
  return {rows.end() - static_cast<std::ptrdiff_t>(count), rows.end()};
}

}  // namespace kurv::app
