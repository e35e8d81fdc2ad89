#include "app/command_line/table_info.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <string_view>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/info_lines.h"
#include "app/csv/csv_text.h"
#include "app/csv/table_data.h"
#include "app/csv/table_file.h"
#include "app/csv/table_survey.h"

namespace kurv::app {

namespace {

// What is printed about a value that the user may choose.
std::string chosen(const std::string& text, bool is_chosen) {
  return is_chosen ? text + " (chosen)" : text;
}

std::string date_text(DateOrder order) {
  if (order == DateOrder::kMonthFirst) return "month first";
  return order == DateOrder::kNone ? "none" : "day first";
}

// How the bytes of a text are written.
void print_text(const TableSource& source, const NumberNotation& numbers,
                const TableOptions& options, std::ostream& out) {
  print_info_line(
      out, "Encoding",
      chosen(std::string(encoding_name(source.encoding)), options.encoding == source.encoding));
  print_info_line(out, "Separator",
                  chosen(separator_text(source.separator), options.separator.has_value()));
  print_info_line(out, "Decimal sign",
                  chosen(sign_text(numbers.decimal), options.decimal.has_value()));
  print_info_line(out, "Thousands sign",
                  chosen(sign_text(numbers.thousands), options.thousands.has_value()));
}

void print_layout(const CsvTable& table, const CsvDialect& dialect, const TableOptions& options,
                  std::ostream& out) {
  const TableSource& source = table.source();
  if (source.kind.empty()) {
    print_text(source, dialect.notation.numbers, options, out);
  } else {
    print_info_line(out, "Table", chosen(source.kind, options.sheet.has_value()));
  }
  print_info_line(out, "Dates such as 1/2/3",
                  chosen(date_text(dialect.notation.dates), options.dates.has_value()));
  print_info_line(
      out, "Comments",
      chosen(source.comment.empty() ? "none" : source.comment, options.comment.has_value()));
  print_info_line(out, "Comment lines in it", std::to_string(source.comment_lines));
  print_info_line(out, "Lines before it",
                  chosen(std::to_string(source.skipped_lines), options.skip.has_value()));
  std::string header = dialect.header ? "line " + std::to_string(table.line(0)) : "none";
  if (dialect.units) header += ", units in line " + std::to_string(table.line(1));
  print_info_line(out, "Header", chosen(header, options.header.has_value()));
}

// ", missing: 3", or nothing where there are none.
std::string counted(const Tally& tally, const std::string& what) {
  return tally.count == 0 ? "" : ", " + what + ' ' + std::to_string(tally.count);
}

std::string column_text(TableColumns& columns, std::size_t column, const std::string& use) {
  const ColumnSurvey& survey = columns.survey(column);
  const CsvTable& table = columns.table();
  std::string text = in_quotes(columns.names()[column]) + ", " + kind_name(survey.kind());
  if (!columns.unit(column).empty()) text += " in " + columns.unit(column);
  text += use + counted(survey.missing(), "missing:") + counted(survey.limits(), "limits:") +
          counted(survey.infinite(), "infinite:") + counted(survey.errors(), "errors:");
  const Tally others = survey.mismatches();
  if (others.count == 0 || survey.kind() == ColumnKind::kWords) return text;
  return text + counted(others, "others:") + " (first " +
         in_quotes(trim_whitespace(table.cell(others.first_row, column))) + " in line " +
         std::to_string(table.line(others.first_row)) + ')';
}

std::string use_of(const std::optional<Choice>& choice, std::size_t column) {
  if (!choice) return {};
  if (choice->x == column || choice->time == column) return ", x";
  const bool is_curve = std::find(choice->y.begin(), choice->y.end(), column) != choice->y.end();
  return is_curve ? ", a curve" : ", not drawn";
}

void print_table_columns(TableColumns& columns, const std::optional<Choice>& choice,
                         std::ostream& out) {
  for (std::size_t column = 0; column < columns.size(); ++column) {
    print_info_line(out, "Column " + std::to_string(column + 1),
                    column_text(columns, column, use_of(choice, column)));
  }
}

// The columns have been printed above the error.
UserError without_info_advice(const UserError& error) {
  std::string sentence = error.what();
  const std::size_t advice = sentence.find(kInfoAdvice);
  if (advice == std::string::npos) return error;
  sentence.replace(advice, kInfoAdvice.size(), "its columns are listed above");
  return UserError(sentence);
}

}  // namespace

void print_table_info(const std::string& path, const TableOptions& options, std::ostream& out) {
  const std::string name = name_of_source(path);
  const CsvTable table = read_table(path, options);
  TableColumns columns(table, detect_dialect(table), options.selection.every);
  columns.read_all();
  print_layout(table, columns.dialect(), options, out);
  print_info_line(out, "Rows", std::to_string(columns.rows().total()));
  std::optional<Choice> choice;
  std::optional<TableData> data;
  std::optional<UserError> refusal;
  try {
    check_has_rows(columns, name);
    choice = choose_columns(columns, options.selection, name);
    data = make_table_data(columns, options.selection, name);
    check_drawable(*data, options.selection, name);
  } catch (const UserError& error) {
    refusal = with_sheet_advice(without_info_advice(error), table.source());
  }
  print_table_columns(columns, choice, out);
  if (data) print_info_line(out, "x", in_quotes(data->names(1)));
  for (const std::string& note : data ? data->warnings : std::vector<std::string>()) {
    print_info_line(out, "Note", note);
  }
  out.flush();
  if (refusal) throw UserError(*refusal);
}

}  // namespace kurv::app
