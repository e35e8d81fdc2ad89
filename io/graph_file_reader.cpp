#include "io/graph_file_reader.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <KurvGraph/fault.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include "io/text_file.h"
#include "model/plain_number.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

constexpr char kSeparator = ',';

Double number_of(std::string_view text, char decimal_separator) {
  const std::optional<Double> number = text_to_number(text, decimal_separator);
  if (!number) throw Fault(FaultKind::kTypeMismatch);
  return *number;
}

Boolean truth_of(std::string_view text, char decimal_separator) {
  const std::optional<Boolean> truth = text_to_boolean(text, decimal_separator);
  if (!truth) throw Fault(FaultKind::kTypeMismatch);
  return *truth;
}

// The kinds of line that a graph file has, each read from the next one.
class Lines {
 public:
  Lines(InputFile& file, char decimal_separator)
      : m_file(file), m_decimal_separator(decimal_separator) {}

  void skip() { m_file.line(); }
  std::string_view bytes() { return m_file.line(); }
  String text() { return to_utf8(m_file.line()); }
  Integer count() { return to_integer(leading_number(m_file.line())); }
  Double number() { return number_of(m_file.line(), m_decimal_separator); }
  Integer whole() { return to_integer(number()); }
  Boolean boolean() { return truth_of(m_file.line(), m_decimal_separator); }

  char decimal_separator() const { return m_decimal_separator; }

 private:
  InputFile& m_file;
  char m_decimal_separator;
};

// The fields of a list line, in order. As many as a graph can show are asked of the field service;
// what a file claims beyond them is split here, because the service begins each time at the front
// and a long line of many fields would keep it busy for minutes.
class Fields {
 public:
  Fields(const TextFieldTool& tool, String line, int shown)
      : m_tool(tool), m_line(std::move(line)), m_shown(shown) {}

  String next() {
    if (++m_index <= m_shown)
      return m_tool.GetField(m_line, m_index, std::string_view(&kSeparator, 1));
    if (m_index == m_shown + 1) skip_shown();
    const std::size_t end = std::min(m_line.find(kSeparator, m_begin), m_line.size());
    const std::size_t begin = std::exchange(m_begin, std::min(end + 1, m_line.size()));
    return m_line.substr(begin, end - begin);
  }

 private:
  void skip_shown() {
    for (int i = 1; i <= m_shown && m_begin < m_line.size(); ++i) {
      m_begin = std::min(m_line.find(kSeparator, m_begin), m_line.size() - 1) + 1;
    }
  }

  const TextFieldTool& m_tool;
  String m_line;
  int m_shown;
  int m_index = 0;
  std::size_t m_begin = 0;  // of the next field behind those that are shown
};

// The first line only names the format, and the second repeats the title.
void read_counts(Lines& lines, GraphFile& graph) {
  lines.skip();
  lines.skip();
  graph.num_data = lines.count();
  graph.num_y = lines.count();
  graph.num_functions = lines.count();
}

void read_titles_and_margins(Lines& lines, GraphDocument& document) {
  document.Title = lines.text();
  document.SubTitle = lines.text();
  document.NumTicks = lines.whole();
  document.BorderWidth = lines.whole();
  document.CurvesWidth = lines.whole();
  document.Top_margine = lines.whole();
  document.Left_margine = lines.whole();
  document.Right_margine = lines.whole();
  document.Bottom_margine = lines.whole();
}

void read_places_and_limits(Lines& lines, GraphFile& graph) {
  for (HandlePlace* handle : {&graph.imgTitle, &graph.imgSubTitle, &graph.picLegend}) {
    handle->top = lines.whole();
    handle->left = lines.whole();
  }
  graph.height = lines.whole();
  graph.width = lines.whole();
  graph.ymin = lines.number();
  graph.ymax = lines.number();
  graph.xmin = lines.number();
  graph.xmax = lines.number();
}

