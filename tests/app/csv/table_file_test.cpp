#include "app/csv/table_file.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "app/base/user_error.h"
#include "app/csv/table_data.h"
#include "app/csv/table_survey.h"
#include "tests/app/sources/source_bytes.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

std::vector<std::string> names_of(const CsvTable& table) {
  std::vector<std::string> names;
  for (std::size_t c = 0; c < table.width(0); ++c) names.emplace_back(table.cell(0, c));
  return names;
}

TEST(TableFile, OfJsonHasItsKeysAsNamesInEachOfItsForms) {
  const CsvTable objects = read_table(test::source_path("objects.json"));
  const CsvTable lines = read_table(test::source_path("objects.jsonl"));
  EXPECT_EQ(objects.source().kind, "JSON");
  EXPECT_EQ(names_of(objects), names_of(lines));
  EXPECT_EQ(objects.rows(), 3U);
  EXPECT_EQ(lines.rows(), 3U);
}

TEST(TableFile, OfJsonIsPlainTextWhereTheUserNamesASeparator) {
  TableOptions options;
  options.separator = ',';
  EXPECT_EQ(read_table(test::source_path("arrays.json"), options).source().kind, "");
}

TEST(TableFile, OfAWorkbookIsKnownByItsContentAndSaysWhichSheetIsRead) {
  for (const char* name : {"types.xlsx", "types.ods"}) {
    const CsvTable table = read_table(test::source_path(name));
    EXPECT_THAT(table.source().kind, HasSubstr("of 3"));
    EXPECT_THAT(table.source().notes, Contains(HasSubstr("--sheet chooses another one")));
    TableOptions options;
    options.sheet = "2";
    EXPECT_EQ(read_table(test::source_path(name), options).source().kind, table.source().kind);
  }
}

TEST(TableFile, OfAWorkbookIsDescribedByItsSheetAndNotBySeparators) {
  const CsvTable table = read_table(test::source_path("types.ods"));
  EXPECT_EQ(description(detect_dialect(table), table.source()),
            "The table is sheet \"Data\" of 3 and the first line holds the names of the columns.");
}

TEST(TableFile, OfAWorkbookWithoutNumbersIsNotRefusedForItsSeparator) {
  try {
    read_table_data(test::source_path("since_1904.xlsx"), {});
    FAIL() << "it was read";
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("no column of numbers"));
    EXPECT_THAT(error.what(), Not(HasSubstr("separator")));
  }
}

TEST(TableFile, OfAWorkbookThatCannotBeDrawnNamesTheSheetUnlessItWasChosen) {
  TableOptions options;
  options.selection.every = 1000;
  const auto refusal = [&options] {
    try {
      read_table_data(test::source_path("types.xlsx"), options);
    } catch (const UserError& error) {
      return std::string(error.what());
    }
    return std::string("it was read");
  };
  EXPECT_THAT(refusal(), AllOf(HasSubstr("one row of data"),
                               EndsWith(" Only sheet \"Data\" of 3 is read; --sheet chooses "
                                        "another one.")));
  options.sheet = "2";
  EXPECT_THAT(refusal(), AllOf(HasSubstr("one row of data"), Not(HasSubstr("--sheet"))));
}

TEST(TableFile, OfAWorkbookRefusesASheetThatIsNotThere) {
  TableOptions options;
  options.sheet = "nowhere";
  try {
    read_table(test::source_path("types.xlsx"), options);
    FAIL() << "it was read";
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr("nowhere"));
  }
}

TEST(TableFile, OptionsWithoutEffectAreTold) {
  TableOptions options;
  options.separator = ';';
  options.encoding = Encoding::kUtf8;
  EXPECT_THAT(read_table(test::source_path("types.xlsx"), options).source().notes,
              AllOf(Contains("--separator has no effect, because the table is a sheet of a "
                             "workbook."),
                    Contains("--encoding has no effect, because the table is a sheet of a "
                             "workbook.")));
  TableOptions sheet;
  sheet.sheet = "1";
  EXPECT_THAT(parse_table("x,y\n1,2\n", "data.csv", sheet).source().notes,
              ElementsAre("--sheet has no effect, because the table is text."));
  EXPECT_THAT(parse_table("[[1,2],[2,3]]", "data.json", sheet).source().notes,
              ElementsAre("--sheet has no effect, because the table is JSON."));
}

TEST(TableFile, OfTextThatIsNotAsTheEncodingSaysIsTold) {
  TableOptions options;
  options.encoding = Encoding::kUtf8;
  EXPECT_THAT(parse_table("x,\xE4\n1,2\n", "data.csv", options).source().notes,
              ElementsAre("the text is not UTF-8, and is read as code page 1252."));
}

TEST(TableFile, TextsOfASheetMayHaveDecimalCommas) {
  const auto decimal_of = [](const std::string& cells, const TableOptions& options = {}) {
    const CsvTable table = parse_sheet({cells, {"A"}, 0, {}}, "file", options);
    return detect_dialect(table).notation.numbers.decimal;
  };
  EXPECT_EQ(decimal_of("t\tv\n1\t1,5\n2\t1.234,75\n"), ',');
  EXPECT_EQ(decimal_of("t\tv\n0.5\t1,5\n1.5\t2,5\n"), '.') << "numbers of the sheet have points";
  EXPECT_EQ(decimal_of("t\tv\n1.2.2021\t1,5\n2.2.2021\t2,5\n"), ',');
  EXPECT_EQ(decimal_of("t\tv\n1\t1,234\n2\t2,345\n"), '.');
  EXPECT_EQ(decimal_of("t\tv\n1\tJune 1,5\n2\t2\n"), '.');
  const CsvTable table = parse_sheet({"t\tv\n1\t1.234,75\n2\t2,5\n", {"A"}, 0, {}}, "file", {});
  EXPECT_THAT(table.source().notes, ElementsAre(HasSubstr("--decimal changes that")));
  EXPECT_EQ(make_table_data(table, {}, "file").values(2, 1), 1234.75);
  TableOptions options;
  options.decimal = '.';
  EXPECT_EQ(decimal_of("t\tv\n1\t1,5\n2\t2,5\n", options), '.');
}

// A decimal point in a workbook is one, whatever the numbers around it look like.
TEST(TableFile, OfJsonDoesNotTakeAPointForAThousandsSign) {
  const std::string path =
      (std::filesystem::temp_directory_path() / "kurv_table_file_test.json").string();
  std::ofstream(path) << R"([{"x":1,"y":980},{"x":2,"y":987},{"x":3,"y":1.001}])";
  const TableData data = read_table_data(path, {});
  std::filesystem::remove(path);
  EXPECT_EQ(data.values(2, 3), 1.001);
  EXPECT_EQ(data.names(2), "y");
}

}  // namespace
}  // namespace kurv::app
