#include "control/commands.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

TEST(Refresh, MovesEverythingHomeAndRedraws) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_SubTitle("Sub");
  for (Rect* handle :
       {&host.layout().imgTitle, &host.layout().imgSubTitle, &host.layout().picLegend}) {
    handle->left = handle->top = 5;
  }
  host.surface.clear_log();
  host.control.ChartOptions("refresh");
  // "Title" in 11 points is 550 twips wide and 264 high, "Sub" in 8 points 192 high.
  EXPECT_EQ(host.layout().imgTitle.top, 480 - 264 - 60);
  EXPECT_EQ(host.layout().imgTitle.left, 800);
  EXPECT_EQ(host.layout().imgSubTitle.top, 480 - 192 - 60);
  EXPECT_EQ(host.layout().imgSubTitle.left, 800 + 550 + 100);
  EXPECT_EQ(host.layout().picLegend.top, 680);
  EXPECT_EQ(host.layout().picLegend.left, 1000);
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
}

TEST(Refresh, PutsTheTitleAboveTheSurfaceWhereTheMarginIsTooSmall) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_Top_margine(100);
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.layout().imgTitle.top, 100 - 264 - 60);
}

TEST(Refresh, PlacesTheHandlesAlsoWhereThereIsNoGraphToDraw) {
  TestHost host;
  host.layout().picLegend.left = 5;
  host.layout().imgTitle.left = 5;
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.layout().picLegend.left, 1000);
  EXPECT_EQ(host.layout().imgTitle.left, 800);
  EXPECT_EQ(host.surface.log().find("cls\n"), std::string::npos);
}

TEST(Refresh, MeasuresTheTextsOfNowBeforeItPlacesThem) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_Title("A longer title");
  host.control.set_TitleFontSize(22);
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.layout().imgTitle.top, 480 - 528 - 60);
  EXPECT_EQ(host.layout().imgSubTitle.left, 800 + 14 * 220 + 100);
}

// What a word asked of the desktop, the surface and the printer.
std::string effects(TestHost& host, std::string_view word) {
  host.surface.clear_log();
  host.shell.windows.clear();
  host.container.pointers.clear();
  const std::size_t saves = host.shell.save_dialogs.size();
  const std::size_t opens = host.shell.open_dialogs.size();
  const std::size_t copies = host.shell.copied.size();
  host.control.ChartOptions(word);
  std::string seen;
  for (const std::string& window : host.shell.windows) seen += window + ';';
  if (host.shell.save_dialogs.size() > saves) seen += "save dialog;";
  if (host.shell.open_dialogs.size() > opens) seen += "open dialog;";
  if (host.shell.copied.size() > copies) seen += "copy;";
  if (host.surface.log().find("cls\n") != std::string::npos) seen += "redraw;";
  return seen;
}

TEST(Commands, EachWordDoesItsOwnAndNothingElse) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  const std::pair<const char*, const char*> words[] = {
      {"refresh", "redraw;"},      {"copy", "copy;"},          {"save", "save dialog;"},
      {"saveas", "save dialog;"},  {"open", "open dialog;"},   {"setup", "frmPropert 0;"},
      {"titles", "frmPropert 1;"}, {"curves", "frmCurves 0;"}, {"table", "frmTable 0;"}};
  for (const auto& [word, expected] : words) {
    EXPECT_EQ(effects(host, word), expected) << word;
    EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 0})) << word;
  }
  EXPECT_TRUE(host.shell.messages.empty());
}

TEST(Commands, SaveIsForUnsavedGraphsAndSaveAsForAll) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.document().GraphSaved = true;
  EXPECT_EQ(effects(host, "save"), "");
  EXPECT_EQ(effects(host, "saveas"), "save dialog;");
}

TEST(Commands, UnknownWordsAndOtherLetterCasesDoNothingButFlickerThePointer) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  const Layout before = host.layout();
  for (const std::string_view word :
       {"Refresh",  "REFRESH", "SAVE",   "Print",  "COPY",  "SaveAs",  "saveAs", "Open",
        "Setup",    "Titles",  "CURVES", "Table",  "help",  "Help",    "",       " refresh",
        "refresh ", "refres",  "copyy",  "design", "close", "nonsense"}) {
    EXPECT_EQ(effects(host, word), "") << word;
    EXPECT_EQ(host.surface.log(), "") << word;
    EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 0})) << word;
  }
  using namespace std::string_view_literals;
  EXPECT_EQ(effects(host, "copy\0"sv), "");
  EXPECT_EQ(effects(host, std::string(100000, 's')), "");
  EXPECT_EQ(host.layout().picLegend.left, before.picLegend.left);
}

TEST(Commands, HourglassIsShownWhileAWindowIsOpen) {
  struct WatchingShell final : test::ScriptedShell {
    explicit WatchingShell(const test::PlainContainer& watched) : container(watched) {}
    void show_window(Window, Integer) override { pointer = container.pointers.back(); }
    const test::PlainContainer& container;
    Integer pointer = -1;
  };
  test::PlainContainer container;
  WatchingShell shell(container);
  RecordingSurface surface(12000, 9000);
  Control control(container, shell, surface);
  control.ChartOptions("curves");
  EXPECT_EQ(shell.pointer, 11);
  EXPECT_EQ(container.pointers.back(), 0);
}

TEST(Commands, FailingOneLeavesTheHourglass) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_NumTicks(0);
  host.container.pointers.clear();
  EXPECT_THROW(host.control.ChartOptions("refresh"), Fault);
  EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11}));
  EXPECT_THROW(host.control.ChartOptions("print"), Fault) << "there is no printer";
  host.shell.files = {{"/nosuch/folder/a.gdf", 1}, {"/nosuch/folder/a.gdf", 1}};
  EXPECT_THROW(host.control.ChartOptions("open"), Fault);
  EXPECT_THROW(host.control.ChartOptions("saveas"), Fault);
  EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 11, 11, 11}));
  host.control.ChartOptions("");
  EXPECT_EQ(host.container.pointers.back(), 0) << "until the next one ends well";
}

TEST(Commands, LegendHomeBeyondSixteenBitsOverflows) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_Left_margine(32700);
  EXPECT_THROW(host.control.ChartOptions("refresh"), Fault);
}

}  // namespace
}  // namespace kurv
