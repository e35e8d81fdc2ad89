#include "app/sources/spreadsheet.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "app/base/user_error.h"
#include "tests/app/sources/source_bytes.h"

namespace kurv::app {
namespace {

using test::source_bytes;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

SheetText read(const std::string& name, const WantedSheet& sheet = {}) {
  return read_spreadsheet(source_bytes(name), name, sheet);
}

std::string refusal_of(const std::string& name, const WantedSheet& sheet) {
  try {
    read(name, sheet);
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), StartsWith(name));
    return error.what();
  }
  return "nothing was refused";
}

// The table of types.xlsx and types.ods. Row 6 and column H are hidden, A4 and B4 are merged.
std::string table_of_types(const std::string& yes, const std::string& no) {
  return "Date\tValue\tShare\tOn\tError\tText\tSum\tTime\n"
         "2012-01-31\t1.5\t12%\t" +
         yes +
         "\t#N/A\tGr\xC3\xB6\xC3\x9F"
         "e in \xC2\xB5m\t1.6\t12:34:56\n"
         "2012-01-31T12:00:00\t0.1\t7%\t" +
         no +
         "\t#DIV/0!\t\"two\nlines, \"\"quoted\"\"\"\tab\t36:00:00\n"
         "merged\t\t\t\t\t blanks \t" +
         yes +
         "\t\n"
         "\n"
         "1999-12-31\t-2.5E-20\t100000000%\t\t\t#1\t\t00:00:00.5\n";
}

TEST(Spreadsheet, ReadsXlsx) {
  const SheetText sheet = read("types.xlsx");
  EXPECT_EQ(sheet.text, table_of_types("TRUE", "FALSE"));
  EXPECT_THAT(sheet.sheets, ElementsAre("Empty", "Data", "More & less"));
  EXPECT_EQ(sheet.sheet, 1U);
  EXPECT_THAT(sheet.notes, IsEmpty());
}

// The program that wrote this file stores Booleans as the numbers 1 and 0.
TEST(Spreadsheet, ReadsOds) {
  const SheetText sheet = read("types.ods");
  EXPECT_EQ(sheet.text, table_of_types("1", "0"));
  EXPECT_THAT(sheet.sheets, ElementsAre("Empty", "Data", "More & less"));
  EXPECT_EQ(sheet.sheet, 1U);
}

// This one stores Booleans as such, but percentages as numbers that a style formats.
TEST(Spreadsheet, ReadsOdsOfAnotherWriter) {
  EXPECT_EQ(read("other_writer.ods").text,
            "Date\tValue\tShare\tOn\tError\tText\tSum\tTime\n"
            "2012-01-31\t1.5\t0.12\tTRUE\t#N/A\tGr\xC3\xB6\xC3\x9F"
            "e in \xC2\xB5m\t1.6\t12:34:56\n"
            "2012-01-31T12:00:00\t0.1\t0.07\tFALSE\t#DIV/0!\t\"two\nlines, "
            "\"\"quoted\"\"\"\tab\t36:00:00\n"
            "merged\t\t\t\t\t blanks \tTRUE\t\n"
            "\n"
            "1999-12-31\t-2.5E-20\t1000000\t\t\t#1\t\t00:00:00\n");
}

TEST(Spreadsheet, NotesFormulasWithoutStoredResults) {
  const SheetText sheet = read("without_results.xlsx");
  EXPECT_THAT(sheet.text, HasSubstr("2012-01-31\t1.5\t12%\tTRUE\t\tGr"));
  EXPECT_THAT(sheet.notes,
              ElementsAre(HasSubstr("without a stored result are read as empty cells (5)")));
}

TEST(Spreadsheet, KnowsDatesSince1904AndRichTexts) {
  EXPECT_EQ(read("since_1904.xlsx").text,
            "day\tmoment\trich\n"
            "2012-01-31\t2012-01-31T06:30:00\ttwo parts\n"
            "1904-01-02\tTRUE\t#DIV/0!\n");
}

TEST(Spreadsheet, ACellInTheLastRowAndColumnCostsLittle) {
  const std::string text = read("far_cell.xlsx").text;
  EXPECT_TRUE(text.starts_with("1\t"));
  EXPECT_TRUE(text.ends_with("\t7\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1'048'576);
  EXPECT_LT(text.size(), std::size_t{2} << 20);
}

TEST(Spreadsheet, ReadsTheSheetThatIsWanted) {
  for (const char* file : {"types.xlsx", "types.ods"}) {
    for (const char* name : {"More & less", "more & LESS", "3"}) {
      const SheetText sheet = read(file, name);
      EXPECT_EQ(sheet.text, "\nonly\t\t\n42\t\t84\n") << file << " " << name;
      EXPECT_EQ(sheet.sheet, 2U);
      EXPECT_EQ(sheet.sheets.size(), 3U);
    }
  }
}

TEST(Spreadsheet, RefusesASheetThatIsMissingOrEmpty) {
  for (const char* file : {"types.xlsx", "types.ods"}) {
    for (const char* name : {"4", "0", "Nobody", ""}) {
      EXPECT_THAT(refusal_of(file, name), AllOf(HasSubstr("has no sheet"), HasSubstr("\"Data\"")))
          << name;
    }
    EXPECT_THAT(refusal_of(file, "Empty"), HasSubstr("no cell with a value"));
  }
}

TEST(Spreadsheet, IsKnownByItsFirstBytes) {
  EXPECT_TRUE(looks_like_spreadsheet(source_bytes("types.xlsx")));
  EXPECT_TRUE(looks_like_spreadsheet(source_bytes("types.ods").substr(0, 8)));
  EXPECT_TRUE(looks_like_spreadsheet("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"));
  for (const char* text : {"", "P", "PK,x\n1,2", "x,y\n1,2"}) {
    EXPECT_FALSE(looks_like_spreadsheet(text)) << text;
  }
}

}  // namespace
}  // namespace kurv::app
