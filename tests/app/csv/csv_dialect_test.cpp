#include "app/csv/csv_dialect.h"

#include <gmock/gmock.h>

#include <array>
#include <random>
#include <string>

#include "app/csv/cell_value.h"

namespace kurv::app {
namespace {

CsvDialect dialect_of(const std::string& bytes) {
  return detect_dialect(parse_csv(bytes, "data.csv"));
}

TEST(CsvDialect, HasADecimalCommaWhereMoreNumbersNeedItThanAPoint) {
  EXPECT_TRUE(dialect_of("x;y\n1,5;2\n").decimal_comma);
  EXPECT_FALSE(dialect_of("x;y\n1,5;2.5\n").decimal_comma);
  EXPECT_FALSE(dialect_of("x;y\n1;2\n").decimal_comma);
  EXPECT_FALSE(dialect_of("x,y\n\"1,5\",2\n").decimal_comma);
}

// The rule as it is documented, by parsing every cell.
bool more_numbers_need_a_comma(const CsvTable& table) {
  int commas = 0;
  int points = 0;
  for (std::size_t row = 0; row < table.rows(); ++row) {
    for (std::size_t column = 0; column < table.width(row); ++column) {
      const std::string text(table.cell(row, column));
      if (text.find(',') != text.npos && cell_number(text, true)) ++commas;
      if (text.find('.') != text.npos && cell_number(text, false)) ++points;
    }
  }
  return commas > points;
}

TEST(CsvDialect, DecidesByCharactersAsByParsingEveryCell) {
  const std::array cells{"1,5",   "2.5",  "3",    "-,5",   "+.5",     " 1,5 ", "1,",        "1.",
                         "1,2,3", "1.2,", "1,2.", "1.2.3", "-1,5E+3", "2.e-7", "a,b",       "a.b",
                         "e,",    ".",    ",",    "nan",   "-inf",    "",      "1,5\u00A0", "1.5e",
                         "1,5 2", "1,5x", "+1,5", "\t2.5", "1.5d3",   "0x1.8", "31.12.2020"};
  std::mt19937 random(1);
  int with_commas = 0;
  for (int round = 0; round < 4000; ++round) {
    std::string bytes;
    for (auto count = 1 + random() % 9; count > 0; --count) {
      const std::string cell = cells[random() % cells.size()];
      bytes += '"' + cell + (random() % 3 == 0 ? "\"\n" : "\";");
    }
    const CsvTable table = parse_csv(bytes, ';', "data.csv");
    const bool expected = more_numbers_need_a_comma(table);
    EXPECT_EQ(detect_dialect(table).decimal_comma, expected) << bytes;
    if (expected) ++with_commas;
  }
  EXPECT_GT(with_commas, 1000);
  EXPECT_LT(with_commas, 3000);
}

TEST(CsvDialect, HasAHeaderWhereTheFirstRowHasAWord) {
  EXPECT_TRUE(dialect_of("1,a\n2,3\n").header);
  EXPECT_FALSE(dialect_of("1,NA\n2,3\n").header);
  EXPECT_FALSE(dialect_of("2012-01-01,\n2012-01-02,3\n").header);
  EXPECT_FALSE(dialect_of("").header);
}

TEST(CsvDialect, DecidesWhatACellMeans) {
  const CsvDialect points;
  const CsvDialect commas{.decimal_comma = true, .header = false};
  EXPECT_EQ(read_cell("2.5", points).value, 2.5);
  EXPECT_EQ(read_cell("2,5", points).kind, CellKind::kWord);
  EXPECT_EQ(read_cell("2,5", commas).value, 2.5);
  EXPECT_EQ(read_cell("2.5", commas).kind, CellKind::kWord);
  for (const CsvDialect& dialect : {points, commas}) {
    EXPECT_EQ(read_cell(" 3 ", dialect).value, 3);
    EXPECT_EQ(read_cell("1970-01-02", dialect).kind, CellKind::kDate);
    EXPECT_EQ(read_cell("-inf", dialect).kind, CellKind::kInfinite);
    EXPECT_EQ(read_cell("nan", dialect).kind, CellKind::kMissing);
  }
}

}  // namespace
}  // namespace kurv::app
