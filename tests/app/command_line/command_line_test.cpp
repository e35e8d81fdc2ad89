#include "app/command_line/command_line.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/base/user_error.h"
#include "app/command_line/option_values.h"
#include "app/graph/picture_file.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Command parsed(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "kurv");
  return parse_command_line(static_cast<int>(arguments.size()), arguments.data());
}

RenderRequest request_of(std::vector<const char*> more) {
  more.insert(more.begin(), {"render", "data.csv", "-o", "picture.png"});
  return std::get<RenderRequest>(parsed(more));
}

std::string misuse_of(const std::vector<const char*>& arguments) {
  try {
    parsed(arguments);
  } catch (const UserError& error) {
    EXPECT_EQ(error.exit_status(), kUsageFailure);
    return error.what();
  }
  return "nothing was refused";
}

std::string misuse_with(std::vector<const char*> more) {
  more.insert(more.begin(), {"render", "data.csv", "-o", "picture.png"});
  return misuse_of(more);
}

TEST(CommandLine, HasADefaultForEverythingButTheFiles) {
  const RenderRequest request = request_of({});
  EXPECT_EQ(request.data_file, "data.csv");
  EXPECT_EQ(request.picture_file, "picture.png");
  EXPECT_FALSE(request.size);
  EXPECT_EQ(request.scale, 1);
  EXPECT_FALSE(request.table.selection.x);
  EXPECT_THAT(request.table.selection.y, IsEmpty());
  EXPECT_EQ(request.table.selection.every, 1u);
  EXPECT_FALSE(request.title);
  EXPECT_FALSE(request.subtitle);
  EXPECT_FALSE(request.lines);
  EXPECT_FALSE(request.markers);
  EXPECT_FALSE(request.locale);
  EXPECT_FALSE(request.table.selection.sort);
  EXPECT_THAT(request.settings, IsEmpty());
}

TEST(CommandLine, TakesAllOptions) {
  const RenderRequest request =
      request_of({"--size", "640x480", "--scale", "1.5", "--x", "t", "--title", "A title",
                  "--subtitle", "below", "--no-lines", "--markers", "--sort", "--every", "3"});
  EXPECT_EQ(request.size, QSize(640, 480));
  EXPECT_EQ(request.scale, 1.5);
  EXPECT_EQ(request.table.selection.x, "t");
  EXPECT_EQ(request.title, "A title");
  EXPECT_EQ(request.subtitle, "below");
  EXPECT_EQ(request.lines, false);
  EXPECT_EQ(request.markers, true);
  EXPECT_TRUE(request.table.selection.sort);
  EXPECT_EQ(request.table.selection.every, 3u);
}

TEST(CommandLine, AnEmptyTitleIsATitle) {
  EXPECT_EQ(request_of({"--title", ""}).title, "");
  EXPECT_EQ(request_of({"--title="}).title, "");
}

TEST(CommandLine, OfTwoContrarySwitchesTheLaterCounts) {
  EXPECT_EQ(request_of({"--no-lines", "--lines"}).lines, true);
  EXPECT_EQ(request_of({"--lines", "--no-lines"}).lines, false);
  EXPECT_EQ(request_of({"--markers", "--no-markers"}).markers, false);
}

TEST(CommandLine, NamesOfCurvesComeInListsAndRepeatedly) {
  EXPECT_THAT(request_of({"--y", "a, b", "--y", "\"c, d\",e"}).table.selection.y,
              ElementsAre("a", "b", "c, d", "e"));
  const Command command = parsed({"render", "--y", "a", "data.csv", "-o", "picture.png"});
  EXPECT_EQ(std::get<RenderRequest>(command).data_file, "data.csv");
}

TEST(CommandLine, ListsOfNamesThatAreNoneAreRefused) {
  for (const char* list : {"", "\"open", "two\nlines"}) {
    EXPECT_THAT(misuse_with({"--y", list}), HasSubstr("--y takes the names")) << list;
  }
}

TEST(CommandLine, SettingsFindTheirPropertyInAnyLetterCase) {
  const RenderRequest request = request_of({"--set", "numticks=5", "--set", "TITLE=a=b"});
  ASSERT_EQ(request.settings.size(), 2u);
  EXPECT_EQ(request.settings[0].property->name, "NumTicks");
  EXPECT_EQ(request.settings[0].value, "5");
  EXPECT_EQ(request.settings[1].property->name, "Title");
  EXPECT_EQ(request.settings[1].value, "a=b");
}

TEST(CommandLine, SettingsThatDoNotConvertAreRefused) {
  EXPECT_EQ(misuse_with({"--set", "NumTicks=many"}),
            "the property NumTicks takes a whole number from -32768 to 32767, not \"many\".");
  EXPECT_THAT(misuse_with({"--set", "NumTicks=40000"}), HasSubstr("takes a whole number"));
  EXPECT_THAT(misuse_with({"--set", "ymin=low"}),
              HasSubstr("ymin takes a finite number, not \"low\""));
  EXPECT_THAT(misuse_with({"--set", "X_grid=maybe"}), HasSubstr("takes True or False"));
  EXPECT_THAT(misuse_with({"--set", "NumTicks"}), HasSubstr("such as NumTicks=5"));
}

