#include "app/csv/data_columns.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/cell_value.h"
#include "app/csv/column_names.h"
#include "app/csv/iso_date.h"

namespace kurv::app {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

void check_row_count(const DataRows& rows, const Selection& selection, const std::string& path) {
  if (rows.size() == 0) {
    throw UserError(path + " has a header and nothing below it; it needs rows of numbers.");
  }
  if (rows.size() <= std::size_t{kMaxPoints}) return;
  const std::size_t enough = (rows.total() - 1) / kMaxPoints + 1;
  const std::string kept = selection.every > 1
                               ? ", " + std::to_string(rows.size()) + " of them with --every " +
                                     std::to_string(selection.every)
                               : "";
  throw UserError(path + " has " + std::to_string(rows.total()) + " rows" + kept +
                  ", more than the " + std::to_string(kMaxPoints) +
                  " that a graph can hold; thin it out with --every " + std::to_string(enough) +
                  ".");
}

// Fields beyond the header have no name and are not drawn; blank ones, as a separator at the end of
// each line makes them, are nothing to talk about.
void warn_of_long_rows(const CsvTable& table, const DataRows& rows, std::size_t columns,
                       DataSet& data) {
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = rows.row(i);
    bool longer = false;
    for (std::size_t column = columns; column < table.width(row) && !longer; ++column) {
      longer = !trim_whitespace(table.cell(row, column)).empty();
    }
    if (longer && count++ == 0) first = row;
  }
  if (count == 0) return;
  data.warnings.push_back(std::to_string(count) + (count == 1 ? " row is" : " rows are") +
                          " longer than the header (line " + std::to_string(table.line(first)) +
                          (count == 1 ? ")" : " is the first)") +
                          "; the fields without a name are left out.");
}

void warn_of_odd_fields(const CsvTable& table, std::size_t column, const std::string& name,
                        const ColumnSurvey& survey, DataSet& data) {
  const auto warn = [&](const Tally& tally, const std::string& what) {
    if (tally.count == 0) return;
    data.warnings.push_back(
        "column " + in_quotes(name) + " has " + what + " in " + std::to_string(tally.count) +
        " of " + std::to_string(survey.filled()) + " fields, first " +
        in_quotes(trim_whitespace(table.cell(tally.first_row, column))) + " in line " +
        std::to_string(table.line(tally.first_row)) + "; they count as missing.");
  };
  warn(survey.infinite(), "an infinite or too large number");
  const bool dates = survey.kind() == ColumnKind::kDates;
  warn(survey.strays(), dates ? "something else than a date" : "something else than a number");
}

// The column's values of one kind into `target`.
void read_column(const CsvTable& table, const DataRows& rows, std::size_t column, CellKind kind,
                 bool decimal_comma, Column<Double> target) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const CellValue cell = read_cell(table.cell(rows.row(i), column), decimal_comma);
    target(static_cast<int>(i) + 1) = cell.kind == kind ? cell.value : kNoValue;
  }
}

// Turns days since 1970 into what an axis can show, and says in the name what that is.
void rescale_dates(Column<Double> days, std::string& name) {
  double first = std::numeric_limits<double>::infinity();
  double last = -first;
  for (int i = days.lower(); i <= days.upper(); ++i) {
    // Comparisons with a missing value are false.
    if (days(i) < first) first = days(i);
    if (days(i) > last) last = days(i);
  }
  const bool short_span = within_two_years(first, last);
  name += short_span ? " (days since " + iso_date_text(first) + ")" : " (decimal year)";
  for (int i = days.lower(); i <= days.upper(); ++i) {
    if (std::isnan(days(i))) continue;
    days(i) = short_span ? days(i) - std::floor(first) : decimal_year(days(i));
  }
}

void number_rows(const DataRows& rows, Column<Double> target) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    target(static_cast<int>(i) + 1) = static_cast<double>(rows.number(i));
  }
}

}  // namespace

DataSet make_data_set(const CsvTable& table, const Selection& selection, const std::string& path) {
  if (table.rows() == 0) throw UserError(path + " has no rows; it needs rows of numbers.");
  const bool decimal_comma = has_decimal_commas(table);
  const bool header = has_header(table, decimal_comma);
  const DataRows rows(table, header, selection.every);
  check_row_count(rows, selection, path);
  const std::vector<std::string> names = column_names(table, header);
  const std::vector<ColumnSurvey> surveys =
      survey_columns(table, rows, names.size(), decimal_comma);
  const Choice choice = choose_columns(names, surveys, selection, path);

  const int columns = 1 + static_cast<int>(choice.y.size());
  DataSet data{{1, columns, 1, static_cast<int>(rows.size())}, {1, columns}, choice.warnings};
  warn_of_long_rows(table, rows, names.size(), data);
  if (choice.x) {
    const std::size_t x = *choice.x;
    const bool dates = surveys[x].kind() == ColumnKind::kDates;
    warn_of_odd_fields(table, x, names[x], surveys[x], data);
    data.names(1) = names[x];
    read_column(table, rows, x, dates ? CellKind::kDate : CellKind::kNumber, decimal_comma,
                data.values.column(1));
    if (dates) rescale_dates(data.values.column(1), data.names(1));
  } else {
    data.names(1) = "row";
    number_rows(rows, data.values.column(1));
  }
  for (int curve = 1; curve < columns; ++curve) {
    const std::size_t y = choice.y[static_cast<std::size_t>(curve) - 1];
    warn_of_odd_fields(table, y, names[y], surveys[y], data);
    data.names(curve + 1) = names[y];
    read_column(table, rows, y, CellKind::kNumber, decimal_comma, data.values.column(curve + 1));
  }
  return data;
}

void check_drawable(const DataSet& data, const Selection& selection, const std::string& path) {
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
