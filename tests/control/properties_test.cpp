#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

// The list of properties declares the members that hosts compile against.
static_assert(std::is_same_v<decltype(&Control::Title), String (Control::*)() const>);
static_assert(std::is_same_v<decltype(&Control::set_Title), void (Control::*)(const String&)>);
static_assert(std::is_same_v<decltype(&Control::NumTicks), Integer (Control::*)() const>);
static_assert(std::is_same_v<decltype(&Control::set_NumTicks), void (Control::*)(Integer)>);
static_assert(std::is_same_v<decltype(&Control::set_X_grid), void (Control::*)(Boolean)>);
static_assert(std::is_same_v<decltype(&Control::set_FontSize), void (Control::*)(Single)>);
static_assert(std::is_same_v<decltype(&Control::set_xmin), void (Control::*)(Double)>);

// A new member of the state does not change the size that hosts have compiled.
static_assert(sizeof(Control) == sizeof(void*));

TEST(MarkerSizeProperty, IgnoresSizesOutsideTwoToFiveHundred) {
  test::TestHost host;
  for (const Integer ignored : {Integer{1}, Integer{501}, Integer{0}, Integer{-32768}}) {
    host.control.set_MarkerSize(ignored);
    EXPECT_EQ(host.control.MarkerSize(), 40) << ignored;
    EXPECT_EQ(host.document().MarkerDrawSize, 200.0 / 6);
  }
  host.control.set_MarkerSize(2);
  EXPECT_EQ(host.control.MarkerSize(), 2);
  host.control.set_MarkerSize(500);
  EXPECT_EQ(host.control.MarkerSize(), 500);
}

TEST(MarkerSizeProperty, TwelveDrawsAsTen) {
  test::TestHost host;
  host.control.set_MarkerSize(12);
  EXPECT_EQ(host.document().MarkerDrawSize, 10);
}

TEST(MarkerSizeProperty, ReadsTheStoredSizeToTheNearestEvenInteger) {
  test::TestHost host;
  set_marker_size(host.document(), 2.5);
  EXPECT_EQ(host.control.MarkerSize(), 2);
  set_marker_size(host.document(), 3.5);
  EXPECT_EQ(host.control.MarkerSize(), 4);
}

TEST(Properties, LimitsAreStoredUncheckedAlsoCrossed) {
  test::TestHost host;
  host.load({0, 10}, {0, 10});
  host.control.set_xmin(20);
  EXPECT_EQ(host.control.xmin(), 20);
  EXPECT_EQ(host.control.xmax(), 10);
  const std::string log = host.redrawn();
  EXPECT_NE(log.find("\"20.00\""), std::string::npos);
  EXPECT_EQ(host.control.xmin(), 20);
}

TEST(Properties, AnInfiniteSingleIsAnOverflowAndChangesNothing) {
  constexpr Single kInf = std::numeric_limits<Single>::infinity();
  test::TestHost host;
  const Single before = host.control.FontSize();
  for (const Single size : {kInf, -kInf}) {
    EXPECT_EQ(test::fault_of([&] { host.control.set_FontSize(size); }), 6);
    EXPECT_EQ(test::fault_of([&] { host.control.set_TitleFontSize(size); }), 6);
    EXPECT_EQ(test::fault_of([&] { host.control.set_SubTitleFontSize(size); }), 6);
  }
  EXPECT_EQ(host.control.FontSize(), before);
  EXPECT_EQ(host.control.TitleFontSize(), before + 3);
  EXPECT_EQ(host.control.SubTitleFontSize(), before);
  host.control.set_FontSize(std::numeric_limits<Single>::max());
  EXPECT_EQ(host.control.FontSize(), std::numeric_limits<Single>::max());
}

TEST(Methods, InitDoesNothingAtAnyTime) {
  test::TestHost host;
  host.control.init();
  host.load({0, 10}, {0, 10});
  host.surface.clear_log();
  host.control.set_NumTicks(3);
  host.control.init();
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_EQ(host.control.NumTicks(), 3);
  EXPECT_TRUE(host.document().GraphValid);
}

}  // namespace
}  // namespace kurv
