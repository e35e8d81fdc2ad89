#include "app/csv/table_data.h"
#include "app/csv/csv_reader.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>
#include <vector>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::DoubleEq;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsNan;

TableData data_of(const std::string& bytes, const Selection& selection = {}) {
  return make_table_data(parse_csv(bytes, "data.csv"), selection, "data.csv");
}

std::string refusal_of(const std::string& bytes, const Selection& selection = {}) {
  try {
    data_of(bytes, selection);
  } catch (const UserError& error) {
    EXPECT_EQ(error.exit_status(), kFailure);
    return error.what();
  }
  return "nothing was refused";
}

std::vector<std::string> names_of(const TableData& data) {
  std::vector<std::string> names;
  for (int i = data.names.lower(); i <= data.names.upper(); ++i) names.push_back(data.names(i));
  return names;
}

std::vector<double> column_of(const TableData& data, int column) {
  std::vector<double> values;
  for (int i = 1; i <= data.values.upper_point(); ++i) values.push_back(data.values(column, i));
  return values;
}

std::string rows(int count) {
  std::string bytes = "x,y\n";
  for (int i = 1; i <= count; ++i) bytes += std::to_string(i) + ",1\n";
  return bytes;
}

TEST(TableData, FirstColumnIsXAndTheOthersAreCurves) {
  const TableData data = data_of("t,a,b\n1,2,3\n4,5,6\n");
  EXPECT_THAT(names_of(data), ElementsAre("t", "a", "b"));
  EXPECT_THAT(column_of(data, 1), ElementsAre(1, 4));
  EXPECT_THAT(column_of(data, 2), ElementsAre(2, 5));
  EXPECT_THAT(column_of(data, 3), ElementsAre(3, 6));
  EXPECT_THAT(data.warnings, IsEmpty());
}

TEST(TableData, ARowOfNumbersDatesAndGapsIsNoHeader) {
  EXPECT_THAT(names_of(data_of("1,2,3\n4,5,6\n")), ElementsAre("x", "y1", "y2"));
  EXPECT_THAT(names_of(data_of("1\n4\n")), ElementsAre("row", "y"));
  const TableData data = data_of("2012-01-01,NA,3\n2012-01-02,5,6\n");
  EXPECT_THAT(names_of(data), ElementsAre("x (days since 2012-01-01)", "y1", "y2"));
  EXPECT_EQ(data.values.upper_point(), 2);
}

TEST(TableData, WithoutAHeaderTheWidestRowCounts) {
  EXPECT_THAT(names_of(data_of("1,2\n4,5,6\n7,8,9\n")), ElementsAre("x", "y1", "y2"));
}

TEST(TableData, NamesAreTrimmedFilledAndMadeDifferent) {
  EXPECT_THAT(names_of(data_of("\" t \",a,,a,\"a\",\"two\nlines\"\n1,2,3,4,5,6\n")),
              ElementsAre("t", "a", "column 3", "a (2)", "a (3)", "two lines"));
  EXPECT_THAT(names_of(data_of("a,a (2),a\n1,2,3\n")), ElementsAre("a", "a (2)", "a (3)"));
}

TEST(TableData, NamesOfOneBytePerLetterBecomeUtf8) {
  EXPECT_THAT(names_of(data_of("t,W\xE4rme\n1,2\n")), ElementsAre("t", "W\u00E4rme"));
  EXPECT_THAT(names_of(data_of("t,W\u00E4rme\n1,2\n")), ElementsAre("t", "W\u00E4rme"));
}

TEST(TableData, DecimalCommasAreReadWhereTheFileNeedsThem) {
  const TableData data = data_of("x;y\n1;3,14\n2,5;-1,5e3\n");
  EXPECT_THAT(column_of(data, 1), ElementsAre(1, 2.5));
  EXPECT_THAT(column_of(data, 2), ElementsAre(3.14, -1500));
  EXPECT_THAT(column_of(data_of("x\ty\n1\t3,5\n2\t4\n"), 2), ElementsAre(3.5, 4));
}

TEST(TableData, DecimalPointsStayWhereMostNumbersHaveThem) {
  const TableData data = data_of("x;y\n1.5;2.5\n2.5;3.5\n3;4,5\n4;5\n5;6\n");
  EXPECT_THAT(column_of(data, 2), ElementsAre(2.5, 3.5, IsNan(), 5, 6));
  EXPECT_THAT(data.warnings,
              ElementsAre(AllOf(HasSubstr("\"4,5\" in line 4"), HasSubstr("1 of 5"))));
}

