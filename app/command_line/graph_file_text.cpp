#include "app/command_line/graph_file_text.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>

#include <algorithm>

#include "app/base/read_file.h"

namespace kurv::app {

namespace {

std::optional<int> count_in(std::string_view line) {
  try {
    return to_integer(leading_number(line));
  } catch (const Fault&) {
    return std::nullopt;
  }
}

}  // namespace

GraphFileText::GraphFileText(const std::string& path) : m_bytes(read_graph_file_bytes(path)) {
  const std::size_t most_lines = graph_file_length(kMaxCount);
  for (std::string_view rest = m_bytes; !rest.empty(); ++m_total) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (m_lines.size() < most_lines) m_lines.push_back(line);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  m_counts = {count_in(line(graph_file_line("NumData"))), count_in(line(graph_file_line("NumY"))),
              count_in(line(graph_file_line("NumYFunc")))};
}

std::string_view GraphFileText::line(std::size_t number) const {
  return number <= m_lines.size() ? m_lines[number - 1] : std::string_view();
}

std::optional<std::string_view> ListEntries::next() {
  if (m_at_end) return std::nullopt;
  const std::size_t end = m_rest.find(kGraphFileSeparator);
  const std::string_view entry = m_rest.substr(0, end);
  m_at_end = end == m_rest.npos;
  if (!m_at_end) m_rest.remove_prefix(end + 1);
  return entry;
}

std::size_t count_entries(std::string_view line) {
  return 1 + static_cast<std::size_t>(std::count(line.begin(), line.end(), kGraphFileSeparator));
}

}  // namespace kurv::app
