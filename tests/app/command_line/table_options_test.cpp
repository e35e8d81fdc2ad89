// The options that say how a table is read.
#include "app/command_line/table_option_values.h"

#include <gmock/gmock.h>

#include <vector>

#include "app/base/user_error.h"
#include "app/command_line/command_line.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Command parsed(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "kurv");
  return parse_command_line(static_cast<int>(arguments.size()), arguments.data());
}

TableOptions options_of(std::vector<const char*> more) {
  more.insert(more.begin(), {"render", "data.csv", "-o", "picture.png"});
  return std::get<RenderRequest>(parsed(std::move(more))).table;
}

std::string misuse_with(std::vector<const char*> more) {
  try {
    options_of(std::move(more));
  } catch (const UserError& error) {
    EXPECT_EQ(error.exit_status(), kUsageFailure);
    return error.what();
  }
  return "nothing was refused";
}

TEST(TableOptions, AreAllGuessedWhereNothingIsSaid) {
  const TableOptions options = options_of({});
  EXPECT_FALSE(options.encoding || options.separator || options.skip || options.comment ||
               options.header || options.decimal || options.thousands || options.missing ||
               options.dates);
}

TEST(TableOptions, AreTakenByEachCommandThatReadsATable) {
  for (const char* command : {"render", "convert"}) {
    const char* const output = command[0] == 'r' ? "a.png" : "a.gdf";
    EXPECT_NO_THROW(parsed({command, "a.csv", "-o", output, "--separator", "tab"})) << command;
  }
  EXPECT_EQ(std::get<InfoRequest>(parsed({"info", "a.csv", "--skip", "3"})).table.skip, 3u);
  EXPECT_EQ(std::get<WindowRequest>(parsed({"a.csv", "--skip", "3"})).table.skip, 3u);
}

TEST(TableOptions, HaveTheirValues) {
  const TableOptions options = options_of(
      {"--separator", ";", "--decimal", ",", "--thousands", ".", "--header", "units", "--skip", "2",
       "--comment", "!", "--missing", "-999,x", "--encoding", "cp1252", "--dates", "mdy"});
  EXPECT_EQ(options.separator, ';');
  EXPECT_EQ(options.decimal, ',');
  EXPECT_EQ(options.thousands, '.');
  EXPECT_EQ(options.header, HeaderChoice::kNamesAndUnits);
  EXPECT_EQ(options.skip, 2u);
  EXPECT_EQ(options.comment, "!");
  EXPECT_THAT(options.missing.value(), ElementsAre("-999", "x"));
  EXPECT_EQ(options.encoding, Encoding::kCp1252);
  EXPECT_EQ(options.dates, DateOrder::kMonthFirst);
}

TEST(TableOptions, TakeWordsForSignsThatAreHardToType) {
  EXPECT_EQ(options_of({"--separator", "tab"}).separator, '\t');
  EXPECT_EQ(options_of({"--separator", "blanks"}).separator, kBlanks);
  EXPECT_EQ(options_of({"--separator", "fixed"}).separator, kFixedWidth);
  EXPECT_EQ(options_of({"--thousands", "blank"}).thousands, ' ');
  EXPECT_EQ(options_of({"--thousands", "none"}).thousands, '\0');
  EXPECT_EQ(options_of({"--comment", "none"}).comment, "");
  EXPECT_EQ(options_of({"--header", "no"}).header, HeaderChoice::kNone);
  EXPECT_EQ(options_of({"--dates", "dd.mm.yyyy"}).dates, DateOrder::kDayFirst);
  EXPECT_EQ(options_of({"--dates", "unix-ms"}).dates, DateOrder::kUnixMilliseconds);
}

TEST(TableOptions, ThatCannotBeUnderstoodAreRefused) {
  for (const auto& [option, value] : {std::pair("--separator", "wide"),
                                      {"--separator", "\""},
                                      {"--separator", "5"},
                                      {"--decimal", ";"},
                                      {"--thousands", "_"},
                                      {"--header", "maybe"},
                                      {"--skip", "-1"},
                                      {"--skip", "two"},
                                      {"--encoding", "utf-7"},
                                      {"--dates", "mmm"},
                                      {"--missing", "\"open"}}) {
    EXPECT_THAT(misuse_with({option, value}), HasSubstr(std::string(option) + " takes")) << value;
  }
  EXPECT_THAT(misuse_with({"--decimal", ",", "--thousands", ","}), HasSubstr("the same sign"));
}

TEST(TableOptions, StandardOutputHasAFormat) {
  const auto request_of = [](std::vector<const char*> more) {
    more.insert(more.begin(), {"render", "-", "-o", "-"});
    return std::get<RenderRequest>(parsed(std::move(more)));
  };
  EXPECT_EQ(request_of({}).data_file, "-");
  EXPECT_EQ(request_of({}).format, PictureFormat::kPng);
  EXPECT_EQ(request_of({"--format", "SVG"}).format, PictureFormat::kSvg);
  EXPECT_THROW(request_of({"--format", "jpg"}), UserError);
  EXPECT_THAT(misuse_with({"--format", "png"}), HasSubstr("says the format itself"));
}

}  // namespace
}  // namespace kurv::app
