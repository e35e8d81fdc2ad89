#include "app/csv/column_choice.h"

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include <algorithm>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/column_reference.h"

namespace kurv::app {

namespace {

std::string quoted(const TableColumns& columns, std::size_t column) {
  return "column " + in_quotes(columns.names()[column]);
}

// The text in the column that is the first to keep it from being one of numbers.
std::string first_word(TableColumns& columns, std::size_t column) {
  const ColumnSurvey& survey = columns.survey(column);
  const Tally tally = survey.mismatches().count > 0 ? survey.mismatches() : survey.other_units();
  if (tally.count == 0) return {};
  const CsvTable& table = columns.table();
  return in_quotes(trim_whitespace(table.cell(tally.first_row, column))) + " in line " +
         std::to_string(table.line(tally.first_row));
}

UserError unfit(TableColumns& columns, std::size_t column, const std::string& wanted,
                const std::string& path) {
  const bool words = columns.kind(column) == ColumnKind::kWords;
  const std::string first = words ? first_word(columns, column) : "";
  return UserError(quoted(columns, column) + " of " + path + " does not hold " + wanted +
                   (first.empty() ? "" : " (first " + first + ")") + "; choose another one.");
}

// The columns that the selection names.
struct Named {
  std::optional<std::size_t> x;
  bool row_numbers = false;
  std::vector<std::size_t> y;
};

Named named_columns(const TableColumns& columns, const Selection& selection,
                    const std::string& path) {
  Named named;
  named.row_numbers = selection.row_numbers;
  if (selection.x && is_row_number(columns.names(), *selection.x)) {
    named.row_numbers = true;
  } else if (selection.x) {
    named.x = find_column(columns.names(), *selection.x, path);
  }
  for (const std::string& reference : selection.y) {
    for (const std::size_t column : find_columns(columns.names(), reference, path)) {
      const bool is_new = std::find(named.y.begin(), named.y.end(), column) == named.y.end();
      if (is_new) named.y.push_back(column);
    }
  }
  return named;
}

// Reads the columns that the choice depends on in one pass.
void read_selected(TableColumns& columns, const Named& named) {
  if (named.y.empty()) return columns.read_all();
  std::vector<std::size_t> wanted = named.y;
  if (named.x) wanted.push_back(*named.x);
  columns.read(std::move(wanted));
}

// An empty column without a name is what a separator at the end of each line makes.
bool is_nothing(TableColumns& columns, std::size_t column) {
  if (columns.kind(column) != ColumnKind::kEmpty) return false;
  return header_text(columns.table(), columns.dialect(), column).empty();
}

bool only_first_has_numbers(TableColumns& columns) {
  if (columns.kind(0) != ColumnKind::kNumbers) return false;
  for (std::size_t column = 1; column < columns.size(); ++column) {
    if (columns.kind(column) == ColumnKind::kNumbers) return false;
  }
  return true;
}

bool is_single(TableColumns& columns) {
  for (std::size_t column = 1; column < columns.size(); ++column) {
    if (!is_nothing(columns, column)) return false;
  }
  return true;
}

class Chooser {
 public:
  Chooser(TableColumns& columns, const Selection& selection, const std::string& path)
      : m_columns(columns), m_path(path), m_named(named_columns(columns, selection, path)) {
    read_selected(columns, m_named);
  }

  Choice choose() {
    m_choice.x = choose_x();
    if (m_named.y.empty()) {
      choose_all_curves();
    } else {
      choose_named_curves();
    }
    check_count();
    return std::move(m_choice);
  }

 private:
  std::optional<std::size_t> choose_x() {
    if (m_named.x) {
      if (!m_columns.survey(*m_named.x).usable()) {
        throw unfit(m_columns, *m_named.x, "numbers or dates", m_path);
      }
      return m_named.x;
    }
    if (m_named.row_numbers || m_columns.size() == 0) return std::nullopt;
    if (!m_columns.survey(0).usable()) {
      warn_of_row_numbers();
      return std::nullopt;
    }
    if (only_first_has_numbers(m_columns)) {
      check_is_drawable_alone();
      warn(quoted(m_columns, 0) + " is the only one with numbers, so x is the row number.");
      return std::nullopt;
    }
    return with_times(0);
  }

