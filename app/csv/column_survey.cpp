#include "app/csv/column_survey.h"

#include <algorithm>

namespace kurv::app {

namespace {

Tally together(const Tally& one, const Tally& other) {
  if (one.count == 0) return other;
  if (other.count == 0) return one;
  return {one.count + other.count, std::min(one.first_row, other.first_row)};
}

}  // namespace

void ColumnSurvey::take(CellKind kind, std::size_t row) {
  Tally& tally = m_tallies[static_cast<std::size_t>(kind)];
  if (tally.count++ == 0) tally.first_row = static_cast<std::uint32_t>(row);
}

std::uint32_t ColumnSurvey::filled() const {
  return tally(CellKind::kNumber).count + infinite().count + tally(CellKind::kDate).count +
         tally(CellKind::kWord).count;
}

ColumnKind ColumnSurvey::kind() const {
  if (filled() == 0) return ColumnKind::kEmpty;
  const std::uint32_t numbers = tally(CellKind::kNumber).count;
  const std::uint32_t dates = tally(CellKind::kDate).count;
  const std::uint64_t words = strays().count;
  if (numbers + dates == 0 || words * 4 >= filled()) return ColumnKind::kWords;
  return dates > numbers ? ColumnKind::kDates : ColumnKind::kNumbers;
}

Tally ColumnSurvey::strays() const {
  const Tally& numbers = tally(CellKind::kNumber);
  const Tally& dates = tally(CellKind::kDate);
  return together(tally(CellKind::kWord), dates.count > numbers.count ? numbers : dates);
}

std::vector<ColumnSurvey> survey_columns(const CsvTable& table, const DataRows& rows,
                                         std::size_t columns, bool decimal_comma) {
  std::vector<ColumnSurvey> surveys(columns);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::size_t row = rows.row(i);
    const std::size_t width = std::min(columns, table.width(row));
    for (std::size_t column = 0; column < width; ++column) {
      surveys[column].take(read_cell(table.cell(row, column), decimal_comma).kind, row);
    }
  }
  return surveys;
}

}  // namespace kurv::app
