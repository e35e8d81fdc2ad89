#include "io/graph_file_reader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <KurvGraph/fault.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include "io/graph_file_table.h"
#include "io/text_file.h"
#include "model/plain_number.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

Double number_of(std::string_view text, char decimal_separator) {
  const std::optional<Double> number = text_to_number(text, decimal_separator);
  if (!number) throw Fault(FaultKind::kTypeMismatch);
  return *number;
}

Boolean boolean_of(std::string_view text, char decimal_separator) {
  const std::optional<Boolean> value = text_to_boolean(text, decimal_separator);
  if (!value) throw Fault(FaultKind::kTypeMismatch);
  return *value;
}

// The forms in which a line is read, each from the next line.
class LineReader {
 public:
  LineReader(InputFile& file, char decimal_separator)
      : m_file(file), m_decimal_separator(decimal_separator) {}

  void skip() { m_file.line(); }
  std::string_view bytes() { return m_file.line(); }
  String text() { return to_utf8(m_file.line()); }
  Integer count() { return to_integer(leading_number(m_file.line())); }
  Double number() { return number_of(m_file.line(), m_decimal_separator); }
  Integer whole() { return to_integer(number()); }
  Double finite() {
    const Double value = number();
    if (!std::isfinite(value)) throw Fault(FaultKind::kOverflow);
    return value;
  }
  Boolean boolean() { return boolean_of(m_file.line(), m_decimal_separator); }

  char decimal_separator() const { return m_decimal_separator; }

 private:
  InputFile& m_file;
  char m_decimal_separator;
};

// The fields of a list line, in order. The field service splits off as many as a graph can show;
// those that a file claims beyond them are split here, because the service scans the line from its
// beginning for each field, which would take minutes for a long line of many.
class Fields {
 public:
  Fields(const TextFieldTool& tool, String line, int shown)
      : m_tool(tool), m_line(std::move(line)), m_shown(shown) {}

  String next() {
    if (++m_index <= m_shown)
      return m_tool.GetField(m_line, m_index, std::string_view(&kGraphFileSeparator, 1));
    if (m_index == m_shown + 1) skip_shown();
    const std::size_t end = std::min(m_line.find(kGraphFileSeparator, m_begin), m_line.size());
    const std::size_t begin = std::exchange(m_begin, std::min(end + 1, m_line.size()));
    return m_line.substr(begin, end - begin);
  }

 private:
  void skip_shown() {
    for (int i = 1; i <= m_shown && m_begin < m_line.size(); ++i) {
      m_begin = std::min(m_line.find(kGraphFileSeparator, m_begin), m_line.size() - 1) + 1;
    }
  }

  const TextFieldTool& m_tool;
  String m_line;
  int m_shown;
  int m_index = 0;
  std::size_t m_begin = 0;  // of the next field after those that are shown
};

// Reads the line of a row of the table, one overload for each kind.
struct FieldReader {
  void operator()(const TagLine&) const { lines.skip(); }
  void operator()(const TextCopy&) const { lines.skip(); }
  void operator()(const TextLine& line) const { document.*line.member = lines.text(); }
  void operator()(const CountLine& line) const { graph.*line.to = lines.count(); }
  void operator()(const WholeLine& line) const { document.*line.member = lines.whole(); }
  void operator()(const LengthLine& line) const { document.*line.member = lines.whole(); }
  void operator()(const FontSizeLine& line) const { document.*line.member = lines.whole(); }
  void operator()(const HandleLine& line) const { graph.*line.place.*line.to = lines.whole(); }
  void operator()(const SizeLine& line) const { graph.*line.to = lines.whole(); }
  void operator()(const NumberLine& line) const { document.*line.member = lines.finite(); }
  void operator()(const BooleanLine& line) const { document.*line.member = lines.boolean(); }
  void operator()(const IntakeBooleanLine& line) const { graph.*line.to = lines.boolean(); }
  template <class Line>
  void operator()(const Deferred<Line>& deferred) const {
    FieldReader{lines, graph.deferred, graph}(deferred.line);
  }