  void warn_of_row_numbers() {
    std::string advice;
    for (std::size_t column = m_columns.size(); column-- > 1;) {
      if (m_columns.kind(column) != ColumnKind::kDates) continue;
      advice = "; --x " + std::to_string(column + 1) + " takes the dates of " +
               in_quotes(m_columns.names()[column]);
    }
    const std::string first = first_word(m_columns, 0);
    warn(quoted(m_columns, 0) + " does not hold numbers or dates" +
         (first.empty() ? "" : " (first " + first + ")") + ", so x is the row number" + advice +
         ".");
  }

  // The dates and the times of day of two columns side by side are one x.
  std::size_t with_times(std::size_t x) {
    const auto is_day = [&](std::size_t column) {
      const ColumnSurvey& survey = m_columns.survey(column);
      return survey.kind() == ColumnKind::kDates && !survey.only_times() &&
             survey.dates().kind == DateKind::kDay;
    };
    if (x + 1 >= m_columns.size()) return x;
    std::size_t day = x;
    std::size_t time = x + 1;
    if (m_columns.survey(x).only_times()) std::swap(day, time);
    if (!is_day(day) || !m_columns.survey(time).only_times()) return x;
    m_choice.time = time;
    warn(quoted(m_columns, day) + " and " + quoted(m_columns, time) +
         " together are x; --x changes that.");
    return day;
  }

  // A table whose other columns cannot be drawn is no table of a single column.
  void check_is_drawable_alone() {
    if (!m_named.y.empty() || is_single(m_columns)) return;
    std::size_t other = 1;
    while (is_nothing(m_columns, other)) ++other;
    const std::string word = first_word(m_columns, other);
    throw UserError(m_path + " has no column of numbers beside x, the " + quoted(m_columns, 0) +
                    "; the " + quoted(m_columns, other) + " has " +
                    (word.empty() ? "none" : "others, first " + word) + "; " + advice() +
                    ", or choose --x row --y 1.");
  }

  void choose_named_curves() {
    for (const std::size_t column : m_named.y) {
      if (m_columns.kind(column) != ColumnKind::kNumbers) {
        throw unfit(m_columns, column, "numbers", m_path);
      }
    }
    m_choice.y = m_named.y;
  }

  void choose_all_curves() {
    std::vector<std::size_t> words;
    std::vector<std::size_t> dates;
    std::vector<std::size_t> empty;
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
      if (m_choice.x == column || m_choice.time == column) continue;
      const ColumnKind kind = m_columns.kind(column);
      if (kind == ColumnKind::kNumbers) m_choice.y.push_back(column);
      // choose_x() has warned of the first one, or the user wants row numbers.
      if (column == 0 && !m_named.x) continue;
      if (kind == ColumnKind::kWords) words.push_back(column);
      if (kind == ColumnKind::kDates) dates.push_back(column);
      if (kind == ColumnKind::kEmpty && !is_nothing(m_columns, column)) empty.push_back(column);
    }
    if (!words.empty())
      warn_of(words, "words, first " + first_word(m_columns, words.front()) + ",");
    if (!dates.empty()) warn_of(dates, "dates, which only x can have,");
    if (!empty.empty()) warn_of(empty, "no values");
  }

  void warn(const std::string& sentence) { m_choice.warnings.push_back(sentence); }

  void warn_of(const std::vector<std::size_t>& columns, const std::string& reason) {
    std::vector<std::string> names;
    for (const std::size_t column : columns) names.push_back(m_columns.names()[column]);
    const bool one = names.size() == 1;
    warn((one ? "column " : "columns ") + enumeration(names, kNamesInASentence) +
         (one ? " holds " : " hold ") + reason +
         (one ? " and is left out." : " and are left out."));
  }

  // What may be wrong with a table that has no numbers.
  std::string advice() const {
    if (!m_columns.table().source().kind.empty()) return std::string(kInfoAdvice);
    return "check the separator between its fields and the decimal sign of its numbers";
  }

  void check_count() const {
    if (m_choice.y.empty()) {
      throw UserError(m_path + " has no column of numbers to draw as a curve; " + advice() + ".");
    }
    if (m_choice.y.size() <= std::size_t{kMaxCurves}) return;
    throw UserError(m_path + " has " + std::to_string(m_choice.y.size()) +
                    " curves, more than the " + std::to_string(kMaxCurves) +
                    " that a graph can hold; name the columns to draw with --y.");
  }

  TableColumns& m_columns;
  const std::string& m_path;
  Named m_named;
  Choice m_choice;
};

}  // namespace

Choice choose_columns(TableColumns& columns, const Selection& selection, const std::string& path) {
  return Chooser(columns, selection, path).choose();
}

}  // namespace kurv::app
