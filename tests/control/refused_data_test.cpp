// After refused data the picture before them stays. What can be seen can be pressed.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/mouse.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;
using Log = std::vector<std::string>;

constexpr Item kItems[] = {Item::kTitle, Item::kSubTitle, Item::kLegend};
constexpr Region kRegions[] = {Region::kXCaption, Region::kXLabels, Region::kYLabels,
                               Region::kFrame};

SurfacePoint middle(const Rect& rect) {
  return {rect.left + rect.width / 2, rect.top + rect.height / 2};
}

struct RefusedHost : TestHost {
  RefusedHost() {
    load({1, 2}, {3, 4});
    control.set_SubTitle("Sub");
    control.build_the_graph();
  }

  ControlState& state() { return control.state(); }
  void refuse_data() {
    load({5, 5}, {3, 4});
    surface.clear_log();
    shell.windows.clear();
  }
  void double_click(SurfacePoint at) {
    control.press_mouse(1, 0, at.x, at.y);
    control.release_mouse(1, 0, at.x, at.y);
    control.double_click(at.x, at.y);
  }
};

TEST(AfterRefusedData, EveryItemIsFoundWhereItIsSeen) {
  RefusedHost host;
  host.refuse_data();
  for (const Item item : kItems) {
    EXPECT_TRUE(is_shown(host.state(), item));
    EXPECT_EQ(item_at(host.state(), middle(rect_of(host.state(), item))), item);
  }
  EXPECT_FALSE(is_shown(host.state(), HitTarget(EmptyPlot::kPlot)));
}

TEST(AfterRefusedData, RegionsAreOutlinedAndOpenTheirWindows) {
  RefusedHost host;
  host.refuse_data();
  Log windows;
  for (const Region region : kRegions) {
    const SurfacePoint at = middle(rects_of(host.state(), region).front());
    EXPECT_TRUE(is_shown(host.state(), HitTarget(region)));
    host.control.press_mouse(1, 0, at.x, at.y);
    EXPECT_EQ(host.state().mouse.outlined, std::vector{region});
    host.control.release_mouse(1, 0, at.x, at.y);
    host.double_click(at);
    windows.push_back(host.shell.windows.back());
  }
  EXPECT_EQ(windows, (Log{"frmCurves 0", "frmPropert 2", "frmPropert 2", "frmPropert 4"}));
}

TEST(AfterRefusedData, ADragMovesTheItemOfTheNextPicture) {
  RefusedHost host;
  host.refuse_data();
  const Rect seen = rect_of(host.state(), Item::kTitle);
  host.control.drag(Item::kTitle, {10, 10}, {3010, 4010});
  EXPECT_EQ(host.layout().imgTitle.left, 3000);
  EXPECT_EQ(host.layout().imgTitle.top, 4000);
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_EQ(rect_of(host.state(), Item::kTitle).left, seen.left) << "the picture is the old one";
  host.load({1, 2}, {3, 4});
  EXPECT_EQ(rect_of(host.state(), Item::kTitle).left, 3000);
}

TEST(AfterRefusedData, TheOldLegendCountsNotThatOfTheNewData) {
  RefusedHost listed;
  listed.refuse_data();
  listed.document().y_visible(1) = false;
  EXPECT_TRUE(is_shown(listed.state(), Item::kLegend));

  RefusedHost hidden;
  hidden.document().y_visible(1) = false;
  hidden.control.build_the_graph();
  hidden.refuse_data();
  EXPECT_FALSE(is_shown(hidden.state(), Item::kLegend));
}

TEST(AfterRefusedData, ABlankSurfaceHasNothingToPress) {
  RefusedHost host;
  host.refuse_data();
  host.control.resize();
  for (const Item item : kItems) EXPECT_FALSE(is_shown(host.state(), item));
  for (const Region region : kRegions) {
    EXPECT_EQ(region_at(host.state(), middle(rects_of(host.state(), region).front())),
              std::nullopt);
  }
  EXPECT_TRUE(is_shown(host.state(), HitTarget(EmptyPlot::kPlot)));
}

TEST(AfterRefusedData, BeforeAnyPictureNothingCanBePressed) {
  TestHost host;
  host.load({5, 5}, {3, 4});
  for (const Item item : kItems) EXPECT_FALSE(is_shown(host.control.state(), item));
}

}  // namespace
}  // namespace kurv
