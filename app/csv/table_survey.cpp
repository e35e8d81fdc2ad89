#include "app/csv/table_survey.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/csv/column_choice.h"
#include "app/csv/column_names.h"

namespace kurv::app {

namespace {

std::string separator_name(char separator) {
  if (separator == ',') return "commas";
  if (separator == ';') return "semicolons";
  if (separator == '\t') return "tabs";
  return std::string("\"") + separator + '"';
}

// With a single curve, so that a table of too many is no reason to refuse.
std::optional<std::size_t> usual_x(const std::vector<std::string>& names,
                                   const std::vector<ColumnSurvey>& surveys) {
  const auto numbers = std::find_if(surveys.begin(), surveys.end(), [](const ColumnSurvey& survey) {
    return survey.kind() == ColumnKind::kNumbers;
  });
  if (numbers == surveys.end()) return std::nullopt;
  Selection selection;
  selection.y = {names[static_cast<std::size_t>(numbers - surveys.begin())]};
  return choose_columns(names, surveys, selection, {}).x;
}

}  // namespace

TableLook look_at(const CsvTable& table) {
  TableLook look;
  if (table.rows() == 0) return look;
  look.decimal_comma = has_decimal_commas(table);
  look.header = has_header(table, look.decimal_comma);
  const DataRows rows(table, look.header, 1);
  look.rows = rows.total();
  look.names = column_names(table, look.header);
  const std::vector<ColumnSurvey> surveys =
      survey_columns(table, rows, look.names.size(), look.decimal_comma);
  for (const ColumnSurvey& survey : surveys) look.kinds.push_back(survey.kind());
  look.x = usual_x(look.names, surveys);
  return look;
}

std::string description(const TableLook& look, char separator) {
  const std::string comma = look.decimal_comma ? ", numbers have a decimal comma," : "";
  const std::string names = look.header ? " and the first line holds the names of the columns."
                                        : " and the columns have no names.";
  return "The fields are separated by " + separator_name(separator) + comma + names;
}

std::string in_dialog_words(std::string sentence) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kWords{{
      {"--every", "\"Take every\""},
      {"--x", "\"X axis\""},
      {"--y", "\"Curves\""},
  }};
  for (const auto& [option, field] : kWords) {
    for (std::size_t at = sentence.find(option); at != std::string::npos;
         at = sentence.find(option, at + field.size())) {
      sentence.replace(at, option.size(), field);
    }
  }
  return sentence;
}

}  // namespace kurv::app
