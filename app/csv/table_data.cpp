#include "app/csv/table_data.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/cell_value.h"
#include "app/csv/column_reference.h"
#include "app/csv/csv_text.h"
#include "app/csv/row_lengths.h"
#include "app/csv/row_thinning.h"
#include "app/csv/table_file.h"
#include "app/csv/time_axis.h"
#include "app/csv/x_order.h"

namespace kurv::app {

namespace {

// All rows are thinned out where a graph cannot hold as many; each N-th row is what the user wants.
void check_row_count(const DataRows& rows, const std::string& path) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max();
  if (rows.size() <= (rows.every() > 1 ? std::size_t{kMaxPoints} : kMost)) return;
  const std::size_t enough = (rows.total() - 1) / kMaxPoints + 1;
  const std::string kept = rows.every() > 1
                               ? ", " + std::to_string(rows.size()) + " of them with --every " +
                                     std::to_string(rows.every())
                               : "";
  throw UserError(path + " has " + std::to_string(rows.total()) + " rows" + kept +
                  ", more than the " + std::to_string(kMaxPoints) +
                  " that a graph can hold; thin it out with --every " + std::to_string(enough) +
                  ".");
}

void warn_of_repeated_names(const TableColumns& columns, TableData& data) {
  const std::vector<std::string>& repeated = columns.repeated_names();
  if (repeated.empty()) return;
  data.warnings.push_back((repeated.size() == 1 ? "a name that comes again in the header has"
                                                : "names that come again in the header have") +
                          std::string(" a number: ") + enumeration(repeated, kNamesInASentence) +
                          '.');
}

void warn_of_numbers(TableColumns& columns, std::size_t column, TableData& data) {
  const CsvTable& table = columns.table();
  const ColumnSurvey& survey = columns.survey(column);
  if (survey.kind() != ColumnKind::kNumbers) return;
  const std::string name = "column " + in_quotes(columns.names()[column]);
  const std::uint32_t all = survey.filled() - survey.mismatches().count;
  if (survey.without_unit() > 0) {
    data.warnings.push_back(name + " has no unit beside " + std::to_string(survey.without_unit()) +
                            " of " + std::to_string(all) + " numbers and " +
                            in_quotes(survey.unit()) +
                            " beside the others; all are drawn as they are.");
  }
  const Tally& rounded = survey.rounded();
  if (rounded.count == 0) return;
  data.warnings.push_back(name + " has whole numbers with more digits than are kept, first " +
                          in_quotes(trim_whitespace(table.cell(rounded.first_row, column))) +
                          " in line " + std::to_string(table.line(rounded.first_row)) +
                          "; they are rounded to 15 or 16 digits.");
}

void warn_of_unusable_cells(TableColumns& columns, std::size_t column, TableData& data) {
  const CsvTable& table = columns.table();
  const ColumnSurvey& survey = columns.survey(column);
  const auto warn = [&](const Tally& tally, const std::string& what) {
    if (tally.count == 0) return;
    data.warnings.push_back(
        "column " + in_quotes(columns.names()[column]) + " has " + what + " in " +
        std::to_string(tally.count) + " of " + std::to_string(survey.filled()) + " fields, first " +
        in_quotes(trim_whitespace(table.cell(tally.first_row, column))) + " in line " +
        std::to_string(table.line(tally.first_row)) + "; they count as missing.");
  };
  warn(survey.infinite(), "an infinite or too large number");
  warn(survey.limits(), "a limit");
  warn(survey.errors(), "an error of a spreadsheet");
  const bool dates = survey.kind() == ColumnKind::kDates;
  warn_of_numbers(columns, column, data);
  warn(survey.mismatches(), dates ? "something else than a date" : "something else than a number");
}

// Makes a column of the table a column of the data.
void add_column(TableColumns& columns, std::size_t column, TableData& data, int target) {
  warn_of_unusable_cells(columns, column, data);
  data.names(target) = columns.names()[column];
  columns.copy_values(column, data.values, target);
}

// Dates that are written as numbers have been guessed unless the user says so.
void warn_of_digits(TableColumns& columns, std::size_t column, TableData& data) {
  using Digits = DateSurvey::Digits;
  const Digits digits = columns.survey(column).dates().digits;
  if (digits == Digits::kNone || columns.dialect().chosen_dates) return;
  const char* const kind = digits == Digits::kYearMonthDay ? "dates of eight digits"
                           : digits == Digits::kYearMonthDayTime
                               ? "dates and times of fourteen digits"
                           : digits == Digits::kUnixSeconds ? "seconds since 1970"
                                                            : "milliseconds since 1970";
  data.warnings.push_back("column " + in_quotes(columns.names()[column]) + " is read as " + kind +
                          "; --dates changes that.");
}

void number_rows(const DataRows& rows, Column<Double> target) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    target(static_cast<int>(i) + 1) = static_cast<double>(rows.number(i));
  }
}