  LineReader& lines;
  GraphDocument& document;
  GraphFile& graph;
};

// Applies what a row of the table has left for later.
struct DeferredApplier {
  void operator()(const HandleLine& line) const {
    layout.*line.handle.*line.from = graph.*line.place.*line.to;
  }
  template <class Line>
  void operator()(const Deferred<Line>& deferred) const {
    document.*deferred.line.member = graph.deferred.*deferred.line.member;
  }
  template <class Line>
  void operator()(const Line&) const {}

  const GraphFile& graph;
  GraphDocument& document;
  Layout& layout;
};

// Removes the first value of a line, with the separator after it, and returns its number.
Double take_number(std::string_view& line, bool& is_at_end, char decimal_separator) {
  Double value = 0;
  std::size_t end = decimal_separator == '.' ? read_plain_number(line, value) : 0;
  if (end == 0 || (end != line.size() && line[end] != kGraphFileSeparator)) {
    end = std::min(line.find(kGraphFileSeparator), line.size());
    value = number_of(line.substr(0, end), decimal_separator);
  }
  is_at_end = end == line.size();
  line.remove_prefix(is_at_end ? end : end + 1);
  return value;
}

// The first `count` values of a line as a column of points from 0 on. An empty line has no values.
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

// The matrix is allocated after all its values have been read: only then is it known that the file
// is as large as it claims.
Matrix<Double> read_columns(LineReader& lines, int columns, int count) {
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

// Reads the lines of a list, one overload for each kind. The counts have been read.
struct ListReader {
  void operator()(const DataList& list) const {
    graph.*list.to = read_columns(lines, columns, graph.num_data);
  }
  void operator()(const NameList& list) const {
    List<String>& names = graph.*list.to;
    names = List<String>(0, columns);
    Fields fields(tool, lines.text(), kMaxCurves + 1);
    for (int i = 1; i <= columns; ++i) names(i) = fields.next();
  }
  void operator()(const FlagList& list) const {
    List<Boolean>& flags = graph.*list.to;
    flags = List<Boolean>(1, graph.num_y);
    Fields fields(tool, lines.text(), kMaxCurves);
    for (int k = 1; k <= graph.num_y; ++k) {
      flags(k) = boolean_of(fields.next(), lines.decimal_separator());
    }
  }
  // Expressions beyond the capacity of the function table are ignored.
  void operator()(const ExpressionList& list) const {
    const int used = std::clamp<int>(graph.num_functions, 0, kMaxFunctions);
    List<String>& expressions = graph.*list.to;
    expressions = List<String>(1, used);
    Fields fields(tool, lines.text(), used);
    for (int k = 1; k <= used; ++k) expressions(k) = fields.next();
  }

  LineReader& lines;
  GraphFile& graph;
  const TextFieldTool& tool;
  const int columns;
};

void read_lists(LineReader& lines, GraphFile& graph, const TextFieldTool& tool) {
  const int columns = to_integer(Double(graph.num_y) + 1);
  // A count of -1 is that of an array without points, as 0 is.
  if (graph.num_data < -1 || graph.num_y < 0) throw Fault(FaultKind::kSubscriptOutOfRange);
  const ListReader read_list{lines, graph, tool, columns};
  for (const GraphFileListRow& row : kGraphFileListTable) std::visit(read_list, row.list);
}

}  // namespace

GraphFile read_graph_file(InputFile& file, GraphDocument& document, const TextFieldTool& tool,
                          char decimal_separator) {
  issue_vzeroupper();
  LineReader lines(file, decimal_separator);
  GraphFile graph;
  const FieldReader read_field{lines, document, graph};
  for (const GraphFileRow& row : kGraphFileTable) std::visit(read_field, row.line);
  read_lists(lines, graph, tool);
  return graph;
}

void apply_deferred(const GraphFile& graph, GraphDocument& document, Layout& layout) {
  const DeferredApplier apply{graph, document, layout};
  for (const GraphFileRow& row : kGraphFileTable) std::visit(apply, row.line);
}

}  // namespace kurv
