#include "app/csv/table_data.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/iso_date.h"

namespace kurv::app {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

void check_row_count(const DataRows& rows, const std::string& path) {
  if (rows.size() == 0) {
    throw UserError(path + " has a header and nothing below it; it needs rows of numbers.");
  }
  if (rows.size() <= std::size_t{kMaxPoints}) return;
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

// The cells beyond the header have no name and are not drawn. Blank ones, such as a separator at
// the end of each line makes, are not reported.
void warn_of_long_rows(const TableColumns& columns, TableData& data) {
  const CsvTable& table = columns.table();
  const DataRows& rows = columns.rows();
  std::size_t count = 0;
  std::size_t first = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = rows.row(i);
    bool longer = false;
    for (std::size_t column = columns.size(); column < table.width(row) && !longer; ++column) {
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
  const bool dates = survey.kind() == ColumnKind::kDates;
  warn(survey.mismatches(), dates ? "something else than a date" : "something else than a number");
}

// Makes a column of the table a column of the data.
void add_column(TableColumns& columns, std::size_t column, TableData& data, int target) {
  warn_of_unusable_cells(columns, column, data);
  data.names(target) = columns.names()[column];
  columns.copy_values(column, data.values, target);
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

TableData make_table_data(TableColumns& columns, const Selection& selection,
                          const std::string& path) {
  const DataRows& rows = columns.rows();
  if (columns.table().rows() == 0) {
    throw UserError(path + " has no rows; it needs rows of numbers.");
  }
  check_row_count(rows, path);
  const Choice choice = choose_columns(columns, selection, path);

  const int width = 1 + static_cast<int>(choice.y.size());
  TableData data{{1, width, 1, static_cast<int>(rows.size())}, {1, width}, choice.warnings};
  warn_of_long_rows(columns, data);
  if (choice.x) {
    add_column(columns, *choice.x, data, 1);
    if (columns.kind(*choice.x) == ColumnKind::kDates) {
      rescale_dates(data.values.column(1), data.names(1));
    }
  } else {
    data.names(1) = "row";
    number_rows(rows, data.values.column(1));
  }
  for (int curve = 1; curve < width; ++curve) {
    add_column(columns, choice.y[static_cast<std::size_t>(curve) - 1], data, curve + 1);
  }
  return data;
}

TableData make_table_data(const CsvTable& table, const Selection& selection,
                          const std::string& path) {
  TableColumns columns(table, detect_dialect(table), selection.every);
  return make_table_data(columns, selection, path);
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
