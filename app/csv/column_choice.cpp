#include "app/csv/column_choice.h"

#include <KurvGraph/limits.h>

#include <algorithm>

#include "app/base/message_text.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

constexpr std::size_t kNamesInASentence = 10;

std::size_t find(const TableColumns& columns, const std::string& name, const std::string& path) {
  const std::vector<std::string>& names = columns.names();
  const auto found = std::find(names.begin(), names.end(), name);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  throw UserError(path + " has no column " + in_quotes(name) + "; it has " +
                  enumeration(names, kNamesInASentence) + ".");
}

UserError unfit(const std::string& name, const std::string& wanted, const std::string& path) {
  return UserError("column " + in_quotes(name) + " of " + path + " does not hold " + wanted +
                   "; choose another one.");
}

// Reads the columns that the choice depends on in one pass.
void read_selected(TableColumns& columns, const Selection& selection) {
  if (selection.y.empty()) return columns.read_all();
  const std::vector<std::string>& y = selection.y;
  std::vector<std::size_t> wanted;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const std::string& name = columns.names()[column];
    const bool is_curve = std::find(y.begin(), y.end(), name) != y.end();
    if (is_curve || selection.x == name) wanted.push_back(column);
  }
  columns.read(std::move(wanted));
}

bool only_first_has_numbers(TableColumns& columns) {
  if (columns.kind(0) != ColumnKind::kNumbers) return false;
  for (std::size_t column = 1; column < columns.size(); ++column) {
    if (columns.kind(column) == ColumnKind::kNumbers) return false;
  }
  return true;
}

std::optional<std::size_t> choose_x(TableColumns& columns, const Selection& selection,
                                    const std::string& path, std::vector<std::string>& warnings) {
  if (selection.x) {
    const std::size_t x = find(columns, *selection.x, path);
    if (!columns.survey(x).usable()) throw unfit(*selection.x, "numbers or dates", path);
    return x;
  }
  if (selection.row_numbers) return std::nullopt;
  const std::string first = "column " + in_quotes(columns.names()[0]);
  if (!columns.survey(0).usable()) {
    warnings.push_back(first + " does not hold numbers or dates, so x is the row number.");
    return std::nullopt;
  }
  if (only_first_has_numbers(columns)) {
    warnings.push_back(first + " is the only one with numbers, so x is the row number.");
    return std::nullopt;
  }
  return 0;
}

std::vector<std::size_t> named_curves(TableColumns& columns, const Selection& selection,
                                      const std::string& path) {
  std::vector<std::size_t> result;
  for (const std::string& name : selection.y) {
    const std::size_t column = find(columns, name, path);
    if (columns.kind(column) != ColumnKind::kNumbers) throw unfit(name, "numbers", path);
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

std::vector<std::size_t> all_curves(TableColumns& columns, Choice& choice) {
  std::vector<std::size_t> result;
  std::vector<std::string> words;
  std::vector<std::string> empty;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    if (choice.x == column) continue;
    const ColumnKind kind = columns.kind(column);
    if (kind == ColumnKind::kNumbers) result.push_back(column);
    // Without an x column, choose_x() has warned of the first one, or the user wants row numbers.
    if (column == 0 && !choice.x) continue;
    if (kind == ColumnKind::kWords || kind == ColumnKind::kDates)
      words.push_back(columns.names()[column]);
    if (kind == ColumnKind::kEmpty) empty.push_back(columns.names()[column]);
  }
  warn(choice.warnings, words, "no numbers");
  warn(choice.warnings, empty, "no values");
  return result;
}

}  // namespace

Choice choose_columns(TableColumns& columns, const Selection& selection, const std::string& path) {
  read_selected(columns, selection);
  Choice choice;
  choice.x = choose_x(columns, selection, path, choice.warnings);
  choice.y =
      selection.y.empty() ? all_curves(columns, choice) : named_curves(columns, selection, path);
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