// The dates of a day and the times of day of another column.
void add_times(TableColumns& columns, std::size_t time, TableData& data) {
  warn_of_unusable_cells(columns, time, data);
  Matrix<Double> times(1, 1, 1, data.values.upper_point());
  columns.copy_values(time, times, 1);
  Column<Double> days = data.values.column(1);
  for (int i = days.lower(); i <= days.upper(); ++i) days(i) += times(1, i);
}

void warn_of_midnights(const TableColumns& columns, std::size_t x,
                       const std::vector<int>& midnights, TableData& data) {
  if (midnights.empty()) return;
  const std::size_t row = columns.rows().row(static_cast<std::size_t>(midnights.front()) - 1);
  const std::string line = std::to_string(columns.table().line(row));
  const std::string times = std::to_string(midnights.size()) + " times (line " + line +
                            " is the first); the times from there on are of the days that follow.";
  data.warnings.push_back(
      "column " + in_quotes(columns.names()[x]) + " goes past midnight " +
      (midnights.size() > 1
           ? times
           : "in line " + line + "; the times from there on are of the next day."));
}

void add_x(TableColumns& columns, const Choice& choice, TableData& data) {
  if (!choice.x) {
    data.names(1) = "row";
    return number_rows(columns.rows(), data.values.column(1));
  }
  add_column(columns, *choice.x, data, 1);
  if (columns.kind(*choice.x) != ColumnKind::kDates) return;
  const ColumnSurvey& survey = columns.survey(*choice.x);
  DateKind kind = survey.only_times() ? DateKind::kTimeOfDay : survey.dates().kind;
  if (choice.time) {
    add_times(columns, *choice.time, data);
    kind = DateKind::kInstant;
  }
  const Column<Double> days = data.values.column(1);
  std::vector<int> midnights;
  if (kind == DateKind::kTimeOfDay) midnights = roll_over_midnights(days);
  warn_of_midnights(columns, *choice.x, midnights, data);
  data.x_scale = choose_time_scale(days, kind, !midnights.empty());
  for (int i = days.lower(); i <= days.upper(); ++i) days(i) = (*data.x_scale)(days(i));
  data.names(1) += " (" + data.x_scale->name + ')';
  warn_of_digits(columns, *choice.x, data);
}

// A row that is wholly missing is a gap in the lines, not a point that is lost.
void warn_of_missing_x(TableColumns& columns, TableData& data) {
  const Matrix<Double>& values = data.values;
  std::size_t count = 0;
  std::size_t first = 0;
  const Column<const Double> x = values.column(1);
  for (int i = 1; i <= x.upper(); ++i) {
    if (!std::isnan(x(i))) continue;
    bool has_value = false;
    for (int curve = 2; curve <= data.names.upper() && !has_value; ++curve) {
      has_value = !std::isnan(values(curve, i));
    }
    if (has_value && count++ == 0) first = columns.rows().row(static_cast<std::size_t>(i) - 1);
  }
  if (count == 0) return;
  data.warnings.push_back(std::to_string(count) + (count == 1 ? " row has" : " rows have") +
                          " no value of x (line " + std::to_string(columns.table().line(first)) +
                          (count == 1 ? ") and is" : " is the first) and are") + " not drawn.");
}

