#include "io/graph_file_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include "io/text_file.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kSeparator = ',';

// The kinds of line that a graph file has.
class Lines {
 public:
  Lines(const TextSink& sink, char decimal_separator)
      : m_sink(sink), m_decimal_separator(decimal_separator) {}

  void text(std::string_view value) {
    m_sink(value);
    m_sink(kLineEnd);
  }
  void count(Integer value) { text(std::to_string(value)); }
  void boolean(Boolean value) { text(boolean_to_text(value)); }
  template <class Number>
  void printed(Number value) {
    text(printed_number(value, m_decimal_separator));
  }
  void whole(Integer value) { printed(Double(value)); }

  // Entries 1 to `count`, each put at the line's end by `append(line, index)`.
  template <class Append>
  void list(int count, Append append) {
    m_list.clear();
    for (int i = 1; i <= count; ++i) {
      if (i > 1) m_list += kSeparator;
      append(m_list, i);
    }
    text(m_list);
  }

  char decimal_separator() const { return m_decimal_separator; }

 private:
  const TextSink& m_sink;
  char m_decimal_separator;
  String m_list;
};

void write_head(Lines& lines, const GraphDocument& document) {
  lines.text(kGraphFileTag + version_stamp(KURV_VERSION_MAJOR, KURV_VERSION_MINOR));
  lines.text(document.Title);
  lines.count(document.NumData);
  lines.count(document.NumY);
  lines.count(document.NumYFunc);
  lines.text(document.Title);
  lines.text(document.SubTitle);
  lines.count(document.NumTicks);
  lines.count(document.BorderWidth);
  lines.count(document.CurvesWidth);
}

void write_places(Lines& lines, const GraphDocument& document, const Layout& layout,
                  const std::optional<ControlSize>& size) {
  lines.whole(document.Top_margine);
  lines.whole(document.Left_margine);
  lines.whole(document.Right_margine);
  lines.whole(document.Bottom_margine);
  for (const Rect* handle : {&layout.imgTitle, &layout.imgSubTitle, &layout.picLegend}) {
    lines.printed(handle->top);
    lines.printed(handle->left);
  }
  if (size) {
    lines.printed(size->height);
    lines.printed(size->width);
  }
  lines.printed(document.ymin);
  lines.printed(document.ymax);
  lines.printed(document.xmin);
  lines.printed(document.xmax);
}

void write_fonts(Lines& lines, const GraphDocument& document) {
  lines.text(document.AxisLabelFormatX);
  lines.text(document.AxisLabelFormatY);
  lines.boolean(document.FontBold);
  lines.boolean(document.FontItalic);
  lines.text(document.FontName);
  lines.printed(document.FontSize);
  lines.boolean(document.TitleFontBold);
  lines.boolean(document.TitleFontItalic);
  lines.text(document.TitleFontName);
  lines.printed(document.TitleFontSize);
  lines.boolean(document.SubTitleFontBold);
  lines.boolean(document.SubTitleFontItalic);
  lines.text(document.SubTitleFontName);
  lines.printed(document.SubTitleFontSize);
}

void write_switches(Lines& lines, const GraphDocument& document) {
  lines.boolean(document.XLimitsExact);
  lines.boolean(document.YLimitsExact);
  lines.boolean(document.SortXY);
  lines.boolean(document.Y_grid);
  lines.boolean(document.X_grid);
  lines.boolean(document.Connected);
  lines.boolean(document.DrawMarkers);
}

void write_curves(Lines& lines, const GraphDocument& document) {
  for (int c = 1; c <= document.NumY + 1; ++c) {
    const auto values = document.xyArr.column(c);
    lines.list(document.NumData, [&](String& line, int i) {
      append_number(line, values(i), lines.decimal_separator());
    });
  }
  lines.list(document.NumY + 1, [&](String& line, int i) { line += document.yVarName(i); });
  lines.list(document.NumY,
             [&](String& line, int k) { line += boolean_to_text(document.y_visible(k)); });
  lines.list(document.NumYFunc,
             [&](String& line, int k) { line += document.y_func(k).expression; });
}

// Whether the file has fewer lines than it claims, because writing it failed.
bool is_torn(const String& path) {
  constexpr int kCurvesLine = 4;
  constexpr int kLinesBesidesCurves = 51;

  InputFile file(path);
  std::optional<std::string_view> line = file.next_line();
  if (!line) return true;
  if (!line->empty() && std::string_view(kGraphFileTag).starts_with(*line)) return true;
  if (!line->starts_with(kGraphFileTag)) return false;
  Double claimed = kLinesBesidesCurves;
  int count = 0;
  for (; line; line = file.next_line()) {
    if (++count == kCurvesLine) claimed += leading_number(*line);
  }
  return count < claimed || !file.line_was_ended();
}

}  // namespace

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
  clear_upper_registers();
  Lines lines(sink, decimal_separator);
  write_head(lines, document);
  write_places(lines, document, layout, size);
  write_fonts(lines, document);
  write_switches(lines, document);
  write_curves(lines, document);
}

void write_graph_file(const String& path, const GraphDocument& document, const Layout& layout,
                      ControlSize size, char decimal_separator) {
  OutputFile file(path, is_torn);
  write_graph_text([&](std::string_view piece) { file.write(piece); }, document, layout, size,
                   decimal_separator);
  file.close();
}

}  // namespace kurv
