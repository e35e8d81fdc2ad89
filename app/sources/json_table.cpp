#include "app/sources/json_table.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <utility>

#include "app/base/user_error.h"
#include "app/sources/json_parser.h"
#include "app/sources/json_rows.h"
#include "app/sources/json_shape.h"

namespace kurv::app {

namespace {

std::string_view without_byte_order_mark(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  return bytes;
}

std::string_view after_blanks(std::string_view text) {
  return text.substr(std::min(text.size(), text.find_first_not_of(" \t\r\n")));
}

bool is_number_or_word(std::string_view text) {
  for (const std::string_view word : {"true", "false", "null", "NaN", "Infinity", "-Infinity"}) {
    if (text == word) return true;
  }
  return !text.empty() && text.find_first_not_of("0123456789+-.eE") == std::string_view::npos;
}

// What comes after the first number or word of an array: another element, or the end of the array
// and then nothing or another array. "[1] 2 3" is none.
bool goes_on_as_array(std::string_view text) {
  text = after_blanks(text);
  if (text.starts_with(',')) return true;
  if (!text.starts_with(']')) return false;
  text = after_blanks(text.substr(1));
  return text.empty() || text.starts_with('[');
}

}  // namespace

bool looks_like_json(std::string_view bytes) {
  std::string_view text = after_blanks(without_byte_order_mark(bytes));
  if (text.empty()) return false;
  const char bracket = text.front();
  text = after_blanks(text.substr(1));
  if (bracket == '{') return text.starts_with('"') || text.starts_with('}');
  if (bracket != '[' || text.empty()) return false;
  if (std::string_view("{[\"]").find(text.front()) != std::string_view::npos) return true;
  const std::size_t length = std::min(text.size(), text.find_first_of(" \t\r\n,]"));
  return is_number_or_word(text.substr(0, length)) && goes_on_as_array(text.substr(length));
}

JsonTable read_json_table(std::string_view bytes, const std::string& path) {
  const std::string_view text = without_byte_order_mark(bytes);
  const JsonShape shape = find_json_table(text, path);
  JsonRows rows = read_json_rows(text, shape, path);
  if (rows.text.empty()) {
    throw UserError(
        path +
        " holds no table; it needs an array of objects, an array of arrays, or an object "
        "of arrays.");
  }
  JsonTable table{std::move(rows.text), rows.has_header, std::move(rows.notes)};
  if (shape.complete_size < text.size()) {
    table.notes.push_back("Line " + std::to_string(line_of(text, shape.complete_size)) +
                          ", the last one, is incomplete or wrong and left out.");
  }
  return table;
}

}  // namespace kurv::app