// Whether the curve has points, but none that a line could join to the one before.
bool has_only_lone_points(const TableData& data, int curve) {
  bool any = false;
  bool before = false;
  for (int i = 1; i <= data.values.upper_point(); ++i) {
    const bool is_point = !std::isnan(data.values(1, i)) && !std::isnan(data.values(curve, i));
    if (is_point && before) return false;
    any = any || is_point;
    before = is_point;
  }
  return any;
}

void warn_of_lone_points(TableData& data) {
  if (data.values.upper_point() < 2) return;
  std::vector<std::string> names;
  for (int curve = 2; curve <= data.names.upper(); ++curve) {
    if (has_only_lone_points(data, curve)) names.push_back(data.names(curve));
  }
  if (names.empty()) return;
  const bool one = names.size() == 1;
  data.warnings.push_back((one ? "column " : "columns ") + enumeration(names, kNamesInASentence) +
                          (one ? " has" : " have") +
                          " no two values in neighbouring rows, so no line is drawn; --markers "
                          "shows " +
                          (one ? "its" : "their") + " points.");
}

// The warning is the first one, because it is about all curves.
void thin_out(const Selection& selection, TableData& data) {
  const int rows = data.values.upper_point();
  if (selection.sort && has_unsorted_x(data)) sort_by_x(data.values);
  ThinnedRows kept = thinned(data.values);
  data.values = std::move(kept.values);
  data.warnings.insert(
      data.warnings.begin(),
      "the table has " + std::to_string(rows) + " rows, more than the " +
          std::to_string(kMaxPoints) + " that a graph can hold; it is thinned out to " +
          std::to_string(data.values.upper_point()) +
          (kept.are_mixed ? " points that keep the peaks of all curves, with values from rows near "
                            "each other in one point"
                          : " rows that keep the peaks of all curves") +
          "; --every takes each N-th row instead.");
}

// Graph files separate names by commas, so that a name with one would come back as two.
void remove_commas(TableData& data) {
  std::vector<std::string> changed;
  std::unordered_set<std::string> taken;
  for (int i = data.names.lower(); i <= data.names.upper(); ++i) taken.insert(data.names(i));
  for (int i = data.names.lower(); i <= data.names.upper(); ++i) {
    const std::string name = data.names(i);
    if (name.find(',') == std::string::npos) continue;
    std::string without;
    for (const char c : name) {
      const char letter = c == ',' ? ' ' : c;
      if (letter != ' ' || !without.ends_with(' ')) without.push_back(letter);
    }
    without = trim_blanks(without);
    std::string unique = without;
    for (int suffix = 2; !taken.insert(unique).second; ++suffix) {
      unique = without + " (" + std::to_string(suffix) + ")";
    }
    data.names(i) = unique;
    changed.push_back(name);
  }
  if (changed.empty()) return;
  data.warnings.push_back((changed.size() == 1 ? "the name " : "the names ") +
                          enumeration(changed, kNamesInASentence) +
                          (changed.size() == 1 ? " has" : " have") +
                          " a blank for each comma, at which a graph file separates names.");
}

}  // namespace

AxisUnit x_unit(const TableData& data) {
  if (data.x_scale) return axis_unit(*data.x_scale);
  const std::string& name = data.names(1);
  const std::string word = name.substr(0, name.find_first_of(" (["));
  const bool is_year = equals_ignoring_case(word, "year") || equals_ignoring_case(word, "years");
  return is_year ? AxisUnit::kYears : AxisUnit::kNumbers;
}