TEST(CommandLine, FontSizesThatCannotBeDrawnOrSavedAreRefused) {
  for (const std::string name : {"FontSize", "TitleFontSize", "SubTitleFontSize"}) {
    for (const char* size : {"0", "-1", "nan", "40000", "inf", "1e39", "1e-60", "large", ""}) {
      EXPECT_EQ(misuse_with({"--set", (name + '=' + size).c_str()}),
                "the property " + name + " takes a number above 0 and at most 32767, not \"" +
                    size + "\".");
    }
    for (const char* size : {"0.5", "8", "32767"}) {
      EXPECT_EQ(request_of({"--set", (name + '=' + size).c_str()}).settings.at(0).value, size);
    }
  }
}

TEST(CommandLine, LimitsThatAreNotFiniteAreRefused) {
  for (const std::string name : {"xmin", "xmax", "ymin", "ymax"}) {
    for (const char* limit : {"inf", "-Inf", "NaN", "1e999"}) {
      EXPECT_EQ(misuse_with({"--set", (name + '=' + limit).c_str()}),
                "the property " + name + " takes a finite number, not \"" + limit + "\".");
    }
    EXPECT_EQ(request_of({"--set", (name + "=-1e300").c_str()}).settings.size(), 1U);
  }
}

TEST(CommandLine, UnknownPropertiesAreRefusedWithSimilarOnes) {
  EXPECT_THAT(misuse_with({"--set", "NumTick=5"}), HasSubstr("\"NumTicks\""));
  EXPECT_THAT(misuse_with({"--set", "grid=5"}), AllOf(HasSubstr("X_grid"), HasSubstr("Y_grid")));
  EXPECT_THAT(misuse_with({"--set", "nonsense=5"}), HasSubstr("render --help"));
  EXPECT_THAT(misuse_with({"--set", "=5"}), HasSubstr("no property \"\""));
}

TEST(CommandLine, SizesAndScalesOutsideTheirRangeAreRefused) {
  EXPECT_EQ(request_of({"--size", "1x1"}).size, QSize(1, 1));
  EXPECT_EQ(request_of({"--size", "7680X4320", "--scale", "2"}).size, QSize(7680, 4320));
  for (const char* size : {"", "x", "0x5", "5x0", "-1x5", "7681x1", "1x4321", "1000", "5x5x5",
                           "1e3x5", " 5x5", "99999999999x1"}) {
    EXPECT_THAT(misuse_with({"--size", size}), HasSubstr("--size takes")) << size;
  }
  for (const char* scale : {"", "0", "0.49", "8.1", "-1", "nan", "inf", "two", "1,5"}) {
    EXPECT_THAT(misuse_with({"--scale", scale}), HasSubstr("--scale takes")) << scale;
  }
  EXPECT_THAT(misuse_with({"--size", "7680x4320", "--scale", "2.1"}), HasSubstr("15360x8640"));
  EXPECT_EQ(request_of({"--size", "4095x100", "--scale", "8"}).scale, 8);
  EXPECT_THAT(misuse_with({"--size", "4096x100", "--scale", "8"}),
              AllOf(HasSubstr("32767"), HasSubstr("choose a smaller one")));
}

TEST(CommandLine, EveryTakesAWholeNumberAboveZero) {
  for (const char* every : {"", "0", "-2", "1.5", "x", "99999999999999999999999"}) {
    EXPECT_THAT(misuse_with({"--every", every}), HasSubstr("--every takes")) << every;
  }
}

TEST(CommandLine, OnlyFourKindsOfPicturesAreKnown) {
  EXPECT_EQ(picture_format("a.PNG"), PictureFormat::kPng);
  EXPECT_EQ(picture_format("dir.png/a.Bmp"), PictureFormat::kBmp);
  EXPECT_EQ(picture_format("a.b.SVG"), PictureFormat::kSvg);
  EXPECT_EQ(picture_format("a.pdf"), PictureFormat::kPdf);
  for (const char* name : {"a.jpg", "a", "", "png", "a.png.txt", "a.png/"}) {
    EXPECT_THAT(misuse_of({"render", "data.csv", "--output", name}),
                HasSubstr(".png, .bmp, .svg or .pdf"))
        << name;
  }
}

TEST(CommandLine, WhatIsMissingOrUnknownIsNamed) {
  EXPECT_THAT(misuse_of({"render", "-o", "a.png"}), HasSubstr("FILE"));
  EXPECT_THAT(misuse_of({"render", "data.csv"}), HasSubstr("--output"));
  EXPECT_THAT(misuse_with({"--colour"}), HasSubstr("--colour"));
  EXPECT_THAT(misuse_with({"other.csv"}), HasSubstr("other.csv"));
  EXPECT_THAT(misuse_of({"--title", "no file"}), HasSubstr("a file is missing"));
  EXPECT_THAT(misuse_of({"a.csv", "render", "b.csv", "-o", "c.png"}),
              HasSubstr("the file \"a.csv\" comes before \"render\"; put it after it."));
}

