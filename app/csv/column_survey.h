// What a column of a table holds, counted by the kinds of its cells.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "app/csv/cell_value.h"

namespace kurv::app {

enum class ColumnKind { kEmpty, kNumbers, kDates, kWords };

// The number of cells of a kind in a column, and the row of the first one.
struct Tally {
  std::uint32_t count = 0;
  std::uint32_t first_row = 0;
};

// What the dates of a column are.
struct DateSurvey {
  // The finest kind among them.
  DateKind kind = DateKind::kMonth;
  // They are not written as dates, but as numbers of this kind.
  enum class Digits : std::uint8_t {
    kNone,
    kYearMonthDay,
    kYearMonthDayTime,
    kUnixSeconds,
    kUnixMilliseconds
  };
  Digits digits = Digits::kNone;
};

class ColumnSurvey {
 public:
  // The rows may come in any order.
  void add(const CellValue& cell, std::size_t row);
  void add_number(std::size_t row) { count(CellKind::kNumber, row); }
  // Numbers or dates, whichever are more, if there are any and fewer than one in four of the filled
  // cells are something else: a few words do not make it a column of words. Numbers of different
  // units make one.
  ColumnKind kind() const;
  bool usable() const { return kind() == ColumnKind::kNumbers || kind() == ColumnKind::kDates; }
  // The dates of the column are times of day alone.
  bool only_times() const;
  // The cells that are not missing.
  std::uint32_t filled() const;
  Tally missing() const { return tally(CellKind::kMissing); }
  Tally infinite() const { return tally(CellKind::kInfinite); }
  Tally limits() const { return tally(CellKind::kLimit); }
  Tally errors() const { return tally(CellKind::kError); }
  // The filled cells whose value is not of the column's kind, except infinite numbers, limits and
  // errors.
  Tally mismatches() const;
  // What is written beside the numbers; empty where nothing is.
  const std::string& unit() const { return m_unit; }
  // The numbers with another unit than the first one.
  const Tally& other_units() const { return m_other_units; }
  // The numbers without a unit in a column that has one.
  std::uint32_t without_unit() const;
  // The whole numbers with more digits than a value holds.
  const Tally& rounded() const { return m_rounded; }
  void add_rounded(std::size_t row);
  const DateSurvey& dates() const { return m_dates; }
  // The numbers of the column are dates.
  void read_numbers_as(DateSurvey::Digits digits);

 private:
  const Tally& tally(CellKind kind) const { return m_tallies[static_cast<std::size_t>(kind)]; }
  void count(CellKind kind, std::size_t row);
  // Whether dates or times of day are more than numbers, and which.
  CellKind main_kind() const;

  std::array<Tally, kCellKinds> m_tallies{};
  std::string m_unit;
  Tally m_other_units;
  std::uint32_t m_with_unit = 0;
  Tally m_rounded;
  DateSurvey m_dates;
};

}  // namespace kurv::app
