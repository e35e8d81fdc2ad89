#include "control/mouse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;
using Log = std::vector<std::string>;

constexpr Rect kFar{20000, 20000, 0, 0};

// A drawn graph with all three items; what a test does not place is far away.
struct MouseHost : TestHost {
  MouseHost() {
    load({1, 2}, {3, 4});
    control.set_SubTitle("Sub");
    control.build_the_graph();
    forget();
  }

  MouseState& mouse() { return control.state().mouse; }
  std::vector<Region> outlined() { return mouse().outlined; }
  void forget() {
    surface.clear_log();
    shell.windows.clear();
    container.pointers.clear();
  }
  void clear_regions() {
    for (Rect* rect : {&layout().shpXcaption, &layout().shpXlabels, &layout().shpYlabels,
                       &layout().shpGraphBorder[0], &layout().shpGraphBorder[1]}) {
      *rect = kFar;
    }
  }
  void press(Single x, Single y) { control.press_mouse(1, 0, x, y); }
  void release(Single x, Single y) { control.release_mouse(1, 0, x, y); }
  // What a user does: the second press is reported as the double click.
  void double_click(Single x, Single y) {
    press(x, y);
    release(x, y);
    control.double_click(x, y);
  }
};

SurfacePoint middle(const Rect& rect) {
  return {rect.left + rect.width / 2, rect.top + rect.height / 2};
}

struct RegionCase {
  Region region;
  Rect Layout::*rect;
};
constexpr RegionCase kBands[] = {{Region::kXCaption, &Layout::shpXcaption},
                                 {Region::kXLabels, &Layout::shpXlabels},
                                 {Region::kYLabels, &Layout::shpYlabels}};

void expect_edges_inside(MouseHost& host, Region region, const Rect& rect) {
  const Single right = rect.left + rect.width;
  const Single bottom = rect.top + rect.height;
  for (const SurfacePoint at : {SurfacePoint{rect.left, rect.top},
                                {right, rect.top},
                                {rect.left, bottom},
                                {right, bottom},
                                middle(rect)}) {
    EXPECT_EQ(region_at(host.control.state(), at), region) << at.x << ' ' << at.y;
  }
  for (const SurfacePoint at : {SurfacePoint{rect.left - 1, rect.top},
                                {right + 1, rect.top},
                                {rect.left, rect.top - 1},
                                {right, bottom + 1}}) {
    EXPECT_EQ(region_at(host.control.state(), at), std::nullopt) << at.x << ' ' << at.y;
  }
}

TEST(Regions, EdgesBelongToThem) {
  MouseHost host;
  const Rect rect{1000, 2000, 300, 400};
  for (const RegionCase& band : kBands) {
    host.clear_regions();
    host.layout().*band.rect = rect;
    expect_edges_inside(host, band.region, rect);
  }
  for (Rect& strip : host.layout().shpGraphBorder) {
    host.clear_regions();
    strip = rect;
    expect_edges_inside(host, Region::kFrame, rect);
  }
}

TEST(Regions, TheEarlierOneWinsWhereTheyOverlap) {
  MouseHost host;
  host.clear_regions();
  const Rect rect{1000, 2000, 300, 400};
  for (const RegionCase& band : kBands) host.layout().*band.rect = rect;
  host.layout().shpGraphBorder[0] = host.layout().shpGraphBorder[1] = rect;
  for (const RegionCase& band : kBands) {
    EXPECT_EQ(region_at(host.control.state(), middle(rect)), band.region);
    host.layout().*band.rect = kFar;
  }
  EXPECT_EQ(region_at(host.control.state(), middle(rect)), Region::kFrame);
}

TEST(Regions, AreWhereTheAxesAreDrawn) {
  MouseHost host;
  const auto region = [&](Single x, Single y) { return region_at(host.control.state(), {x, y}); };
  // The plot reaches from 800, 480 to 11200, 8480.
  EXPECT_EQ(region(6000, 8480 + 230), Region::kXCaption);
  EXPECT_EQ(region(3000, 8480 + 60), Region::kXLabels);
  EXPECT_EQ(region(300, 4000), Region::kYLabels);
  EXPECT_EQ(region(3000, 8480), Region::kFrame);
  EXPECT_EQ(region(800, 4000), Region::kFrame);
  EXPECT_EQ(region(6000, 4000), std::nullopt);
}

