#include "io/graph_file_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include "io/graph_file_table.h"
#include "io/text_file.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr std::string_view kBreaks = "\r\n";

constexpr Single kMinPlace = std::numeric_limits<Integer>::min();
constexpr Single kMaxPlace = std::numeric_limits<Integer>::max();

// The forms in which a line is written.
class LineWriter {
 public:
  LineWriter(const TextSink& sink, char decimal_separator)
      : m_sink(sink), m_decimal_separator(decimal_separator) {}

  void text(std::string_view value) {
    m_line.clear();
    append_on_one_line(m_line, value);
    line(m_line);
  }
  void digits(Integer value) { line(std::to_string(value)); }
  void boolean(Boolean value) { line(boolean_to_text(value)); }
  template <class Number>
  void printed(Number value) {
    line(printed_number(value, m_decimal_separator));
  }

  // Entries 1 to `count`, each appended to the line by `append(line, index)`.
  template <class Append>
  void list(int count, Append append) {
    m_line.clear();
    for (int i = 1; i <= count; ++i) {
      if (i > 1) m_line += kGraphFileSeparator;
      append(m_line, i);
    }
    line(m_line);
  }

  char decimal_separator() const { return m_decimal_separator; }

 private:
  void line(std::string_view content) {
    m_sink(content);
    m_sink(kLineEnd);
  }

  const TextSink& m_sink;
  char m_decimal_separator;
  String m_line;  // the one being put together
};

// Writes the line of a row of the table, one overload for each kind.
struct FieldWriter {
  void operator()(const TagLine&) const {
    lines.text(String(kGraphFileTag) + version_stamp(KURV_VERSION_MAJOR, KURV_VERSION_MINOR));
  }
  void operator()(const TextCopy& line) const { lines.text(document.*line.member); }
  void operator()(const TextLine& line) const { lines.text(document.*line.member); }
  void operator()(const CountLine& line) const { lines.digits(document.*line.from); }
  void operator()(const WholeLine& line) const { lines.digits(document.*line.member); }
  void operator()(const LengthLine& line) const { lines.printed(Double(document.*line.member)); }
  void operator()(const FontSizeLine& line) const { lines.printed(document.*line.member); }
  // The reader takes 16 bits; a large font or a title of many lines puts its handle further away.
  void operator()(const HandleLine& line) const {
    lines.printed(std::clamp(layout.*line.handle.*line.from, kMinPlace, kMaxPlace));
  }
  void operator()(const SizeLine& line) const {
    if (size) lines.printed((*size).*line.from);
  }
  void operator()(const NumberLine& line) const { lines.printed(document.*line.member); }
  void operator()(const BooleanLine& line) const { lines.boolean(document.*line.member); }
  void operator()(const IntakeBooleanLine& line) const { lines.boolean(document.*line.from); }
  template <class Line>
  void operator()(const Deferred<Line>& deferred) const {
    (*this)(deferred.line);
  }

  LineWriter& lines;
  const GraphDocument& document;
  const Layout& layout;
  const std::optional<ControlSize>& size;
};

// Writes the lines of a list, one overload for each kind.
struct ListWriter {
  void operator()(const DataList& list) const {
    for (int c = 1; c <= document.NumY + 1; ++c) {
      const auto values = (document.*list.from).column(c);
      lines.list(document.NumData, [&](String& line, int i) {
        append_number(line, values(i), lines.decimal_separator());
      });
    }
  }
  void operator()(const NameList& list) const {
    const List<String>& names = document.*list.from;
    lines.list(document.NumY + 1, [&](String& line, int i) { append_on_one_line(line, names(i)); });
  }
  void operator()(const FlagList& list) const {
    const List<Boolean>& flags = document.*list.from;
    lines.list(document.NumY, [&](String& line, int k) { line += boolean_to_text(flags(k)); });
  }
  void operator()(const ExpressionList& list) const {
    const List<FunctionCurve>& curves = document.*list.from;
    lines.list(document.NumYFunc,
               [&](String& line, int k) { append_on_one_line(line, curves(k).expression); });
  }

  LineWriter& lines;
  const GraphDocument& document;
};

// Whether the file has fewer lines than it claims, because writing it failed.
bool is_truncated(const String& path) {
  const std::size_t num_y_line = graph_file_line("NumY");

  InputFile file(path);
  std::optional<std::string_view> line = file.next_line();
  if (!line) return true;
  if (!line->empty() && kGraphFileTag.starts_with(*line)) return true;
  if (!line->starts_with(kGraphFileTag)) return false;
  Double claimed = static_cast<Double>(graph_file_length(0));
  std::size_t count = 0;
  for (; line; line = file.next_line()) {
    if (++count == num_y_line) claimed += leading_number(*line);
  }
  return static_cast<Double>(count) < claimed || !file.line_was_ended();
}

}  // namespace

void append_on_one_line(String& line, std::string_view text) {
  std::size_t end = text.find_first_of(kBreaks);
  while (end != text.npos) {
    line.append(text.substr(0, end)) += ' ';
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(kLineEnd) ? kLineEnd.size() : 1);
    end = text.find_first_of(kBreaks);
  }
  line += text;
}

String version_stamp(int major, int minor) {
  const std::string digits = std::to_string(major) + std::to_string(minor);
  long long version = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), version);
  std::array<char, 20> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), version * 3, 16).ptr;
  String stamp(buffer.data(), end);
  std::transform(stamp.begin(), stamp.end(), stamp.begin(),
                 [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
  return stamp;
}

void write_graph_text(const TextSink& sink, const GraphDocument& document, const Layout& layout,
                      const std::optional<ControlSize>& size, char decimal_separator) {
  issue_vzeroupper();
  LineWriter lines(sink, decimal_separator);
  const FieldWriter write_field{lines, document, layout, size};
  for (const GraphFileRow& row : kGraphFileTable) std::visit(write_field, row.line);
  const ListWriter write_list{lines, document};
  for (const GraphFileListRow& row : kGraphFileListTable) std::visit(write_list, row.list);
}

void write_graph_file(const String& path, const GraphDocument& document, const Layout& layout,
                      ControlSize size, char decimal_separator) {
  OutputFile file(path, is_truncated);
  write_graph_text([&](std::string_view piece) { file.write(piece); }, document, layout, size,
                   decimal_separator);
  file.close();
}

}  // namespace kurv
