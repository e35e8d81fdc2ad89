#include "io/comma_changes.h"

#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

#include "io/graph_file_table.h"
#include "io/graph_file_writer.h"

namespace kurv {

namespace {

using Kind = CommaChange::Kind;

// Splits a list line into its entries; beyond the last of them all are empty.
class Entries {
 public:
  explicit Entries(std::string_view line) : m_rest(line) {}

  String next() {
    const std::size_t end = std::min(m_rest.find(kGraphFileSeparator), m_rest.size());
    String entry(m_rest.substr(0, end));
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    return entry;
  }

 private:
  std::string_view m_rest;
};

// Collects the changes in a list, one overload for each kind.
struct ChangeFinder {
  void operator()(const DataList& list) const {
    if (decimal_separator != kGraphFileSeparator) return;
    for (int c = 1; c <= document.NumY + 1; ++c) {
      const auto values = (document.*list.from).column(c);
      for (int i = 1; i <= document.NumData; ++i) {
        String text;
        append_number(text, values(i), decimal_separator);
        const std::size_t comma = text.find(kGraphFileSeparator);
        if (comma == String::npos) continue;
        changes.push_back({Kind::kNumber, text, text.substr(0, comma)});
        return;
      }
    }
  }
  void operator()(const NameList& list) const {
    const List<String>& names = document.*list.from;
    std::vector<std::pair<Kind, String>> entries;
    for (int i = 1; i <= document.NumY + 1; ++i) {
      entries.emplace_back(i == 1 ? Kind::kVariable : Kind::kCurve, names(i));
    }
    compare(entries);
  }
  void operator()(const FlagList&) const {}
  void operator()(const ExpressionList& list) const {
    const List<FunctionCurve>& curves = document.*list.from;
    std::vector<std::pair<Kind, String>> entries;
    for (int k = 1; k <= std::min<int>(document.NumYFunc, kMaxFunctions); ++k) {
      entries.emplace_back(Kind::kFunction, curves(k).expression);
    }
    compare(entries);
  }

  void compare(const std::vector<std::pair<Kind, String>>& entries) const {
    String line;
    std::vector<String> texts;
    for (const auto& [kind, entry] : entries) {
      append_on_one_line(texts.emplace_back(), entry);
      line += texts.back() + kGraphFileSeparator;
    }
    Entries read(line);
    for (std::size_t i = 0; i < entries.size(); ++i) {
      String read_back = read.next();
      if (read_back == texts[i]) continue;
      changes.push_back({entries[i].first, std::move(texts[i]), std::move(read_back)});
    }
  }

  const GraphDocument& document;
  char decimal_separator;
  std::vector<CommaChange>& changes;
};

}  // namespace

std::vector<CommaChange> comma_changes(const GraphDocument& document, char decimal_separator) {
  std::vector<CommaChange> changes;
  const ChangeFinder find{document, decimal_separator, changes};
  for (const GraphFileListRow& row : kGraphFileListTable) std::visit(find, row.list);
  return changes;
}

}  // namespace kurv
