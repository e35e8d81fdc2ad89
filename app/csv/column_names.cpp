#include "app/csv/column_names.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "app/base/message_text.h"
#include "app/csv/missing_text.h"
#include "app/csv/unit_text.h"

namespace kurv::app {

namespace {

// Makes names unique. Keeps the last suffix of each name, so that many duplicates take linear time.
class UniqueNames {
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

ColumnNames names_of_header(const CsvTable& table, const CsvDialect& dialect) {
  ColumnNames result;
  UniqueNames names;
  const std::size_t width = table.width(0) + (dialect.first_has_no_name ? 1 : 0);
  for (std::size_t column = 0; column < width; ++column) {
    std::string name = on_one_line(to_utf8(header_text(table, dialect, column)));
    std::string unit(split_unit(name).unit);
    if (name.empty()) name = "column " + std::to_string(column + 1);
    const std::string below =
        dialect.units ? on_one_line(to_utf8(trim_whitespace(table.cell(1, column)))) : "";
    if (unit.empty() && !is_usual_missing_text(below)) {
      unit = bare_unit(below);
      name += " [" + unit + ']';
    }
    result.names.push_back(names.make_unique(name));
    if (result.names.back() != name) result.repeated.push_back(result.names.back());
    result.units.push_back(std::move(unit));
  }
  return result;
}

}  // namespace

ColumnNames column_names(const CsvTable& table, const CsvDialect& dialect) {
  if (dialect.header) return names_of_header(table, dialect);
  std::size_t width = 0;
  for (std::size_t row = 0; row < table.rows(); ++row) width = std::max(width, table.width(row));
  ColumnNames result;
  result.units.resize(width);
  if (width == 1) {
    result.names = {"y"};
    return result;
  }
  for (std::size_t column = 0; column < width; ++column) {
    result.names.push_back(column == 0 ? "x" : "y" + std::to_string(column));
  }
  return result;
}

}  // namespace kurv::app
