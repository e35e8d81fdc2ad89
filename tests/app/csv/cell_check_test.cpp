// Cells that have no value in their column.
#include "app/csv/cell_check.h"

#include <gtest/gtest.h>

#include "app/csv/csv_parser.h"
#include "app/csv/table_columns.h"

namespace kurv::app {
namespace {

struct Columns {
  explicit Columns(const std::string& text)
      : table(parse_csv(text, ',', "a.csv")), columns(table, detect_dialect(table), 1) {}
  std::string_view refusal(std::size_t row, std::size_t column) {
    return refusal_of(read_cell(table.cell(row, column), columns.dialect()),
                      columns.survey(column));
  }

  CsvTable table;
  TableColumns columns;
};

TEST(CellCheck, SaysWhyACellOfNumbersHasNoValue) {
  Columns read("v\n1\n2\noops\n< 3\n1e999\n#DIV/0!\nNA\n\n4\n5\n6\n7\n8\n9\n");
  EXPECT_EQ(read.refusal(1, 0), "");
  EXPECT_EQ(read.refusal(3, 0), "not a number");
  EXPECT_EQ(read.refusal(4, 0), "a limit");
  EXPECT_EQ(read.refusal(5, 0), "an infinite or too large number");
  EXPECT_EQ(read.refusal(6, 0), "an error of a spreadsheet");
  EXPECT_EQ(read.refusal(7, 0), "") << "missing";
  EXPECT_EQ(refused_cells(read.columns.survey(0)), 4U);
}

TEST(CellCheck, ANumberAmongDatesIsNoDate) {
  Columns read(
      "day,v\n2020-01-01,1\n2020-01-02,2\n17,3\n2020-01-04,4\n2020-01-05,5\n2020-01-06,6\n");
  EXPECT_EQ(read.refusal(1, 0), "");
  EXPECT_EQ(read.refusal(3, 0), "not a date");
  EXPECT_EQ(refused_cells(read.columns.survey(0)), 1U);
}

TEST(CellCheck, NumbersThatAreDatesHaveAValue) {
  Columns read("time,v\n1600000000,1\n1600000060,2\n1600000120,3\n");
  ASSERT_EQ(read.columns.kind(0), ColumnKind::kDates);
  EXPECT_EQ(read.refusal(1, 0), "");
  EXPECT_EQ(refused_cells(read.columns.survey(0)), 0U);
}

TEST(CellCheck, NothingIsWrongInAColumnOfWords) {
  Columns read("v,w\n1,a\n2,3\n3,c\n");
  EXPECT_EQ(read.refusal(1, 1), "");
  EXPECT_EQ(refused_cells(read.columns.survey(1)), 0U);
}

}  // namespace
}  // namespace kurv::app
