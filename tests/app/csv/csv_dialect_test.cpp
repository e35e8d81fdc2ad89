#include "app/csv/csv_dialect.h"

#include <gmock/gmock.h>

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