bool has_unsorted_x(const TableData& data) {
  return x_order(data.values.column(1)) == XOrder::kUnsorted;
}

TableData make_table_data(TableColumns& columns, const Selection& selection,
                          const std::string& path) {
  const DataRows& rows = columns.rows();
  check_has_rows(columns, path);
  check_row_count(rows, path);
  const Choice choice = choose_columns(columns, selection, path);

  const int width = 1 + static_cast<int>(choice.y.size());
  TableData data{{1, width, 1, static_cast<int>(rows.size())}, {1, width}, {}, {}};
  const auto add_notes = [&](const std::vector<std::string>& notes) {
    data.warnings.insert(data.warnings.end(), notes.begin(), notes.end());
  };
  add_notes(columns.table().source().notes);
  add_notes(columns.dialect().notes);
  warn_of_repeated_names(columns, data);
  add_notes(choice.warnings);
  warn_of_long_rows(columns, data);
  warn_of_short_rows(columns, data);
  add_x(columns, choice, data);
  for (int curve = 1; curve < width; ++curve) {
    add_column(columns, choice.y[static_cast<std::size_t>(curve) - 1], data, curve + 1);
  }
  warn_of_missing_x(columns, data);
  if (rows.size() > std::size_t{kMaxPoints}) thin_out(selection, data);
  warn_of_lone_points(data);
  remove_commas(data);
  return data;
}

TableData make_table_data(const CsvTable& table, const Selection& selection,
                          const std::string& path) {
  TableColumns columns(table, detect_dialect(table), selection.every);
  return make_table_data(columns, selection, path);
}

TableData read_table_data(const std::string& path, const TableOptions& options) {
  const CsvTable table = read_table(path, options);
  TableColumns columns(table, detect_dialect(table), options.selection.every);
  const std::string name = name_of_source(path);
  try {
    TableData data = make_table_data(columns, options.selection, name);
    check_drawable(data, options.selection, name);
    return data;
  } catch (const UserError& error) {
    throw with_sheet_advice(error, table.source());
  }
}

void check_has_rows(const TableColumns& columns, const std::string& path) {
  const TableSource& source = columns.table().source();
  const std::size_t skip = source.options.skip.value_or(0);
  if (columns.table().rows() == 0 && skip > 0 && skip >= source.skipped_lines) {
    throw UserError(path + " has " + std::to_string(source.skipped_lines) +
                    (source.skipped_lines == 1 ? " line" : " lines") + ", and --skip " +
                    std::to_string(skip) + " leaves none of them; choose a smaller number.");
  }
  if (columns.table().rows() == 0) {
    throw UserError(path + " has no rows; it needs rows of numbers.");
  }
  if (columns.rows().size() == 0) {
    throw UserError(path + " has a header and nothing below it; it needs rows of numbers.");
  }
}

UserError with_sheet_advice(const UserError& error, const TableSource& source) {
  if (!source.has_other_sheets) return error;
  return UserError(
      std::string(error.what()) + " Only " + source.kind + " is read; --sheet chooses another one.",
      error.exit_status());
}

void check_drawable(const TableData& data, const Selection& selection, const std::string& path) {
  if (data.values.upper_point() < 2) {
    throw UserError(path + " cannot be drawn: it has one row of data" +
                    (selection.every > 1 ? " with this --every, and a graph needs at least two; "
                                           "choose a smaller one."
                                         : ", and a graph needs at least two; add another one."));
  }
  double first = kNoValue;
  for (int i = 1; i <= data.values.upper_point(); ++i) {
    const double x = data.values(1, i);
    if (std::isnan(first)) first = x;
    if (!std::isnan(x) && x != first) return;
  }
  throw UserError(path + " cannot be drawn: all values of x, the column " +
                  in_quotes(data.names(1)) + ", are the same; choose another column with --x.");
}

}  // namespace kurv::app
