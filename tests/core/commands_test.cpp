#include "ui/commands.h"

#include <gtest/gtest.h>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

TEST(Refresh, PutsEverythingHomeAndRedraws) {
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

TEST(Commands, UnknownWordsAndOtherLetterCasesDoNothing) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  for (const char* word :
       {"Refresh", "REFRESH", "SAVE", "help", "", " refresh", "design", "close", "nonsense"}) {
    host.surface.clear_log();
    host.container.pointers.clear();
    host.control.ChartOptions(word);
    EXPECT_EQ(host.surface.log(), "") << word;
    EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 0})) << "the pointer flickers";
  }
}

TEST(Commands, FailingOneLeavesTheHourglass) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_NumTicks(0);
  host.container.pointers.clear();
  EXPECT_THROW(host.control.ChartOptions("refresh"), Fault);
  EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11}));
}

TEST(Commands, LegendHomeBeyondSixteenBitsOverflows) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_Left_margine(32700);
  EXPECT_THROW(host.control.ChartOptions("refresh"), Fault);
}

}  // namespace
}  // namespace kurv