TEST(TableData, ACommaInAQuotedNumberBetweenCommasSeparatesThousands) {
  EXPECT_THAT(column_of(data_of("w,y\na,\"1,234\"\nb,\"2,345\"\n"), 2), ElementsAre(1234, 2345));
}

TEST(TableData, EmptyFieldsNaAndNanAreMissing) {
  const TableData data = data_of("x,y\n1,\n2,NA\n3, nan \n4,\" NaN \"\n5,na\n6,7\n8,-\n");
  EXPECT_THAT(column_of(data, 2),
              ElementsAre(IsNan(), IsNan(), IsNan(), IsNan(), IsNan(), 7, IsNan()));
  EXPECT_THAT(data.warnings, ElementsAre(HasSubstr("no two values in neighbouring rows")));
}

TEST(TableData, ARowWithoutXIsKeptAndTold) {
  const TableData data = data_of("x,y\n1,2\n2,3\n,3\n,4\n,\n4,5\n5,6\n");
  EXPECT_THAT(column_of(data, 1), ElementsAre(1, 2, IsNan(), IsNan(), IsNan(), 4, 5));
  EXPECT_THAT(data.warnings, ElementsAre("2 rows have no value of x (line 4 is the first) and are "
                                         "not drawn."));
  EXPECT_THAT(data_of("x,y\n1,2\n2,3\n,3\n").warnings,
              ElementsAre("1 row has no value of x (line 4) and is not drawn."));
}

TEST(TableData, ColumnsWithoutNeighboursAreTold) {
  EXPECT_THAT(data_of("x,v,w\n1,5,\n2,,6\n3,7,\n4,,8\n").warnings,
              ElementsAre("columns \"v\" and \"w\" have no two values in neighbouring rows, so no "
                          "line is drawn; --markers shows their points."));
  EXPECT_THAT(data_of("x,u,v\n1,5,5\n2,6,\n3,7,7\n").warnings,
              ElementsAre("column \"v\" has no two values in neighbouring rows, so no line is "
                          "drawn; --markers shows its points."));
  EXPECT_THAT(data_of("x,v\n1,5\n,6\n3,7\n").warnings,
              ElementsAre(HasSubstr("no value of x"), HasSubstr("column \"v\" has no two")));
}

TEST(TableData, RepeatedNamesAreTold) {
  EXPECT_THAT(data_of("t,v,v,w,w\n1,2,3,4,5\n2,3,4,5,6\n").warnings,
              ElementsAre("names that come again in the header have a number: \"v (2)\" and \"w "
                          "(2)\"."));
}

TEST(TableData, AFirstColumnWithoutANameIsTold) {
  EXPECT_THAT(data_of("a b\n1 2 3\n2 3 4\n").warnings,
              ElementsAre("each row has one field more than the header, so the first column is "
                          "read as the one without a name."));
}

TEST(TableData, DatesOfDigitsAreNotToldWhereTheUserSaysSo) {
  const std::string bytes = "ts,y\n1700000000,1\n1700000060,2\n";
  EXPECT_THAT(data_of(bytes).warnings, ElementsAre(HasSubstr("--dates changes that")));
  TableOptions options;
  options.dates = DateOrder::kUnixSeconds;
  const CsvTable table = parse_csv(bytes, "data.csv", options);
  EXPECT_THAT(make_table_data(table, {}, "data.csv").warnings, IsEmpty());
}

TEST(TableData, InfiniteNumbersAreMissingAndTold) {
  const TableData data = data_of("x,y\n1,2\n2,1e999\n3,-inf\n");
  EXPECT_THAT(column_of(data, 2), ElementsAre(2, IsNan(), IsNan()));
  EXPECT_THAT(data.warnings, ElementsAre(AllOf(HasSubstr("\"y\""), HasSubstr("2 of 3"),
                                               HasSubstr("\"1e999\" in line 3")),
                                         HasSubstr("no two values in neighbouring rows")));
}

TEST(TableData, AFewWordsInAColumnOfNumbersAreMissingAndTold) {
  const TableData data = data_of("x,y\n1,2\n2,oops\n3,4\n4,5\n5,6\n");
  EXPECT_THAT(column_of(data, 2), ElementsAre(2, IsNan(), 4, 5, 6));
  EXPECT_THAT(data.warnings,
              ElementsAre(AllOf(HasSubstr("1 of 5"), HasSubstr("\"oops\" in line 3"))));
}

