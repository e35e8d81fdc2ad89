#include "app/csv/table_columns.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/csv/csv_reader.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::IsNan;

struct Columns {
  explicit Columns(const std::string& bytes, std::size_t every = 1)
      : table(parse_csv(bytes, "data.csv")), columns(table, detect_dialect(table), every) {}

  std::vector<double> values(std::size_t column) {
    const int points = static_cast<int>(columns.rows().size());
    Matrix<Double> matrix(1, 1, 1, points);
    columns.copy_values(column, matrix, 1);
    std::vector<double> result;
    for (int i = 1; i <= points; ++i) result.push_back(matrix(1, i));
    return result;
  }

  CsvTable table;
  TableColumns columns;
};

TEST(TableColumns, HaveTheValuesOfTheirKind) {
  Columns table("n,d\n1,2012-01-01\n2,1970-01-02\n2012-01-01,7\n4,1970-01-04\n5,1970-01-05\n");
  EXPECT_EQ(table.columns.kind(0), ColumnKind::kNumbers);
  EXPECT_EQ(table.columns.kind(1), ColumnKind::kDates);
  EXPECT_THAT(table.values(0), ElementsAre(1, 2, IsNan(), 4, 5));
  EXPECT_THAT(table.values(1), ElementsAre(15340, 1, IsNan(), 3, 4));
}

TEST(TableColumns, CountTheirCellsInRowsOfAnyLength) {
  Columns table("x,y,z\n1\n2,a,3\n4,b\n5,6,c,7\n");
  EXPECT_THAT(table.values(0), ElementsAre(1, 2, 4, 5));
  EXPECT_EQ(table.columns.survey(1).filled(), 3u);
  EXPECT_EQ(table.columns.survey(1).mismatches().count, 2u);
  EXPECT_EQ(table.columns.survey(1).mismatches().first_row, 2u);
  EXPECT_EQ(table.columns.survey(2).filled(), 2u);
}

TEST(TableColumns, OfEachNthRowCountThatRowOnly) {
  Columns table("x,y\n1,a\n2,b\n3,4\n", 2);
  EXPECT_THAT(table.values(0), ElementsAre(1, 3));
  EXPECT_EQ(table.columns.survey(1).filled(), 2u);
}

TEST(TableColumns, HaveTheSameValuesWhetherTheyAreReadTogetherOrNot) {
  std::string bytes;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 400; ++column) {
      bytes += (column > 0 ? "," : "") + std::to_string(row * 1000 + column);
    }
    bytes += '\n';
  }
  Columns together(bytes);
  Columns alone(bytes);
  together.columns.read_all();
  for (std::size_t column = 400; column-- > 0;) {
    const double first = static_cast<double>(column);
    EXPECT_THAT(alone.values(column), ElementsAre(first, first + 1000, first + 2000, first + 3000));
    EXPECT_EQ(together.values(column), alone.values(column));
  }
}

TEST(TableColumns, OfMoreRowsThanAGraphHoldsAreCounted) {
  std::string bytes = "x,y\n";
  for (int row = 0; row < 40000; ++row) bytes += "1,a\n";
  Columns table(bytes);
  EXPECT_EQ(table.columns.survey(0).filled(), 40000u);
  EXPECT_EQ(table.columns.kind(1), ColumnKind::kWords);
}

TEST(TableColumns, AreSharedWithTheMatricesThatGetThem) {
  Columns table("x,y\n1,2\n3,4\n");
  Matrix<Double> one(1, 1, 1, 2);
  Matrix<Double> other(1, 1, 1, 2);
  table.columns.copy_values(1, one, 1);
  one(1, 1) = 7;
  table.columns.copy_values(1, other, 1);
  EXPECT_EQ(other(1, 1), 2);
}

