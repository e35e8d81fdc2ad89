#include "app/csv/csv_dialect.h"

#include <gmock/gmock.h>

#include <string>

#include "app/csv/cell_value.h"
#include "app/csv/csv_reader.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

CsvDialect dialect_of(const std::string& bytes, const TableOptions& options = {}) {
  return detect_dialect(parse_csv(bytes, "data.csv", options));
}

CsvDialect with_notation(char decimal, char thousands) {
  CsvDialect dialect;
  dialect.notation.numbers = {decimal, thousands};
  return dialect;
}

TEST(CsvDialect, HasAHeaderWhereTheFirstRowHasAWord) {
  EXPECT_TRUE(dialect_of("1,a\n2,3\n").header);
  EXPECT_FALSE(dialect_of("1,NA\n2,3\n").header);
  EXPECT_FALSE(dialect_of("2012-01-01,\n2012-01-02,3\n").header);
  EXPECT_FALSE(dialect_of("").header);
}

TEST(CsvDialect, HasNoHeaderWhereTheWordsOfTheFirstRowAreData) {
  EXPECT_FALSE(dialect_of("1,roof\n2,yard\n3,roof\n").header);
  EXPECT_TRUE(dialect_of("country,2000,2010\na,1,2\nb,3,4\n").header);
  EXPECT_TRUE(dialect_of(",2000,2001\n1,1,2\n2,3,4\n").header);
}

TEST(CsvDialect, HasUnitsInARowOfTheirOwn) {
  const CsvDialect dialect = dialect_of("time;speed\n[s];m/s\n0;1\n1;2\n");
  EXPECT_TRUE(dialect.units);
  EXPECT_EQ(dialect.first_row, 2u);
  EXPECT_THAT(dialect.notes, IsEmpty());
}

TEST(CsvDialect, ARowOfOtherWordsAboveTheValuesIsToldAndLeftOut) {
  const CsvDialect dialect = dialect_of("time;speed;load\nof day;of wind;of roof\n0;1;2\n1;2;3\n");
  EXPECT_FALSE(dialect.units);
  EXPECT_EQ(dialect.first_row, 2u);
  EXPECT_THAT(dialect.notes, ElementsAre(HasSubstr("line 2 is left out")));
  EXPECT_EQ(dialect_of("name;score\nAnna;absent\nBob;5\n").first_row, 1u);
}

TEST(CsvDialect, RepeatedHeadersTotalsAndEmptyRowsAtTheEndAreToldAndLeftOut) {
  const CsvDialect dialect = dialect_of("x,y\n1,2\nx,y\n2,3\nTotal,5\n,\n,\n");
  EXPECT_THAT(dialect.left_out, ElementsAre(2, 4, 5, 6));
  EXPECT_THAT(dialect.notes,
              ElementsAre("1 row repeats the header (line 3) and is left out.",
                          "line 5, \"Total\", is left out, because it holds totals.",
                          "2 rows at the end are empty (line 6 is the first) and are left out."));
  EXPECT_THAT(dialect_of("x,y\n1,2\n2,3\nMin,2\nMax,3\nTotal,5\nmade by hand\n").notes,
              ElementsAre("lines 4 (\"Min\"), 5 (\"Max\") and 6 (\"Total\") are left out, because "
                          "they hold totals.",
                          "line 7, \"made by hand\", is left out, because it is a text below the "
                          "table."));
  EXPECT_THAT(dialect_of("who,y\nAnna,2\nMax,3\n").left_out, IsEmpty());
  EXPECT_THAT(dialect_of("x,y\n1,2\n,\n2,3\n").left_out, IsEmpty()) << "a gap is data";
}

TEST(CsvDialect, DecidesWhatACellMeans) {
  const CsvDialect points = with_notation('.', '\0');
  const CsvDialect commas = with_notation(',', '\0');
  EXPECT_EQ(read_cell("2.5", points).value, 2.5);
  EXPECT_EQ(read_cell("2,5", points).kind, CellKind::kWord);
  EXPECT_EQ(read_cell("2,5", commas).value, 2.5);
  EXPECT_EQ(read_cell("2.5", commas).kind, CellKind::kWord);
  for (const CsvDialect& dialect : {points, commas}) {
    EXPECT_EQ(read_cell(" 3 ", dialect).value, 3);
    EXPECT_EQ(read_cell("\u2212"
                        "3",
                        dialect)
                  .value,
              -3);
    EXPECT_EQ(read_cell("1.5D3", points).value, 1500);
    EXPECT_EQ(read_cell("1970-01-02", dialect).kind, CellKind::kDate);
    EXPECT_EQ(read_cell("12:30", dialect).kind, CellKind::kTime);
    EXPECT_EQ(read_cell("-inf", dialect).kind, CellKind::kInfinite);
    EXPECT_EQ(read_cell("#DIV/0!", dialect).kind, CellKind::kError);
    EXPECT_EQ(read_cell("nan", dialect).kind, CellKind::kMissing);
  }
}

