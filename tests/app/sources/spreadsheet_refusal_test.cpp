// Files that are no spreadsheets, damaged, or made to do harm.
#include <gmock/gmock.h>

#include <random>
#include <string>
#include <string_view>

#include "app/base/user_error.h"
#include "app/sources/spreadsheet.h"
#include "tests/app/sources/source_bytes.h"
#include "tests/app/sources/zip_bytes.h"

namespace kurv::app {
namespace {

using test::source_bytes;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

// The text of the table, or the sentence that refuses it.
std::string outcome(const std::string& bytes) {
  try {
    return read_spreadsheet(bytes, "file").text;
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), StartsWith("file "));
    return error.what();
  }
}

Members workbook(const std::string& sheet_data) {
  return {
      {"_rels/.rels",
       R"(<Relationships><Relationship Id="a" Type="x/officeDocument" Target="xl/book.xml"/></Relationships>)"},
      {"xl/_rels/book.xml.rels",
       R"(<Relationships><Relationship Id="b" Type="x/worksheet" Target="../s.xml"/></Relationships>)"},
      {"xl/book.xml", R"(<workbook><sheets><sheet name="A" id="b"/></sheets></workbook>)"},
      {"s.xml", "<worksheet><sheetData>" + sheet_data + "</sheetData></worksheet>"}};
}

std::string xlsx(const std::string& sheet_data) {
  return zip_bytes(workbook(sheet_data));
}

std::string ods(const std::string& tables) {
  return zip_bytes({{"content.xml",
                     "<d xmlns:table='t' xmlns:text='x' xmlns:office='o' xmlns:draw='w'><body>"
                     "<spreadsheet>" +
                         tables + "</spreadsheet></body></d>"}});
}

TEST(SpreadsheetRefusal, CellsWithoutPositionsFollowEachOther) {
  EXPECT_EQ(outcome(xlsx("<row><c><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>")),
            "1\t2\n3\t\n");
}

TEST(SpreadsheetRefusal, FormulasWithoutResultsAloneAreNamed) {
  EXPECT_THAT(outcome(xlsx("<row><c><f>A2+1</f></c></row>")),
              HasSubstr("has formulas without stored results"));
}

TEST(SpreadsheetRefusal, EscapedCharactersAreRead) {
  EXPECT_EQ(outcome(xlsx("<row><c t='str'><v>a_x0042_c_x00_ _xZZZZ_ _x</v></c></row>")),
            "aBc_x00_ _xZZZZ_ _x\n");
}

TEST(SpreadsheetRefusal, CommentsAndDrawingsAreNoTextOfACell) {
  EXPECT_EQ(outcome(ods(
                "<table:table><table:shapes><text:p>no</text:p></table:shapes><table:table-row>"
                "<table:table-cell office:value-type='string'><office:annotation><text:p>no"
                "</text:p></office:annotation><draw:frame><text:p>no</text:p></draw:frame>"
                "<text:p>a<text:s text:c='2'/><text:span>b</text:span></text:p></table:table-cell>"
                "<table:covered-table-cell><text:p>no</text:p></table:covered-table-cell>"
                "<table:table-cell table:number-columns-repeated='2' office:value-type='float'"
                " office:value='1.0'/></table:table-row></table:table>")),
            "a  b\t\t1\t1\n");
}

TEST(SpreadsheetRefusal, OtherDocumentsAreNamed) {
  EXPECT_THAT(outcome("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and more"),
              HasSubstr("binary workbook (.xls)"));
  EXPECT_THAT(outcome(zip_bytes({{"a.csv", "x,y\n1,2\n"}})), HasSubstr("unpack it"));
  Members other = workbook("");
  other[2].second = "<document/>";
  EXPECT_THAT(outcome(zip_bytes(other)), HasSubstr("is no spreadsheet"));
  EXPECT_THAT(outcome(zip_bytes({{"content.xml", "<d><body><text/></body></d>"}})),
              HasSubstr("is no spreadsheet"));
  Members binary = workbook("");
  binary[0].second = R"(<R><Relationship Type="x/officeDocument" Target="xl/workbook.bin"/></R>)";
  EXPECT_THAT(outcome(zip_bytes(binary)), HasSubstr(".xlsb"));
}

TEST(SpreadsheetRefusal, ProtectedFilesAreNamed) {
  EXPECT_THAT(outcome(zip_bytes(workbook(""), "secret")), HasSubstr("password"));
  EXPECT_THAT(outcome(zip_bytes({{"META-INF/manifest.xml", "<m><encryption-data/></m>"},
                                 {"content.xml", "\x01\x02\x03"}})),
              HasSubstr("password"));
}