TEST(Regions, FrameHasTwoOutlinesAndTheOthersOne) {
  MouseHost host;
  const ControlState& state = host.control.state();
  EXPECT_EQ(rects_of(state, Region::kFrame).size(), 2U);
  for (const RegionCase& band : kBands) {
    const std::vector<Rect> rects = rects_of(state, band.region);
    ASSERT_EQ(rects.size(), 1U);
    EXPECT_EQ(rects[0].left, (host.layout().*band.rect).left);
    EXPECT_EQ(rects[0].top, (host.layout().*band.rect).top);
  }
}

TEST(Press, MarksTheRegionThatContainsIt) {
  for (const RegionCase& band : kBands) {
    MouseHost host;
    host.clear_regions();
    host.layout().*band.rect = {1000, 2000, 300, 400};
    host.press(1100, 2100);
    EXPECT_EQ(host.outlined(), std::vector<Region>{band.region});
  }
  MouseHost host;
  host.press(800, 4000);
  EXPECT_EQ(host.outlined(), std::vector<Region>{Region::kFrame});
}

TEST(Press, OnThePlainPlotMarksNothingAndRemembersThePoint) {
  MouseHost host;
  host.press(6000.5F, 4000.25F);
  EXPECT_TRUE(host.outlined().empty());
  EXPECT_EQ(host.mouse().press_x, 6000.5F);
  EXPECT_EQ(host.mouse().press_y, 4000.25F);
  EXPECT_EQ(host.surface.log(), "") << "nothing is redrawn";
}

TEST(Press, OnAnItemRemembersItsOwnPointAndMarksNothing) {
  MouseHost host;
  host.layout().picLegend.left = 700;  // over the frame's strip
  host.layout().picLegend.top = 3000;
  host.press(710.5F, 3020);
  EXPECT_TRUE(host.outlined().empty());
  EXPECT_EQ(host.mouse().press_x, 10.5F);
  EXPECT_EQ(host.mouse().press_y, 20);
}

TEST(Press, AtNoPlaceAtAllDoesNothing) {
  MouseHost host;
  const Single nan = std::numeric_limits<Single>::quiet_NaN();
  host.press(nan, nan);
  EXPECT_TRUE(host.outlined().empty());
  host.release(nan, nan);
  EXPECT_EQ(host.container.mouse_ups, 1);
}

TEST(Marks, StayUntilTheNextReleaseWhateverElseHappens) {
  MouseHost host;
  host.press(800, 4000);
  host.control.build_the_graph();
  host.control.double_click(800, 4000);
  host.control.drag(Item::kLegend, {0, 0}, {3000, 3000});
  host.control.resize();
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.outlined(), std::vector<Region>{Region::kFrame});
  host.press(6000, 4000);
  EXPECT_EQ(host.outlined(), std::vector<Region>{Region::kFrame}) << "a press hides none";
  host.press(800, 4000);
  EXPECT_EQ(host.outlined(), std::vector<Region>{Region::kFrame}) << "each once";
  host.press(300, 4000);
  EXPECT_EQ(host.outlined(), (std::vector<Region>{Region::kFrame, Region::kYLabels}));
  host.release(-5000, 60000);
  EXPECT_TRUE(host.outlined().empty());
}

TEST(Release, PassesOnWhatItWasGivenAfterTheMarksHaveGone) {
  MouseHost host;
  Log heard;
  host.control.add_listener([&](const Event& event, std::span<const Variant> values) {
    std::string line(event.name);
    for (const Variant& value : values) line += ' ' + to_string(value);
    heard.push_back(line + (host.outlined().empty() ? "" : " marked"));
  });
  host.press(800, 4000);
  host.control.release_mouse(2, 7, -1.5F, 40000.25F);
  EXPECT_EQ(heard, Log{"MouseUp 2 7 -1.5 40000.25"});
  EXPECT_EQ(host.container.mouse_ups, 1);
  EXPECT_EQ(host.surface.log(), "");
}