TEST(TableData, ColumnsOfWordsAndEmptyOnesAreLeftOutAndTold) {
  const TableData data = data_of("x,a,b,c,d\n1,one,2,,2012-01-01\n2,two,3,NA,2012-01-02\n");
  EXPECT_THAT(names_of(data), ElementsAre("x", "b"));
  EXPECT_THAT(data.warnings,
              ElementsAre("column \"a\" holds words, first \"one\" in line 2, and is left out.",
                          "column \"d\" holds dates, which only x can have, and is left out.",
                          "column \"c\" holds no values and is left out."));
}

TEST(TableData, AFirstColumnThatIsNotDrawnIsToldWhereAnotherOneIsX) {
  const Selection by_t{.x = "t", .y = {}};
  EXPECT_THAT(data_of("w,t,y\na,1,2\nb,2,3\n", by_t).warnings,
              ElementsAre("column \"w\" holds words, first \"a\" in line 2, and is left out."));
  EXPECT_THAT(data_of("d,t,y\n2012-01-01,1,2\n2012-01-02,2,3\n", by_t).warnings,
              ElementsAre("column \"d\" holds dates, which only x can have, and is left out."));
  EXPECT_THAT(data_of("e,t,y\n,1,2\n,2,3\n", by_t).warnings,
              ElementsAre("column \"e\" holds no values and is left out."));
}

TEST(TableData, OneWordInFourMakesAColumnOfWords) {
  EXPECT_THAT(names_of(data_of("x,y,z\n1,a,1\n2,2,2\n3,3,3\n4,4,4\n")), ElementsAre("x", "z"));
}

TEST(TableData, RowsAreNumberedWhereTheFirstColumnIsNoX) {
  const TableData data = data_of("name,a,b\none,2,5\ntwo,3,6\n");
  EXPECT_THAT(names_of(data), ElementsAre("row", "a", "b"));
  EXPECT_THAT(column_of(data, 1), ElementsAre(1, 2));
  EXPECT_THAT(data.warnings, ElementsAre("column \"name\" does not hold numbers or dates (first "
                                         "\"one\" in line 2), so x is the row number."));
}

TEST(TableData, RowsAreNumberedInATableOfASingleColumn) {
  for (const char* bytes : {"a\n5\n6\n", "a;\n5;\n6;\n"}) {
    const TableData data = data_of(bytes);
    EXPECT_THAT(names_of(data), ElementsAre("row", "a"));
    EXPECT_THAT(column_of(data, 2), ElementsAre(5, 6));
    EXPECT_THAT(data.warnings, ElementsAre(HasSubstr("row number")));
  }
}

TEST(TableData, XIsNotDrawnByItselfWhereTheOtherColumnsCannotBe) {
  EXPECT_THAT(refusal_of("a,note\n5,one\n6,two\n"),
              AllOf(HasSubstr("no column of numbers beside x"), HasSubstr("\"one\" in line 2"),
                    HasSubstr("--x row --y 1")));
  EXPECT_THAT(refusal_of("t,y\n1,n/a\n2,n/a\n"), HasSubstr("no column of numbers beside x"));
  const Selection by_row{.x = "row", .y = {"1"}};
  EXPECT_THAT(column_of(data_of("a,note\n5,one\n6,two\n", by_row), 2), ElementsAre(5, 6));
}

TEST(TableData, LongerRowsThanTheHeaderAreTold) {
  const TableData data = data_of("x,y\n1,2\n3,4,5\n5,6,,\n7,8,9\n");
  EXPECT_THAT(column_of(data, 2), ElementsAre(2, 4, 6, 8));
  EXPECT_THAT(data.warnings, ElementsAre(AllOf(HasSubstr("2 rows"), HasSubstr("line 3"))));
}

TEST(TableData, DatesOverTwoYearsBecomeDecimalYears) {
  const TableData data = data_of("date,y\n2012-07-02,1\n2014-07-02T12:00,2\n,3\n");
  EXPECT_EQ(data.names(1), "date (decimal year)");
  EXPECT_THAT(column_of(data, 1), ElementsAre(DoubleEq(2012.5), DoubleEq(2014.5), IsNan()));
}

TEST(TableData, DatesOfAShorterTimeBecomeDaysSinceTheFirstOne) {
  const TableData data = data_of("date,y\n2012-02-03,1\n2012-02-01T12:00,2\n2012-03-01,3\n");
  EXPECT_EQ(data.names(1), "date (days since 2012-02-01)");
  EXPECT_THAT(column_of(data, 1), ElementsAre(2, 0.5, 29));
}