TEST(SpreadsheetRefusal, WrongXmlIsRefused) {
  EXPECT_THAT(outcome(xlsx("<row><c><v>1</v></row>")), HasSubstr("s.xml is wrong in line 1"));
  EXPECT_THAT(outcome(xlsx("<row>\n\n<c")), HasSubstr("s.xml is wrong in line 3"));
  EXPECT_THAT(outcome(zip_bytes({{"content.xml", ""}})), HasSubstr("content.xml is wrong"));
  Members missing = workbook("");
  missing.pop_back();
  EXPECT_THAT(outcome(zip_bytes(missing)), HasSubstr("has no part s.xml"));
}

TEST(SpreadsheetRefusal, DeepXmlIsRefused) {
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += "<a>";
  EXPECT_THAT(outcome(xlsx(deep)), HasSubstr("nested too deeply"));
}

TEST(SpreadsheetRefusal, EntitiesThatGrowAreRefused) {
  std::string entities = "<!DOCTYPE d [<!ENTITY e0 'xxxxxxxxxx'>";
  for (int i = 1; i < 12; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    entities += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) entities += inner;
    entities += "'>";
  }
  EXPECT_THAT(outcome(zip_bytes({{"content.xml",
                                  entities + "]><d><b><spreadsheet>&e11;</spreadsheet></b></d>"}})),
              HasSubstr("content.xml is wrong"));
}

TEST(SpreadsheetRefusal, CellsOutsideTheSheetAreRefused) {
  for (const char* cell : {"XFE1", "A1048577", "BBBBBBBBBBBBBBBBBBBBB1", "A0", "A", "1", "a1",
                           "A99999999999999999999999"}) {
    EXPECT_THAT(outcome(xlsx("<row><c r='" + std::string(cell) + "'><v>1</v></c></row>")),
                HasSubstr("outside the sheet"))
        << cell;
  }
  EXPECT_THAT(outcome(xlsx("<row r='0'/>")), HasSubstr("outside the sheet"));
  EXPECT_THAT(outcome(xlsx("<row r='18446744073709551615'/>")), HasSubstr("outside the sheet"));
  EXPECT_THAT(outcome(xlsx("<row r='2'><c><v>1</v></c></row><row r='1'><c><v>1</v></c></row>")),
              HasSubstr("out of order"));
  EXPECT_THAT(outcome(xlsx("<row><c t='s'><v>0</v></c></row>")),
              HasSubstr("a text of a cell is missing"));
}

TEST(SpreadsheetRefusal, RepetitionsAreLimited) {
  const auto repeated = [](const std::string& rows, const std::string& columns) {
    return outcome(
        ods("<table:table><table:table-row table:number-rows-repeated='" + rows +
            "'><table:table-cell table:number-columns-repeated='" + columns +
            "' office:value-type='float' office:value='1'/></table:table-row></table:table>"));
  };
  EXPECT_EQ(repeated("2", "3"), "1\t1\t1\n1\t1\t1\n");
  EXPECT_THAT(repeated("1000000", "16384"), HasSubstr("too large"));
  EXPECT_THAT(repeated("18446744073709551615", "2"), HasSubstr("outside the sheet"));
  EXPECT_THAT(repeated("1", "18446744073709551615"), HasSubstr("outside the sheet"));
  EXPECT_EQ(repeated("-5", "junk"), "1\n");
}

TEST(SpreadsheetRefusal, AZipBombIsRefused) {
  EXPECT_THAT(outcome(xlsx(std::string(110'000'000, ' '))), HasSubstr("suspiciously large"));
}

TEST(SpreadsheetRefusal, ChangedXmlIsReadOrRefused) {
  const Members members = workbook(
      "<row r='1'><c r='A1' t='s' s='1'><v>0</v></c><c r='C1'><f>A1</f><v>2</v></c></row>"
      "<row r='3'><c t='inlineStr'><is><t>a_x0041_</t></is></c><c t='b'><v>1</v></c></row>");
  std::mt19937 random(1);
  for (int run = 0; run < 2'000; ++run) {
    Members changed = members;
    std::string& xml = changed[random() % changed.size()].second;
    for (int i = 0; i < 2; ++i) {
      constexpr std::string_view kCharacters = "<>/='&; 0A9x";
      xml[random() % xml.size()] = kCharacters[random() % kCharacters.size()];
    }
    EXPECT_FALSE(outcome(zip_bytes(changed)).empty());
  }
}

// Some of these are read, because what is changed is not always needed.
TEST(SpreadsheetRefusal, DamagedFilesAreReadOrRefused) {
  for (const char* name : {"types.xlsx", "types.ods"}) {
    const std::string bytes = source_bytes(name);
    for (std::size_t size = 4; size < bytes.size(); size += 61) {
      EXPECT_THAT(outcome(bytes.substr(0, size)),
                  AnyOf(HasSubstr("damaged"), HasSubstr("no spreadsheet")));
    }
    for (std::size_t i = 0; i < bytes.size(); i += 7) {
      std::string changed = bytes;
      changed[i] = static_cast<char>(changed[i] ^ (i % 2 == 0 ? 0xFF : 0x10));
      EXPECT_FALSE(outcome(changed).empty());
    }
  }
}

}  // namespace
}  // namespace kurv::app