TEST(CommandLine, FilesWithoutACommandAreForWindowsWithTheSameChoices) {
  const auto request = std::get<WindowRequest>(parsed(
      {"a.csv", "--size", "640x480", "--x", "t", "--y", "a,b", "--title", "T", "--subtitle", "S",
       "--no-lines", "--markers", "--sort", "--every", "2", "--set", "NumTicks=5", "b.csv"}));
  EXPECT_THAT(request.data_files, ElementsAre("a.csv", "b.csv"));
  EXPECT_EQ(request.size, QSize(640, 480));
  EXPECT_EQ(request.table.selection.x, "t");
  EXPECT_THAT(request.table.selection.y, ElementsAre("a", "b"));
  EXPECT_EQ(request.table.selection.every, 2u);
  EXPECT_EQ(request.title, "T");
  EXPECT_EQ(request.subtitle, "S");
  EXPECT_EQ(request.lines, false);
  EXPECT_EQ(request.markers, true);
  EXPECT_TRUE(request.table.selection.sort);
  ASSERT_EQ(request.settings.size(), 1u);
  EXPECT_THAT(misuse_of({"a.csv", "--set", "Nonsense=1"}), HasSubstr("no property"));
  EXPECT_THAT(misuse_of({"a.csv", "-o", "a.png"}), HasSubstr("kurv --help"));
}

TEST(CommandLine, ConvertTakesTheChoicesOfRenderAndAGraphFile) {
  const auto request = std::get<ConvertRequest>(
      parsed({"convert", "a.csv", "-o", "b.GDF", "--x", "t", "--title", "T", "--no-lines"}));
  EXPECT_EQ(request.data_file, "a.csv");
  EXPECT_EQ(request.graph_file, "b.GDF");
  EXPECT_EQ(request.table.selection.x, "t");
  EXPECT_EQ(request.title, "T");
  EXPECT_EQ(request.lines, false);
  EXPECT_THAT(misuse_of({"convert", "a.csv", "-o", "b.png"}), HasSubstr("must end in .gdf"));
  EXPECT_THAT(misuse_of({"convert", "a.csv"}), HasSubstr("kurv convert --help"));
  EXPECT_THAT(misuse_of({"convert", "", "-o", "b.gdf"}), HasSubstr("is empty; name one"));
}

TEST(CommandLine, InfoAndHostAreCommands) {
  const auto info = std::get<InfoRequest>(parsed({"info", "a.gdf"}));
  EXPECT_EQ(info.file, "a.gdf");
  EXPECT_FALSE(info.check);
  EXPECT_TRUE(std::get<InfoRequest>(parsed({"info", "--check", "a.gdf"})).check);
  EXPECT_TRUE(std::holds_alternative<HostRequest>(parsed({"host"})));
  EXPECT_THAT(misuse_of({"host", "a.gdf"}), HasSubstr("kurv host --help"));
  EXPECT_THAT(misuse_of({"a.gdf", "host"}),
              HasSubstr("the file \"a.gdf\" comes before \"host\"; put it after it."));
  EXPECT_THAT(misuse_of({"info"}), HasSubstr("kurv info --help"));
}

TEST(CommandLine, ALocaleDecidesAboutTheDecimalSeparator) {
  for (const char* name : {"de_DE", "de", "de-AT", "de_DE.UTF-8", "de_DE@euro"}) {
    EXPECT_EQ(request_of({"--locale", name}).locale.value().decimalPoint(), ",") << name;
  }
  for (const char* name : {"C", "POSIX", "en_US", "zh_Hant_TW"}) {
    EXPECT_EQ(request_of({"--locale", name}).locale.value().decimalPoint(), ".") << name;
  }
  for (const char* name : {"", "xx", "de_XX", "nonsense", "de_", "../x"}) {
    EXPECT_THAT(misuse_with({"--locale", name}), HasSubstr("--locale takes")) << name;
  }
  EXPECT_THAT(misuse_with({"--locale", "ar_EG"}), HasSubstr("neither a point nor a comma"));
}

TEST(CommandLine, HelpAndVersionAreTexts) {
  EXPECT_EQ(std::get<Notice>(parsed({"--version"})).text, "kurv 1.0.0\n");
  EXPECT_THAT(std::get<Notice>(parsed({"--help"})).text,
              AllOf(HasSubstr("render"), HasSubstr("Example")));
  for (const char* command : {"convert", "info", "host"}) {
    EXPECT_THAT(std::get<Notice>(parsed({command, "--help"})).text, HasSubstr("Example"));
  }
  EXPECT_THAT(std::get<Notice>(parsed({"render", "--help"})).text,
              AllOf(HasSubstr("The line beside the title"), HasSubstr("--every"),
                    HasSubstr("NumTicks"), HasSubstr("Example")));
}

}  // namespace
}  // namespace kurv::app