void read_formats_and_fonts(Lines& lines, GraphDocument& document) {
  document.AxisLabelFormatX = lines.text();
  document.AxisLabelFormatY = lines.text();
  document.FontBold = lines.boolean();
  document.FontItalic = lines.boolean();
  document.FontName = lines.text();
  document.FontSize = lines.whole();
  document.TitleFontBold = lines.boolean();
  document.TitleFontItalic = lines.boolean();
  document.TitleFontName = lines.text();
  document.TitleFontSize = lines.whole();
  document.SubTitleFontBold = lines.boolean();
  document.SubTitleFontItalic = lines.boolean();
  document.SubTitleFontName = lines.text();
  document.SubTitleFontSize = lines.whole();
  document.XLimitsExact = lines.boolean();
  document.YLimitsExact = lines.boolean();
  document.SortXY = lines.boolean();
}

void read_switches(Lines& lines, GraphFile& graph) {
  graph.Y_grid = lines.boolean();
  graph.X_grid = lines.boolean();
  graph.Connected = lines.boolean();
  graph.DrawMarkers = lines.boolean();
}

// The number in the piece at the front of a line, which loses it, with the separator behind it.
Double take_number(std::string_view& line, bool& is_at_end, char decimal_separator) {
  Double value = 0;
  std::size_t end = decimal_separator == '.' ? read_plain_number(line, value) : 0;
  if (end == 0 || (end != line.size() && line[end] != kSeparator)) {
    end = std::min(line.find(kSeparator), line.size());
    value = number_of(line.substr(0, end), decimal_separator);
  }
  is_at_end = end == line.size();
  line.remove_prefix(is_at_end ? end : end + 1);
  return value;
}

// The first `count` pieces of a line as a column of points from 0 on. An empty line has no pieces.
std::vector<Double> read_column(std::string_view line, int count, char decimal_separator) {
  std::vector<Double> values;
  values.reserve(std::min(static_cast<std::size_t>(count), line.size()) + 1);
  values.push_back(0);
  bool is_at_end = line.empty();
  for (int i = 1; i <= count; ++i) {
    if (is_at_end) throw Fault(FaultKind::kSubscriptOutOfRange);
    values.push_back(take_number(line, is_at_end, decimal_separator));
  }
  return values;
}

// The matrix is made when all its values have been seen: only then is the claim about its size
// known to be true.
Matrix<Double> read_columns(Lines& lines, int columns, int count) {
  std::vector<std::vector<Double>> values;
  for (int c = 1; c <= columns; ++c) {
    const std::string_view line = lines.bytes();
    if (count > 0) values.push_back(read_column(line, count, lines.decimal_separator()));
  }
  Matrix<Double> matrix(0, columns, 0, count);
  int c = 0;
  for (std::vector<Double>& column : values) matrix.set_column(++c, std::move(column));
  return matrix;
}

void read_curves(Lines& lines, GraphFile& graph, const TextFieldTool& tool) {
  const int columns = to_integer(Double(graph.num_y) + 1);
  if (graph.num_data < 0 || graph.num_y < 0) throw Fault(FaultKind::kSubscriptOutOfRange);
  graph.xyarr = read_columns(lines, columns, graph.num_data);

  graph.names = List<String>(0, columns);
  Fields names(tool, lines.text(), kMaxCurves + 1);
  for (int i = 1; i <= columns; ++i) graph.names(i) = names.next();

  graph.visible = List<Boolean>(1, graph.num_y);
  Fields flags(tool, lines.text(), kMaxCurves);
  for (int k = 1; k <= graph.num_y; ++k) {
    graph.visible(k) = truth_of(flags.next(), lines.decimal_separator());
  }

  // No slot takes what a file claims beyond the capacity.
  const int used = std::clamp<int>(graph.num_functions, 0, kMaxFunctions);
  graph.functions = List<String>(1, used);
  Fields functions(tool, lines.text(), used);
  for (int k = 1; k <= used; ++k) graph.functions(k) = functions.next();
}

}  // namespace

GraphFile read_graph_file(InputFile& file, GraphDocument& document, const TextFieldTool& tool,
                          char decimal_separator) {
  clear_upper_registers();
  Lines lines(file, decimal_separator);
  GraphFile graph;
  read_counts(lines, graph);
  read_titles_and_margins(lines, document);
  read_places_and_limits(lines, graph);
  read_formats_and_fonts(lines, document);
  read_switches(lines, graph);
  read_curves(lines, graph, tool);
  return graph;
}

}  // namespace kurv
