#include "app/command_line/graph_file_text.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/number_text.h>

#include <algorithm>

#include "app/base/read_file.h"

namespace kurv::app {

namespace {

// As many columns as a count can claim, and the three lists behind them.
constexpr std::size_t kMostLines = kFixedLines + 32768 + 3;

std::optional<int> count_in(std::string_view line) {
  try {
    return to_integer(leading_number(line));
  } catch (const Fault&) {
    return std::nullopt;
  }
}

}  // namespace

const std::array<FixedLine, kFixedLines> kLayout = {{
    {"Format", LineKind::kTag},
    {"Title, first copy", LineKind::kCopy},
    {"NumData", LineKind::kCount},
    {"NumY", LineKind::kCount},
    {"NumYFunc", LineKind::kCount},
    {"Title", LineKind::kText},
    {"SubTitle", LineKind::kText},
    {"NumTicks", LineKind::kWhole},
    {"BorderWidth", LineKind::kWhole},
    {"CurvesWidth", LineKind::kWhole},
    {"Top_margine", LineKind::kWhole},
    {"Left_margine", LineKind::kWhole},
    {"Right_margine", LineKind::kWhole},
    {"Bottom_margine", LineKind::kWhole},
    {"Title, top", LineKind::kWhole},
    {"Title, left", LineKind::kWhole},
    {"SubTitle, top", LineKind::kWhole},
    {"SubTitle, left", LineKind::kWhole},
    {"Legend, top", LineKind::kWhole},
    {"Legend, left", LineKind::kWhole},
    {"Height", LineKind::kWhole},
    {"Width", LineKind::kWhole},
    {"ymin", LineKind::kNumber},
    {"ymax", LineKind::kNumber},
    {"xmin", LineKind::kNumber},
    {"xmax", LineKind::kNumber},
    {"AxisLabelFormatX", LineKind::kText},
    {"AxisLabelFormatY", LineKind::kText},
    {"FontBold", LineKind::kFlag},
    {"FontItalic", LineKind::kFlag},
    {"FontName", LineKind::kText},
    {"FontSize", LineKind::kWhole},
    {"TitleFontBold", LineKind::kFlag},
    {"TitleFontItalic", LineKind::kFlag},
    {"TitleFontName", LineKind::kText},
    {"TitleFontSize", LineKind::kWhole},
    {"SubTitleFontBold", LineKind::kFlag},
    {"SubTitleFontItalic", LineKind::kFlag},
    {"SubTitleFontName", LineKind::kText},
    {"SubTitleFontSize", LineKind::kWhole},
    {"XLimitsExact", LineKind::kFlag},
    {"YLimitsExact", LineKind::kFlag},
    {"SortXY", LineKind::kFlag},
    {"Y_grid", LineKind::kFlag},
    {"X_grid", LineKind::kFlag},
    {"Connected", LineKind::kFlag},
    {"DrawMarkers", LineKind::kFlag},
}};

GraphFileText::GraphFileText(const std::string& path) : m_bytes(read_graph_file_bytes(path)) {
  for (std::string_view rest = m_bytes; !rest.empty(); ++m_total) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (m_lines.size() < kMostLines) m_lines.push_back(line);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  m_counts = {count_in(line(kNumDataLine)), count_in(line(kNumYLine)),
              count_in(line(kNumYFuncLine))};
}

std::string_view GraphFileText::line(std::size_t number) const {
  return number <= m_lines.size() ? m_lines[number - 1] : std::string_view();
}

std::optional<std::string_view> Pieces::next() {
  if (m_at_end) return std::nullopt;
  const std::size_t end = m_rest.find(',');
  const std::string_view piece = m_rest.substr(0, end);
  m_at_end = end == m_rest.npos;
  if (!m_at_end) m_rest.remove_prefix(end + 1);
  return piece;
}

std::size_t count_pieces(std::string_view line) {
  return 1 + static_cast<std::size_t>(std::count(line.begin(), line.end(), ','));
}

}  // namespace kurv::app
