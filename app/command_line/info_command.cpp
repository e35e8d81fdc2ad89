#include "app/command_line/info_command.h"

#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <ostream>
#include <string>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/graph_file_check.h"
#include "app/command_line/graph_file_text.h"

namespace kurv::app {

namespace {

constexpr std::size_t kLabelWidth = 20;

void print(std::ostream& out, std::string label, std::string_view value) {
  label.resize(std::max(kLabelWidth, label.size() + 1), ' ');
  const std::string line = label + on_one_line(to_utf8(value));
  out << std::string_view(line).substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

// The piece of a list line, empty behind the last one.
class List {
 public:
  explicit List(std::string_view line) : m_pieces(line) {}
  std::string next() { return to_utf8(m_pieces.next().value_or("")); }

 private:
  Pieces m_pieces;
};

void print_columns(const GraphFileText& file, int curves, char decimal_separator,
                   std::ostream& out) {
  List names(file.line(GraphFileText::names_line(curves)));
  List flags(file.line(GraphFileText::flags_line(curves)));
  for (int column = 0; column <= curves; ++column) {
    const std::size_t number = kFirstDataLine + static_cast<std::size_t>(column);
    if (number > file.lines()) return;
    const std::string_view line = file.line(number);
    std::string text = in_quotes(names.next()) + ", " +
                       std::to_string(line.empty() ? 0 : count_pieces(line)) + " values";
    if (column > 0) {
      const auto visible = text_to_boolean(flags.next(), decimal_separator);
      text +=
          visible ? (bool(*visible) ? ", visible" : ", hidden") : ", neither visible nor hidden";
    }
    print(out, column == 0 ? "x" : "Curve " + std::to_string(column), text);
  }
}

void print_functions(const GraphFileText& file, int curves, int functions, std::ostream& out) {
  const std::string_view line = file.line(GraphFileText::functions_line(curves));
  const int given =
      line.empty() ? 0 : static_cast<int>(std::min<std::size_t>(count_pieces(line), 32767));
  List expressions(line);
  for (int k = 1; k <= std::min(functions, given); ++k) {
    print(out, "Function " + std::to_string(k), expressions.next());
  }
}

void print_contents(const GraphFileText& file, char decimal_separator, std::ostream& out) {
  for (std::size_t number = 1; number <= std::min(kFixedLines, file.lines()); ++number) {
    const FixedLine& layout = kLayout[number - 1];
    const std::string_view line = file.line(number);
    if (layout.kind == LineKind::kCopy) continue;
    print(out, layout.name, layout.kind == LineKind::kText ? line : trim_whitespace(line));
  }
  const int curves = file.counts().curves.value_or(-1);
  if (curves < 0) return;
  print_columns(file, curves, decimal_separator, out);
  print_functions(file, curves, file.counts().functions.value_or(0), out);
}

void print_oddities(const std::string& path, const std::vector<Oddity>& oddities,
                    std::ostream& out) {
  if (oddities.empty()) out << path << ": nothing is odd about it\n";
  for (const Oddity& oddity : oddities) {
    out << path << ": line " << oddity.line << ": " << oddity.sentence
        << (oddity.fatal ? " (does not load)" : "") << '\n';
  }
}

}  // namespace

int print_info(const InfoRequest& request, std::ostream& out) {
  const char separator = request.locale ? request.locale->decimalPoint().front().toLatin1() : '.';
  const GraphFileText file(request.graph_file);
  const std::vector<Oddity> oddities = check_graph_file(file, separator);
  const bool loads = std::none_of(oddities.begin(), oddities.end(),
                                  [](const Oddity& oddity) { return oddity.fatal; });
  if (request.check) {
    print_oddities(request.graph_file, oddities, out);
    return loads ? 0 : kFailure;
  }
  print_contents(file, separator, out);
  out.flush();
  if (loads) return 0;
  throw UserError(request.graph_file + " would not load; \"kurv info --check\" lists why.");
}

}  // namespace kurv::app
