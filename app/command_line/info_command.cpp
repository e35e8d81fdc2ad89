#include "app/command_line/info_command.h"

#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <ostream>
#include <span>
#include <string>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/graph_file_check.h"
#include "app/command_line/graph_file_text.h"
#include "app/command_line/info_lines.h"
#include "app/command_line/table_info.h"
#include "app/graph/graph_file.h"
#include "app/graph/graph_intake.h"

namespace kurv::app {

namespace {

// The next entry of a list line as UTF-8; empty after the last one.
std::string next_text(ListEntries& entries) {
  return to_utf8(entries.next().value_or(""));
}

void print_columns(const GraphFileText& file, int curves, char decimal_separator,
                   std::ostream& out) {
  const std::size_t first_line = graph_file_list_line("values", curves);
  ListEntries names(file.line(graph_file_list_line("names", curves)));
  ListEntries flags(file.line(graph_file_list_line("flags", curves)));
  for (int column = 0; column <= curves; ++column) {
    const std::size_t number = first_line + static_cast<std::size_t>(column);
    if (number > file.lines()) return;
    const std::string_view line = file.line(number);
    std::string text = in_quotes(next_text(names)) + ", " +
                       std::to_string(line.empty() ? 0 : count_entries(line)) + " values";
    if (column > 0) {
      const auto visible = text_to_boolean(next_text(flags), decimal_separator);
      text +=
          visible ? (bool(*visible) ? ", visible" : ", hidden") : ", neither visible nor hidden";
    }
    print_info_line(out, column == 0 ? "x" : "Curve " + std::to_string(column), text);
  }
}

void print_functions(const GraphFileText& file, int curves, int functions, std::ostream& out) {
  const std::string_view line = file.line(graph_file_list_line("expressions", curves));
  const std::size_t given = line.empty() ? 0 : count_entries(line);
  ListEntries expressions(line);
  for (int k = 1; k <= functions && static_cast<std::size_t>(k) <= given; ++k) {
    print_info_line(out, "Function " + std::to_string(k), next_text(expressions));
  }
}

void print_contents(const GraphFileText& file, char decimal_separator, std::ostream& out) {
  const std::span<const GraphFileField> fields = graph_file_fields();
  for (std::size_t number = 1; number <= std::min(fields.size(), file.lines()); ++number) {
    const GraphFileField& field = fields[number - 1];
    const std::string_view line = file.line(number);
    if (field.kind == GraphFieldKind::kCopy) continue;
    print_info_line(out, std::string(field.name),
                    field.kind == GraphFieldKind::kText ? line : trim_whitespace(line));
  }
  const int curves = file.counts().curves.value_or(-1);
  if (curves < 0) return;
  print_columns(file, curves, decimal_separator, out);
  print_functions(file, curves, file.counts().functions.value_or(0), out);
}

void print_diagnostics(const std::string& path, const std::vector<Diagnostic>& diagnostics,
                       std::ostream& out) {
  if (diagnostics.empty()) out << path << ": no problems found\n";
  for (const Diagnostic& diagnostic : diagnostics) {
    out << path << ": line " << diagnostic.line << ": " << diagnostic.message
        << (diagnostic.is_error ? " (does not load)" : "") << '\n';
  }
}

}  // namespace

int print_info(const InfoRequest& request, std::ostream& out) {
  if (!is_graph_file(request.file)) {
    if (request.check) {
      throw UserError(request.file + " is a table, and --check is for graph files; leave it out.",
                      kUsageFailure);
    }
    print_table_info(request.file, request.table, out);
    return 0;
  }
  refuse_table_options(request.table, request.file);
  const char separator = request.locale ? request.locale->decimalPoint().front().toLatin1() : '.';
  const GraphFileText file(request.file);
  const std::vector<Diagnostic> diagnostics = check_graph_file(file, separator);
  const bool loads = std::none_of(diagnostics.begin(), diagnostics.end(),
                                  [](const Diagnostic& diagnostic) { return diagnostic.is_error; });
  if (request.check) {
    print_diagnostics(request.file, diagnostics, out);
    return loads ? 0 : kFailure;
  }
  print_contents(file, separator, out);
  out.flush();
  if (loads) return 0;
  throw UserError(request.file + " would not load; \"kurv info --check\" lists why.");
}

}  // namespace kurv::app