TEST(CsvDialect, SeparatesGroupsOfThreeDigits) {
  EXPECT_EQ(read_cell("-1.234.567,5", with_notation(',', '.')).value, -1234567.5);
  EXPECT_EQ(read_cell("1'200.50", with_notation('.', '\'')).value, 1200.5);
  EXPECT_EQ(read_cell("1\u2019"
                      "200",
                      with_notation('.', '\''))
                .value,
            1200);
  for (const char* text : {"12 345,5",
                           "12\u00A0"
                           "345,5",
                           "12\u2009"
                           "345,5",
                           "12\u202F"
                           "345,5"}) {
    EXPECT_EQ(read_cell(text, with_notation(',', ' ')).value, 12345.5) << text;
  }
  for (const char* text : {"1.23", "1.2345", "1234.567", "1..234", "12.34.567"}) {
    EXPECT_EQ(read_cell(text, with_notation(',', '.')).kind, CellKind::kWord) << text;
  }
}

TEST(CsvDialect, ReadsNumbersWithUnitsAndLimits) {
  const auto expect = [](const char* text, double value, const char* unit) {
    const CellValue cell = read_cell(text, with_notation('.', ','));
    EXPECT_EQ(cell.value, value) << text;
    EXPECT_EQ(cell.unit, unit) << text;
  };
  expect("12 %", 12, "%");
  expect("12%", 12, "%");
  expect("\u20AC 3.50", 3.5, "\u20AC");
  expect("-$1,250", -1250, "$");
  expect("($12.50)", -12.5, "$");
  expect(
      "20 \u00B0"
      "C",
      20,
      "\u00B0"
      "C");
  expect("1e3 m/s", 1000, "m/s");
  for (const char* text : {"< 0.5", ">10", "<= 3", "\u2264 2 %"}) {
    EXPECT_EQ(read_cell(text, {}).kind, CellKind::kLimit) << text;
  }
  for (const char* text : {"5-7", "A5", "1A2B", "5 of 7", "x < 3", "0x10", "0xA", "5A10"}) {
    EXPECT_EQ(read_cell(text, {}).kind, CellKind::kWord) << text;
  }
}

TEST(CsvDialect, ReadsTheMinusSignsOfTypesettersAndBookkeepers) {
  const CsvDialect points;
  EXPECT_EQ(read_cell("\u20133", points).value, -3);
  EXPECT_EQ(read_cell("\u20133.5 kg", points).value, -3.5);
  EXPECT_EQ(read_cell("5-", points).value, -5);
  EXPECT_EQ(read_cell("5\u2212", points).value, -5);
  EXPECT_EQ(read_cell("1.234,5-", with_notation(',', '.')).value, -1234.5);
  for (const char* text : {"-5-", "+5-", "5--", "3\u20135", "\u2013\u20133"}) {
    EXPECT_EQ(read_cell(text, points).kind, CellKind::kWord) << text;
  }
}

TEST(CsvDialect, KnowsTheTextsOfMissingValues) {
  for (const char* text :
       {"", "-", "\u2013", "NA", "N/A", "n/a", "NaN", "null", "None", "#N/A", "?", ".", "\u2026"}) {
    EXPECT_EQ(read_cell(text, {}).kind, CellKind::kMissing) << text;
  }
  CsvDialect chosen;
  chosen.missing = {"-999", "x"};
  EXPECT_EQ(read_cell("-999", chosen).kind, CellKind::kMissing);
  EXPECT_EQ(read_cell("", chosen).kind, CellKind::kMissing);
  EXPECT_EQ(read_cell("NA", chosen).kind, CellKind::kWord);
}

TEST(CsvDialect, AChosenMissingNumberIsMissingHoweverItIsWritten) {
  CsvDialect chosen;
  chosen.missing = {"-9999.0", "x"};
  for (const char* text : {"-9999.0", "-9999", "-9999.00"}) {
    EXPECT_EQ(read_cell(text, chosen).kind, CellKind::kMissing) << text;
  }
  EXPECT_EQ(read_cell("-999", chosen).kind, CellKind::kNumber);
  EXPECT_EQ(read_cell("9999", chosen).kind, CellKind::kNumber);
}

TEST(CsvDialect, DoesNotGuessWhatIsChosen) {
  TableOptions options;
  options.header = HeaderChoice::kNone;
  EXPECT_FALSE(dialect_of("a,b\n1,2\n", options).header);
  options.header = HeaderChoice::kNamesAndUnits;
  EXPECT_EQ(dialect_of("1,2\n3,4\n5,6\n", options).first_row, 2u);
  options.decimal = ',';
  options.thousands = ' ';
  const NumberNotation numbers = dialect_of("1.5;2.5\n", options).notation.numbers;
  EXPECT_EQ(numbers.decimal, ',');
  EXPECT_EQ(numbers.thousands, ' ');
}

}  // namespace
}  // namespace kurv::app
