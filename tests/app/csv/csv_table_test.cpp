#include "app/csv/csv_parser.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/base/user_error.h"
#include "app/csv/csv_reader.h"
#include "app/csv/csv_separator.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Row = std::vector<std::string>;

std::vector<Row> rows_of(const CsvTable& table) {
  std::vector<Row> rows(table.rows());
  for (std::size_t row = 0; row < table.rows(); ++row) {
    for (std::size_t column = 0; column < table.width(row); ++column) {
      rows[row].emplace_back(table.cell(row, column));
    }
  }
  return rows;
}

std::vector<Row> parsed(const std::string& bytes) {
  return rows_of(parse_csv(bytes, find_separator(bytes), "data.csv"));
}

TEST(Separator, IsTheOneThatTheLinesAgreeOn) {
  EXPECT_EQ(find_separator("x,y\n1,2\n"), ',');
  EXPECT_EQ(find_separator("x;y\n1;2\n"), ';');
  EXPECT_EQ(find_separator("x\ty\n1\t2\n"), '\t');
  EXPECT_EQ(find_separator("x;note\n1;a,b\n2;c\n3;d,e,f\n"), ';');
  EXPECT_EQ(find_separator("x,note\n1,a;b\n2,c\n3,d;e;f\n"), ',');
}

TEST(Separator, CommasBetweenSemicolonsAreDecimalCommas) {
  EXPECT_EQ(find_separator("x;y\n1,5;2,5\n3,5;4,5\n"), ';');
  EXPECT_EQ(find_separator("1,5;2,5\n3,5;4,5\n"), ';');
  EXPECT_EQ(find_separator("1,5\t2,5\n3,5\t4,5\n"), '\t');
}

TEST(Separator, IsTheOneThatTheFirstLineDeclares) {
  EXPECT_EQ(declared_separator("sep=;\n1,2\n"), ';');
  EXPECT_EQ(declared_separator("SEP=,\r\n"), ',');
  EXPECT_EQ(declared_separator("\"sep=|\"\n"), '|');
  EXPECT_EQ(declared_separator("sep=\t"), '\t');
  for (const char* bytes :
       {"", "sep=", "sep=\n;", "sep=x\n", "sep=;;\n", "x,y\nsep=;\n", "sep=\""}) {
    EXPECT_FALSE(declared_separator(bytes)) << bytes;
  }
}

TEST(Separator, ThatIsDeclaredIsUsedAndItsLineIsNoRow) {
  const CsvTable table = parse_csv("sep=;\r\nx,1;y\r\n1;2\r\n", "data.csv");
  EXPECT_THAT(rows_of(table), ElementsAre(Row{"x,1", "y"}, Row{"1", "2"}));
  EXPECT_EQ(table.line(0), 2u);
  EXPECT_EQ(parse_csv("sep=;", "data.csv").rows(), 0u);
  EXPECT_THAT(rows_of(parse_csv("x;y\n1;2\n", "data.csv")),
              ElementsAre(Row{"x", "y"}, Row{"1", "2"}));
}

TEST(Separator, InsideQuotesCountsForNothing) {
  EXPECT_EQ(find_separator("x,\"a;b;c\"\n1,\"d;e;f\"\n"), ',');
  EXPECT_EQ(find_separator("\"a\nb;c\",y\n\"say \"\"x;y\"\"\",2\n"), ',');
  EXPECT_EQ(find_separator("5\" pipe;y\n6\" pipe;2\n"), ';');
}

TEST(Separator, IsACommaWhereThereIsNone) {
  EXPECT_EQ(find_separator(""), ',');
  EXPECT_EQ(find_separator("y\n1\n2\n"), ',');
}

TEST(Separator, ALineBeyondTheFirst64KiBIsNotCutIntoAWrongCount) {
  std::string bytes = "a;b;c\n";
  while (bytes.size() < 64 * 1024 - 3) bytes += "1,5;2,5;" + std::string(1000, '3') + "\n";
  EXPECT_EQ(find_separator(bytes + "1,2,3,4,5;\n"), ';');
}

TEST(CsvTable, LinesEndInAnyOfThreeWays) {
  EXPECT_THAT(parsed("x,y\n1,2\n"), ElementsAre(Row{"x", "y"}, Row{"1", "2"}));
  EXPECT_THAT(parsed("x,y\r\n1,2\r\n"), ElementsAre(Row{"x", "y"}, Row{"1", "2"}));
  EXPECT_THAT(parsed("x,y\r1,2"), ElementsAre(Row{"x", "y"}, Row{"1", "2"}));
}

TEST(CsvTable, QuotedFieldsHoldSeparatorsLineEndsAndQuotationMarks) {
  EXPECT_THAT(parsed("x,\"y, \"\"q\"\"\"\n1,\"two\r\nlines\"\n"),
              ElementsAre(Row{"x", "y, \"q\""}, Row{"1", "two\r\nlines"}));
}

TEST(CsvTable, BlanksAroundPlainFieldsGoAndQuotedOnesStay) {
  EXPECT_THAT(parsed(" x , \" y \" \n"), ElementsAre(Row{"x", " y "}));
}

TEST(CsvTable, TabsSeparateEvenEmptyFields) {
  EXPECT_THAT(parsed("x\ty\tz\n1\t\t3\n\t\t4\n"),
              ElementsAre(Row{"x", "y", "z"}, Row{"1", "", "3"}, Row{"", "", "4"}));
}

TEST(CsvTable, RowsMayDifferInLengthAndEmptyLinesAreNone) {
  EXPECT_THAT(parsed("x,y\n\n1\n   \n1,2,3\n"),
              ElementsAre(Row{"x", "y"}, Row{"1"}, Row{"1", "2", "3"}));
}

TEST(CsvTable, AFieldBeyondTheRowIsEmpty) {
  EXPECT_EQ(parse_csv("x,y\n1\n", ',', "data.csv").cell(1, 5), "");
}

TEST(CsvTable, EachRowKnowsItsLine) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    const std::string bytes = "x,y" + end + end + "1,\"a" + end + "b\"" + end + "2,3" + end;
    const CsvTable table = parse_csv(bytes, ',', "data.csv");
    ASSERT_EQ(table.rows(), 3u);
    EXPECT_EQ(table.line(0), 1u);
    EXPECT_EQ(table.line(1), 3u);
    EXPECT_EQ(table.line(2), 5u);
  }
}

TEST(CsvTable, AQuotationMarkThatIsNeverClosedIsRefusedWithItsLine) {
  try {
    parse_csv("x,y\n1,2\n3,\"4\n5,6\n", ',', "data.csv");
    FAIL() << "nothing was thrown";
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("data.csv has a quotation mark that is never closed"));
    EXPECT_THAT(error.what(), HasSubstr("line 3"));
  }
}

TEST(CsvTable, ARowOfVeryManyFieldsIsRefusedWithItsLine) {
  EXPECT_EQ(parse_csv("a\n" + std::string(99'999, ';') + '\n', ';', "data.csv").width(1), 100'000);
  try {
    parse_csv("a\n" + std::string(100'000, ';') + '\n', ';', "data.csv");
    FAIL();
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("data.csv has 100001 fields in line 2"));
  }
}

TEST(CsvTable, AFieldAsLargeAsTheFileIsRead) {
  const std::string large(3 << 20, 'a');
  const CsvTable table = parse_csv("x,\"" + large + "\"\n", ',', "data.csv");
  ASSERT_EQ(table.rows(), 1u);
  EXPECT_EQ(table.cell(0, 1), large);
}

}  // namespace
}  // namespace kurv::app
