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

GraphFileLists graph_file_lists(int curves) {
  const std::size_t data = kFields.size() + 1;
  const std::size_t names = data + 1 + static_cast<std::size_t>(curves);
  return {data, names, names + 1, names + 2};
}

}  // namespace kurv