TEST(TableColumns, OfOneVeryLongRowCostNoTime) {
  std::string bytes;
  for (int i = 0; i < 30000; ++i) bytes += "1,2\n";
  for (int i = 0; i < 99999; ++i) bytes += "3,";
  bytes += '\n';
  Columns table(bytes);
  table.columns.read_all();
  EXPECT_EQ(table.columns.survey(99998).filled(), 1u);
  EXPECT_EQ(table.columns.survey(1).filled(), 30001u);
}

DateSurvey::Digits digits_of(const std::string& bytes, std::size_t column,
                             std::optional<DateOrder> order = {}) {
  TableOptions options;
  options.dates = order;
  const CsvTable table = parse_csv(bytes, "data.csv", options);
  TableColumns columns(table, detect_dialect(table), 1);
  return columns.survey(column).dates().digits;
}

TEST(TableColumns, NumbersThatAreAllDatesAreDatesInAnyOrder) {
  using Digits = DateSurvey::Digits;
  for (const char* bytes :
       {"n,v\n20230103,1\n20230102,2\n20230101,3\n", "n,v\n20230101,1\n20230215,2\n20230103,3\n"}) {
    EXPECT_EQ(digits_of(bytes, 0), Digits::kYearMonthDay) << bytes;
  }
  EXPECT_EQ(digits_of("n,v\n1,20230103\n2,20230102\n", 1), Digits::kYearMonthDay);
  EXPECT_EQ(digits_of("n,v\n1,20230103\n2,20230103\n", 1), Digits::kNone);
  EXPECT_EQ(digits_of("n,v\n1,20230103\n2,20230132\n", 1), Digits::kNone);
  EXPECT_EQ(digits_of("n,v\n1,20230103\n2,20230103\n", 1, DateOrder::kYearFirst),
            Digits::kYearMonthDay);
  EXPECT_EQ(digits_of("n,v\n20230103,1\n20230102,2\n", 0, DateOrder::kNone), Digits::kNone);
}

TEST(TableColumns, ChosenCountsOfSecondsAreThoseOfX) {
  using Digits = DateSurvey::Digits;
  TableOptions options;
  options.dates = DateOrder::kUnixSeconds;
  options.selection.x = "2";
  const CsvTable table = parse_csv("n,s\n1,1700000000\n2,1700000060\n", "data.csv", options);
  TableColumns columns(table, detect_dialect(table), 1);
  EXPECT_EQ(columns.survey(0).dates().digits, Digits::kNone);
  EXPECT_EQ(columns.survey(1).dates().digits, Digits::kUnixSeconds);
}

TEST(TableColumns, NumbersOfFourteenDigitsMayBeInstants) {
  using Digits = DateSurvey::Digits;
  Columns table("n,v\n19700102120000,1\n19700103060000,2\n");
  EXPECT_EQ(table.columns.survey(0).dates().digits, Digits::kYearMonthDayTime);
  EXPECT_EQ(table.columns.survey(0).dates().kind, DateKind::kInstant);
  EXPECT_THAT(table.values(0), ElementsAre(1.5, 2.25));
  for (const char* no : {"20230101240000", "20230101006000", "20230101000060", "20231301000000",
                         "18991231000000", "21000101000000"}) {
    EXPECT_EQ(digits_of(std::string("n,v\n20230101000000,1\n") + no + ",2\n", 0), Digits::kNone);
  }
}

TEST(TableColumns, SecondsSince1970MayDescendAndHaveAFewOutOfOrder) {
  using Digits = DateSurvey::Digits;
  EXPECT_EQ(digits_of("ts,v\n1700000120,1\n1700000060,2\n1700000000,3\n", 0), Digits::kUnixSeconds);
  std::string bytes = "ts,v\n";
  for (int i = 0; i < 20; ++i) bytes += std::to_string(1700000000 + (i == 9 ? 0 : i)) + ",1\n";
  EXPECT_EQ(digits_of(bytes, 0), Digits::kUnixSeconds);
  EXPECT_EQ(digits_of("ts,v\n1700000120,1\n1700000000,2\n1700000060,3\n", 0), Digits::kNone);
}

}  // namespace
}  // namespace kurv::app
