#include "app/csv/table_survey.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/csv/column_choice.h"

namespace kurv::app {

namespace {

std::string separator_name(char separator) {
  if (separator == ',') return "commas";
  if (separator == ';') return "semicolons";
  if (separator == '\t') return "tabs";
  if (separator == kBlanks) return "blanks";
  return std::string("\"") + separator + '"';
}

// Chooses with a single curve, so that too many columns are no reason to refuse.
std::optional<std::size_t> default_x(TableColumns& columns, const std::vector<ColumnKind>& kinds) {
  const auto numbers = std::find(kinds.begin(), kinds.end(), ColumnKind::kNumbers);
  if (numbers == kinds.end()) return std::nullopt;
  Selection selection;
  selection.y = {columns.names()[static_cast<std::size_t>(numbers - kinds.begin())]};
  return choose_columns(columns, selection, {}).x;
}

// In "--x 3 takes the dates of "day"": the field has the names of the columns, not their numbers.
void remove_column_numbers(std::string& sentence) {
  constexpr std::string_view kOption = "--x ";
  const std::size_t option = sentence.find(kOption);
  if (option == std::string::npos) return;
  const std::size_t number = option + kOption.size();
  const std::size_t end = sentence.find_first_not_of("0123456789", number);
  constexpr std::string_view kAdvice = " takes ";
  if (end == std::string::npos || sentence.compare(end, kAdvice.size(), kAdvice) != 0) return;
  sentence.erase(number - 1, end - number + 1);
}

}  // namespace

TableSurvey survey_table(TableColumns& columns) {
  TableSurvey survey;
  survey.dialect = columns.dialect();
  survey.rows = columns.rows().total();
  survey.names = columns.names();
  columns.read_all();
  for (std::size_t i = 0; i < columns.size(); ++i) survey.kinds.push_back(columns.kind(i));
  survey.x = default_x(columns, survey.kinds);
  return survey;
}

std::string description(const CsvDialect& dialect, const TableSource& source) {
  const std::string comma =
      dialect.notation.numbers.decimal == ',' ? ", numbers have a decimal comma," : "";
  const std::string names = dialect.header ? " and the first line holds the names of the columns."
                                           : " and the columns have no names.";
  if (!source.kind.empty()) return "The table is " + source.kind + names;
  return "The fields are separated by " + separator_name(source.separator) + comma + names;
}

std::string separator_text(char separator) {
  if (separator == '\t') return "tab";
  if (separator == kBlanks) return "blanks";
  if (separator == kFixedWidth) return "fixed width";
  return {separator};
}

std::string sign_text(char sign) {
  if (sign == '\0') return "none";
  if (sign == ' ') return "blank";
  return {sign};
}

std::string kind_name(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kNumbers:
      return "numbers";
    case ColumnKind::kDates:
      return "dates";
    case ColumnKind::kWords:
      return "words";
    case ColumnKind::kEmpty:
      break;
  }
  return "empty";
}

std::string in_dialog_words(std::string sentence) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 14> kWords{{
      {"--every", "\"Take every\""},
      {"--x", "\"X axis\""},
      {"--y", "\"Curves\""},
      {"--sheet", "\"Worksheet\""},
      {"--encoding", "\"Encoding\""},
      {"--separator", "\"Separator\""},
      {"--skip", "\"Lines to skip\""},
      {"--comment", "\"Comments\""},
      {"--header", "\"Header\""},
      {"--decimal", "\"Decimal sign\""},
      {"--thousands", "\"Thousands sign\""},
      {"--missing", "\"Missing values\""},
      {"--dates", "\"Dates\""},
      {"--markers", "\"Draw a marker at each point\""},
  }};
  remove_column_numbers(sentence);
  for (const auto& [option, field] : kWords) {
    for (std::size_t at = sentence.find(option); at != std::string::npos;
         at = sentence.find(option, at + field.size())) {
      sentence.replace(at, option.size(), field);
    }
  }
  return sentence;
}

}  // namespace kurv::app
