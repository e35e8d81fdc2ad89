#include <KurvGraph/graph_file_fields.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <variant>

#include "io/graph_file_table.h"

namespace kurv {

namespace {

constexpr auto kFields = [] {
  std::array<GraphFileField, kGraphFileTable.size()> fields{};
  std::transform(
      kGraphFileTable.begin(), kGraphFileTable.end(), fields.begin(), [](const GraphFileRow& row) {
        const auto kind = std::visit([](const auto& line) { return line.kKind; }, row.line);
        return GraphFileField{row.name, kind};
      });
  return fields;
}();

}  // namespace

std::span<const GraphFileField> graph_file_fields() {
  return kFields;
}

std::size_t graph_file_line(std::string_view name) {
  const auto found = std::find_if(kFields.begin(), kFields.end(),
                                  [name](const GraphFileField& f) { return f.name == name; });
  if (found == kFields.end()) throw std::out_of_range(std::string(name));
  return static_cast<std::size_t>(found - kFields.begin()) + 1;
}

std::vector<GraphFileList> graph_file_lists(int curves) {
  const std::size_t columns = 1 + static_cast<std::size_t>(curves);
  std::vector<GraphFileList> lists;
  std::size_t next_line = kFields.size() + 1;
  for (const GraphFileListRow& row : kGraphFileListTable) {
    const auto describe = [&](const auto& list) {
      return GraphFileList{row.name, list.kKind, list.kEntries, next_line,
                           list.kHasLinePerColumn ? columns : 1};
    };
    lists.push_back(std::visit(describe, row.list));
    next_line += lists.back().lines;
  }
  return lists;
}

std::size_t graph_file_list_line(std::string_view name, int curves) {
  for (const GraphFileList& list : graph_file_lists(curves)) {
    if (list.name == name) return list.first_line;
  }
  throw std::out_of_range(std::string(name));
}

std::size_t graph_file_length(int curves) {
  const GraphFileList last = graph_file_lists(curves).back();
  return last.first_line + last.lines - 1;
}

}  // namespace kurv
