#include "app/csv/column_survey.h"

#include <algorithm>

namespace kurv::app {

namespace {

Tally sum(const Tally& one, const Tally& other) {
  if (one.count == 0) return other;
  if (other.count == 0) return one;
  return {one.count + other.count, std::min(one.first_row, other.first_row)};
}

void add_row(Tally& tally, std::size_t row) {
  const auto index = static_cast<std::uint32_t>(row);
  if (tally.count++ == 0 || index < tally.first_row) tally.first_row = index;
}

}  // namespace

void ColumnSurvey::count(CellKind kind, std::size_t row) {
  add_row(m_tallies[static_cast<std::size_t>(kind)], row);
}

void ColumnSurvey::add(const CellValue& cell, std::size_t row) {
  count(cell.kind, row);
  if (cell.kind == CellKind::kDate) m_dates.kind = std::max(m_dates.kind, cell.date);
  if (cell.unit.empty()) return;
  ++m_with_unit;
  if (cell.unit == m_unit) return;
  if (m_unit.empty()) {
    m_unit = cell.unit;
  } else {
    add_row(m_other_units, row);
  }
}

std::uint32_t ColumnSurvey::filled() const {
  std::uint32_t result = 0;
  for (const Tally& tally : m_tallies) result += tally.count;
  return result - missing().count;
}

CellKind ColumnSurvey::main_kind() const {
  const std::uint32_t numbers = tally(CellKind::kNumber).count + limits().count;
  const std::uint32_t dates = tally(CellKind::kDate).count;
  const std::uint32_t times = tally(CellKind::kTime).count;
  if (numbers >= std::max(dates, times)) return CellKind::kNumber;
  return dates >= times ? CellKind::kDate : CellKind::kTime;
}

std::uint32_t ColumnSurvey::without_unit() const {
  return m_with_unit == 0 ? 0 : tally(CellKind::kNumber).count - m_with_unit;
}

void ColumnSurvey::add_rounded(std::size_t row) {
  add_row(m_rounded, row);
}

ColumnKind ColumnSurvey::kind() const {
  if (filled() == 0) return ColumnKind::kEmpty;
  if (m_dates.digits != DateSurvey::Digits::kNone) return ColumnKind::kDates;
  const CellKind main = main_kind();
  const std::uint64_t words = mismatches().count;
  if (tally(main).count == 0 || words * 4 >= filled()) return ColumnKind::kWords;
  if (main != CellKind::kNumber) return ColumnKind::kDates;
  return m_other_units.count > 0 ? ColumnKind::kWords : ColumnKind::kNumbers;
}

bool ColumnSurvey::only_times() const {
  return kind() == ColumnKind::kDates && main_kind() == CellKind::kTime;
}

Tally ColumnSurvey::mismatches() const {
  const CellKind main = main_kind();
  Tally result = tally(CellKind::kWord);
  for (const CellKind kind : {CellKind::kNumber, CellKind::kDate, CellKind::kTime}) {
    if (kind != main) result = sum(result, tally(kind));
  }
  return result;
}

void ColumnSurvey::read_numbers_as(DateSurvey::Digits digits) {
  m_dates.digits = digits;
  m_dates.kind = digits == DateSurvey::Digits::kYearMonthDay ? DateKind::kDay : DateKind::kInstant;
}

}  // namespace kurv::app
