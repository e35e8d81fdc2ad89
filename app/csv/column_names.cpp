#include "app/csv/column_names.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "app/base/message_text.h"

namespace kurv::app {

namespace {

// Makes names unique. Keeps the last suffix of each name, so that many duplicates take linear time.
class Names {
 public:
  std::string make_unique(const std::string& name) {
    std::string result = name;
    int& count = m_counts.try_emplace(name, 1).first->second;
    while (!m_taken.insert(result).second) result = name + " (" + std::to_string(++count) + ")";
    return result;
  }

 private:
  std::unordered_map<std::string, int> m_counts;
  std::unordered_set<std::string> m_taken;
};

std::vector<std::string> names_of_header(const CsvTable& table) {
  std::vector<std::string> result;
  Names names;
  for (std::size_t column = 0; column < table.width(0); ++column) {
    std::string name = on_one_line(to_utf8(trim_whitespace(table.cell(0, column))));
    if (name.empty()) name = "column " + std::to_string(column + 1);
    result.push_back(names.make_unique(name));
  }
  return result;
}

}  // namespace

std::vector<std::string> column_names(const CsvTable& table, bool header) {
  if (header) return names_of_header(table);
  std::size_t width = 0;
  for (std::size_t row = 0; row < table.rows(); ++row) width = std::max(width, table.width(row));
  if (width == 1) return {"y"};
  std::vector<std::string> result;
  for (std::size_t column = 0; column < width; ++column) {
    result.push_back(column == 0 ? "x" : "y" + std::to_string(column));
  }
  return result;
}

}  // namespace kurv::app