TEST(Release, BelongsToWhereThePressWas) {
  MouseHost host;
  const SurfacePoint title = middle(host.layout().imgTitle);
  host.release(title.x, title.y);
  EXPECT_EQ(host.container.mouse_ups, 0) << "on an item, without a press";
  host.press(title.x, title.y);
  host.release(title.x, title.y);
  host.press(title.x, title.y);
  host.release(6000, 4000);
  EXPECT_EQ(host.container.mouse_ups, 0) << "pressed on an item";
  host.release(6000, 4000);
  EXPECT_EQ(host.container.mouse_ups, 1) << "without a press again";
  host.container.mouse_ups = 0;
  host.press(800, 4000);
  host.release(title.x, title.y);
  EXPECT_EQ(host.container.mouse_ups, 1) << "pressed on the surface";
  EXPECT_TRUE(host.outlined().empty()) << "no outline is left behind";
  host.release(title.x, title.y);
  EXPECT_EQ(host.container.mouse_ups, 1) << "that press is over";
}

TEST(Release, AfterADropBelongsToWhatIsThere) {
  MouseHost host;
  host.press(middle(host.layout().imgTitle).x, middle(host.layout().imgTitle).y);
  drop(host.control.state(), Item::kTitle, {5000, 5000});
  host.release(6000, 4000);
  EXPECT_EQ(host.container.mouse_ups, 1);
}

TEST(DoubleClick, OpensTheWindowOfTheRegion) {
  struct Case {
    Rect Layout::*rect;
    const char* window;
  };
  for (const Case& region : {Case{&Layout::shpXcaption, "frmCurves 0"},
                             {&Layout::shpXlabels, "frmPropert 2"},
                             {&Layout::shpYlabels, "frmPropert 2"}}) {
    MouseHost host;
    host.clear_regions();
    host.layout().*region.rect = {1000, 2000, 300, 400};
    host.double_click(1100, 2100);
    EXPECT_EQ(host.shell.windows, Log{region.window});
  }
  for (const std::size_t strip : {0U, 1U}) {
    MouseHost host;
    host.clear_regions();
    host.layout().shpGraphBorder[strip] = {1000, 2000, 300, 400};
    host.double_click(1300, 2400);
    EXPECT_EQ(host.shell.windows, Log{"frmPropert 4"});
    EXPECT_TRUE(host.container.pointers.empty()) << "no command runs";
  }
}

TEST(DoubleClick, OnThePlainPlotOpensTheCurves) {
  MouseHost host;
  host.double_click(6000, 4000);
  EXPECT_EQ(host.shell.windows, Log{"frmCurves 0"});
  EXPECT_EQ(host.surface.log(), "");
}

TEST(DoubleClick, GoesByThePressBeforeIt) {
  MouseHost host;
  host.press(300, 4000);
  host.control.double_click(6000, 4000);
  EXPECT_EQ(host.shell.windows, Log{"frmPropert 2"});
}

TEST(DoubleClick, OnAnItemSendsItsCommand) {
  MouseHost host;
  for (const Rect* title : {&host.layout().imgTitle, &host.layout().imgSubTitle}) {
    host.forget();
    host.double_click(middle(*title).x, middle(*title).y);
    EXPECT_EQ(host.shell.windows, Log{"frmPropert 1"});
    EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 0}));
  }
  host.forget();
  host.double_click(middle(host.layout().picLegend).x, middle(host.layout().picLegend).y);
  EXPECT_EQ(host.shell.windows, Log{"frmCurves 0"});
  EXPECT_EQ(host.container.pointers, (std::vector<Integer>{11, 0}));
}

TEST(DoubleClick, OpensTheCurvesWhereThereIsNoGraph) {
  TestHost host;
  host.shell.windows.clear();
  const SurfacePoint title = middle(host.layout().imgTitle);
  for (const SurfacePoint at : {title, SurfacePoint{0, 0}, {1100, 800}, {6000, 4000}}) {
    EXPECT_EQ(item_at(host.control.state(), at), std::nullopt) << "there are no items either";
    host.control.press_mouse(1, 0, at.x, at.y);
    host.control.release_mouse(1, 0, at.x, at.y);
    host.control.double_click(at.x, at.y);
  }
  EXPECT_EQ(host.shell.windows, Log(4, "frmCurves 0"));
  EXPECT_EQ(host.container.mouse_ups, 4);
}

}  // namespace
}  // namespace kurv
