#include "app/csv/column_choice.h"

#include <KurvGraph/limits.h>

#include <algorithm>

#include "app/base/message_text.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

constexpr std::size_t kNamesInASentence = 10;

// The table's columns with everything that choosing needs.
struct Columns {
  const std::vector<std::string>& names;
  const std::vector<ColumnSurvey>& surveys;
  const std::string& path;

  ColumnKind kind(std::size_t column) const { return surveys[column].kind(); }

  std::size_t find(const std::string& name) const {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
    throw UserError(path + " has no column " + in_quotes(name) + "; it has " +
                    enumeration(names, kNamesInASentence) + ".");
  }

  std::size_t count(ColumnKind wanted) const {
    return static_cast<std::size_t>(
        std::count_if(surveys.begin(), surveys.end(),
                      [wanted](const ColumnSurvey& survey) { return survey.kind() == wanted; }));
  }

  UserError unfit(std::size_t column, const std::string& wanted) const {
    return UserError("column " + in_quotes(names[column]) + " of " + path + " does not hold " +
                     wanted + "; choose another one.");
  }
};

std::optional<std::size_t> choose_x(const Columns& columns, const Selection& selection,
                                    std::vector<std::string>& warnings) {
  if (selection.x) {
    const std::size_t x = columns.find(*selection.x);
    if (!columns.surveys[x].usable()) throw columns.unfit(x, "numbers or dates");
    return x;
  }
  if (selection.row_numbers) return std::nullopt;
  const std::string first = "column " + in_quotes(columns.names[0]);
  if (!columns.surveys[0].usable()) {
    warnings.push_back(first + " does not hold numbers or dates, so x is the row number.");
    return std::nullopt;
  }
  if (columns.kind(0) == ColumnKind::kNumbers && columns.count(ColumnKind::kNumbers) == 1) {
    warnings.push_back(first + " is the only one with numbers, so x is the row number.");
    return std::nullopt;
  }
  return 0;
}

std::vector<std::size_t> named_curves(const Columns& columns, const Selection& selection) {
  std::vector<std::size_t> result;
  for (const std::string& name : selection.y) {
    const std::size_t column = columns.find(name);
    if (columns.kind(column) != ColumnKind::kNumbers) throw columns.unfit(column, "numbers");
    if (std::find(result.begin(), result.end(), column) == result.end()) result.push_back(column);
  }
  return result;
}

void warn(std::vector<std::string>& warnings, const std::vector<std::string>& names,
          const std::string& reason) {
  if (names.empty()) return;
  warnings.push_back((names.size() == 1 ? "column " : "columns ") +
                     enumeration(names, kNamesInASentence) +
                     (names.size() == 1 ? " holds " : " hold ") + reason +
                     (names.size() == 1 ? " and is left out." : " and are left out."));
}

std::vector<std::size_t> all_curves(const Columns& columns, Choice& choice) {
  std::vector<std::size_t> result;
  std::vector<std::string> words;
  std::vector<std::string> empty;
  for (std::size_t column = 0; column < columns.names.size(); ++column) {
    if (choice.x == column) continue;
    const ColumnKind kind = columns.kind(column);
    if (kind == ColumnKind::kNumbers) result.push_back(column);
    // The first column has had its warning when it could not be x.
    if (column == 0 && !choice.x) continue;
    if (kind == ColumnKind::kWords || kind == ColumnKind::kDates)
      words.push_back(columns.names[column]);
    if (kind == ColumnKind::kEmpty) empty.push_back(columns.names[column]);
  }
  warn(choice.warnings, words, "no numbers");
  warn(choice.warnings, empty, "no values");
  return result;
}

}  // namespace

Choice choose_columns(const std::vector<std::string>& names,
                      const std::vector<ColumnSurvey>& surveys, const Selection& selection,
                      const std::string& path) {
  const Columns columns{names, surveys, path};
  Choice choice;
  choice.x = choose_x(columns, selection, choice.warnings);
  choice.y = selection.y.empty() ? all_curves(columns, choice) : named_curves(columns, selection);
  if (choice.y.empty()) {
    throw UserError(path + " has no column of numbers to draw as a curve; check the separator " +
                    "between its fields and the decimal sign of its numbers.");
  }
  if (choice.y.size() > std::size_t{kMaxCurves}) {
    throw UserError(path + " has " + std::to_string(choice.y.size()) + " curves, more than the " +
                    std::to_string(kMaxCurves) +
                    " that a graph can hold; name the columns to draw with --y.");
  }
  return choice;
}

}  // namespace kurv::app