TEST(TableData, TimesOfDayAfterMidnightAreOfTheNextDay) {
  const TableData data = data_of("t,v\n23:59:58,1\n23:59:59,2\n00:00:00,3\n00:00:01,4\n");
  EXPECT_THAT(names_of(data), ElementsAre("t (seconds since 23:59:58)", "v"));
  EXPECT_THAT(column_of(data, 1), ElementsAre(0, 1, 2, 3));
  EXPECT_THAT(data.warnings, ElementsAre(AllOf(HasSubstr("midnight"), HasSubstr("line 4"))));
}

TEST(TableData, NumbersWithoutTheUnitOfTheOthersAreReported) {
  EXPECT_THAT(data_of("t,v\n1,5\n2,6 kg\n3,7\n4,8\n").warnings,
              ElementsAre(AllOf(HasSubstr("3 of 4 numbers"), HasSubstr("\"kg\""))));
  EXPECT_THAT(data_of("t,v\n1,5 kg\n2,6 kg\n").warnings, IsEmpty());
}

TEST(TableData, WholeNumbersThatAreRoundedAreReported) {
  EXPECT_THAT(data_of("t,v\n1,5\n2,1234567890123456789\n3,7\n").warnings,
              ElementsAre(AllOf(HasSubstr("1234567890123456789"), HasSubstr("line 3"))));
  EXPECT_THAT(data_of("t,v\n1,9007199254740992\n2,10000000000000000\n").warnings, IsEmpty());
}

TEST(TableData, ChoosesByName) {
  Selection selection;
  selection.x = "b";
  selection.y = {"c", "a", "c"};
  const TableData data = data_of("a,b,c,w\n1,2,3,x\n", selection);
  EXPECT_THAT(names_of(data), ElementsAre("b", "c", "a"));
  EXPECT_THAT(data.warnings, IsEmpty());
}

TEST(TableData, NamesThatDoNotFitAreRefused) {
  const std::string bytes = "a,b,w\n1,2,x\n3,4,y\n";
  EXPECT_EQ(refusal_of(bytes, {.x = "A", .y = {}}),
            "data.csv has no column \"A\"; it has \"a\", \"b\" and \"w\".");
  EXPECT_THAT(refusal_of(bytes, {.x = {}, .y = {"z"}}), HasSubstr("no column \"z\""));
  EXPECT_THAT(refusal_of(bytes, {.x = "w", .y = {}}), HasSubstr("\"w\" of data.csv"));
  EXPECT_THAT(refusal_of(bytes, {.x = {}, .y = {"w"}}), HasSubstr("does not hold numbers"));
}

TEST(TableData, TheBadBoundOfARangeIsNamed) {
  const std::string bytes = "a,b,c\n1,2,3\n3,4,5\n";
  EXPECT_EQ(refusal_of(bytes, {.x = {}, .y = {"2-99"}}),
            "data.csv has no column 99, which \"2-99\" names; it has 3 columns.");
  EXPECT_EQ(refusal_of(bytes, {.x = {}, .y = {"0-2"}}),
            "data.csv has no column 0, which \"0-2\" names; it has 3 columns.");
  EXPECT_EQ(refusal_of(bytes, {.x = {}, .y = {"3-2"}}),
            "data.csv has no columns \"3-2\", because the range ends before it begins; write 2-3.");
  EXPECT_THAT(refusal_of(bytes, {.x = {}, .y = {"a-b"}}), HasSubstr("no column \"a-b\""));
}

TEST(TableData, SkippingAllLinesIsRefusedWithTheirNumber) {
  TableOptions options;
  options.skip = 99;
  try {
    make_table_data(parse_csv("x,y\n1,2\n2,3\n", "data.csv", options), {}, "data.csv");
    FAIL() << "nothing was refused";
  } catch (const UserError& error) {
    EXPECT_STREQ(error.what(),
                 "data.csv has 3 lines, and --skip 99 leaves none of them; choose a smaller "
                 "number.");
  }
}

TEST(TableData, EachNthRowIsTakenFromTheFirstOn) {
  const TableData data = data_of("x,y\n1,1\n2,2\n3,3\n4,4\n5,5\n", {.x = {}, .y = {}, .every = 2});
  EXPECT_THAT(column_of(data, 1), ElementsAre(1, 3, 5));
  const TableData numbered = data_of("w,y\na,1\nb,2\nc,3\n", {.x = {}, .y = {}, .every = 2});
  EXPECT_THAT(column_of(numbered, 1), ElementsAre(1, 3));
  EXPECT_EQ(data_of(rows(3), {.x = {}, .y = {}, .every = SIZE_MAX}).values.upper_point(), 1);
}

