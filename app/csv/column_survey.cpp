#include "app/csv/column_survey.h"

#include <algorithm>

namespace kurv::app {

namespace {

Tally sum(const Tally& one, const Tally& other) {
  if (one.count == 0) return other;
  if (other.count == 0) return one;
  return {one.count + other.count, std::min(one.first_row, other.first_row)};
}

}  // namespace

void ColumnSurvey::add(CellKind kind, std::size_t row) {
  Tally& tally = m_tallies[static_cast<std::size_t>(kind)];
  const auto index = static_cast<std::uint32_t>(row);
  if (tally.count++ == 0 || index < tally.first_row) tally.first_row = index;
}

std::uint32_t ColumnSurvey::filled() const {
  return tally(CellKind::kNumber).count + infinite().count + tally(CellKind::kDate).count +
         tally(CellKind::kWord).count;
}

ColumnKind ColumnSurvey::kind() const {
  if (filled() == 0) return ColumnKind::kEmpty;
  const std::uint32_t numbers = tally(CellKind::kNumber).count;
  const std::uint32_t dates = tally(CellKind::kDate).count;
  const std::uint64_t words = mismatches().count;
  if (numbers + dates == 0 || words * 4 >= filled()) return ColumnKind::kWords;
  return dates > numbers ? ColumnKind::kDates : ColumnKind::kNumbers;
}

Tally ColumnSurvey::mismatches() const {
  const Tally& numbers = tally(CellKind::kNumber);
  const Tally& dates = tally(CellKind::kDate);
  return sum(tally(CellKind::kWord), dates.count > numbers.count ? numbers : dates);
}

}  // namespace kurv::app