TEST(TableData, MoreRowsThanAGraphHoldsAreThinnedOutUnlessTheUserChoosesThem) {
  EXPECT_THAT(data_of(rows(32767)).warnings, IsEmpty());
  EXPECT_EQ(data_of(rows(32767)).values.upper_point(), 32767);
  const TableData thinned = data_of(rows(40000));
  EXPECT_EQ(thinned.values.upper_point(), 32767);
  EXPECT_THAT(
      thinned.warnings,
      ElementsAre("the table has 40000 rows, more than the 32767 that a graph can hold; it is "
                  "thinned out to 32767 rows that keep the peaks of all curves; --every takes each "
                  "N-th row instead."));
  EXPECT_EQ(data_of(rows(40000), {.x = {}, .y = {}, .every = 2}).values.upper_point(), 20000);
  EXPECT_THAT(refusal_of(rows(100000), {.x = {}, .y = {}, .every = 2}),
              AllOf(HasSubstr("50000 of them with --every 2"), HasSubstr("with --every 4.")));
  EXPECT_EQ(data_of(rows(100000), {.x = {}, .y = {}, .every = 4}).values.upper_point(), 25000);
}

TEST(TableData, MoreCurvesThanAGraphHoldsAreRefused) {
  std::string names = "x";
  std::string values = "1";
  for (int i = 1; i <= 149; ++i) {
    names += ",y" + std::to_string(i);
    values += ",2";
  }
  EXPECT_EQ(data_of(names + "\n" + values + "\n").names.upper(), 150);
  EXPECT_THAT(refusal_of(names + ",z\n" + values + ",2\n"),
              AllOf(HasSubstr("150 curves"), HasSubstr("149"), HasSubstr("--y")));
}

TEST(TableData, TablesWithoutNumbersAreRefused) {
  EXPECT_THAT(refusal_of("a,b\none,two\n"), HasSubstr("no column of numbers"));
  EXPECT_THAT(refusal_of("a,b\n,\n"), HasSubstr("no column of numbers"));
  EXPECT_THAT(refusal_of("date\n2012-01-01\n"), HasSubstr("no column of numbers"));
  EXPECT_THAT(refusal_of("a,b\n"), HasSubstr("nothing below"));
  EXPECT_THAT(refusal_of(""), HasSubstr("no rows"));
}

TEST(TableData, AWideHeaderAboveManyShortRowsCostsNoTime) {
  std::string bytes = "x,y";
  for (int i = 0; i < 99998; ++i) bytes += ",a";
  bytes += '\n';
  for (int i = 0; i < 30000; ++i) bytes += "1,2\n";
  const TableData data = data_of(bytes);
  EXPECT_THAT(names_of(data), ElementsAre("x", "y"));
  EXPECT_THAT(data.warnings,
              ElementsAre(HasSubstr("names that come again"), HasSubstr("more hold no values"),
                          HasSubstr("30000 rows are shorter than the header")));
}

TEST(TableData, XCountsTheUnitOfItsDatesOrYears) {
  EXPECT_EQ(x_unit(data_of("x,y\n1,1\n2,1\n")), AxisUnit::kNumbers);
  EXPECT_EQ(x_unit(data_of("Year (AD),y\n1958.2,1\n1960.4,1\n")), AxisUnit::kYears);
  EXPECT_EQ(x_unit(data_of("yearly,y\n1958.2,1\n1960.4,1\n")), AxisUnit::kNumbers);
  EXPECT_EQ(x_unit(data_of("day,y\n2020-01-01,1\n2020-03-01,1\n")), AxisUnit::kDays);
}

TEST(TableData, XIsUnsortedWhereItGoesBackAndForth) {
  const auto is_unsorted = [](const char* rows) {
    return has_unsorted_x(data_of(std::string("x,y\n") + rows));
  };
  EXPECT_TRUE(is_unsorted("1,1\n3,1\n2,1\n"));
  EXPECT_TRUE(is_unsorted("3,1\n1,1\n1,1\n2,1\n"));
  EXPECT_FALSE(is_unsorted("1,1\n2,1\n2,1\n3,1\n"));
  EXPECT_FALSE(is_unsorted("3,1\n2,1\n1,1\n"));
  EXPECT_FALSE(is_unsorted("1,1\n,1\n2,1\n"));
}

}  // namespace
}  // namespace kurv::app
