// What can be grabbed on the plot, and where it goes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "control/mouse.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

struct ItemCase {
  Item item;
  const char* name;
  Rect Layout::*rect;
};
constexpr ItemCase kItems[] = {{Item::kLegend, "legend", &Layout::picLegend},
                               {Item::kTitle, "Title", &Layout::imgTitle},
                               {Item::kSubTitle, "SubTitle", &Layout::imgSubTitle}};

// A drawn graph with all three items.
struct DragHost : TestHost {
  DragHost() {
    load({1, 2}, {3, 4});
    control.set_SubTitle("Sub");
    control.build_the_graph();
    surface.clear_log();
  }

  ControlState& state() { return control.state(); }
  // The positions of legend, title and subtitle.
  std::vector<Single> positions() {
    std::vector<Single> all;
    for (const ItemCase& item : kItems) {
      all.push_back((layout().*item.rect).left);
      all.push_back((layout().*item.rect).top);
    }
    return all;
  }
  int redraws() const {
    int count = 0;
    for (std::size_t at = 0; (at = surface.log().find("cls\n", at)) != std::string::npos; ++at) {
      ++count;
    }
    return count;
  }
};

TEST(Items, EdgesBelongToThem) {
  DragHost host;
  for (const ItemCase& item : kItems) {
    Rect& rect = host.layout().*item.rect;
    rect.left = 3000;
    rect.top = 3000;
    const Single right = rect.left + rect.width;
    const Single bottom = rect.top + rect.height;
    EXPECT_EQ(item_at(host.state(), {3000, 3000}), item.item);
    EXPECT_EQ(item_at(host.state(), {right, bottom}), item.item);
    EXPECT_EQ(item_at(host.state(), {2999, 3000}), std::nullopt);
    EXPECT_EQ(item_at(host.state(), {3000, 2999}), std::nullopt);
    EXPECT_EQ(item_at(host.state(), {right + 1, bottom}), std::nullopt);
    EXPECT_EQ(item_at(host.state(), {right, bottom + 1}), std::nullopt);
    rect.left = 20000;
  }
}

TEST(Items, TheLaterPaintedIsOnTop) {
  DragHost host;
  for (const ItemCase& item : kItems) {
    (host.layout().*item.rect).left = 3000;
    (host.layout().*item.rect).top = 3000;
  }
  const auto top = [&] { return item_at(host.state(), {3010, 3010}); };
  EXPECT_EQ(top(), Item::kSubTitle);
  host.control.set_SubTitle("");
  host.control.build_the_graph();
  EXPECT_EQ(top(), Item::kTitle);
  host.control.set_Title("");
  host.control.build_the_graph();
  EXPECT_EQ(top(), Item::kLegend);
  host.document().y_visible(1) = false;
  host.control.build_the_graph();
  EXPECT_EQ(top(), std::nullopt);
}

TEST(Items, ThatAreNotShownCannotBeGrabbed) {
  DragHost host;
  host.control.set_Title("");
  host.control.set_SubTitle("");
  host.document().y_visible(1) = Boolean::from_bits(1);  // drawn, but not listed
  host.control.build_the_graph();
  host.surface.clear_log();
  const std::vector<Single> before = host.positions();
  for (const ItemCase& item : kItems) {
    EXPECT_FALSE(is_shown(host.state(), item.item));
    host.control.drag(item.item, {0, 0}, {3000, 3000});
  }
  EXPECT_EQ(host.positions(), before);
  EXPECT_EQ(host.redraws(), 0);
}

TEST(Items, AreNotShownBeforeThereIsAGraph) {
  TestHost host;
  const Rect title = host.layout().imgTitle;
  EXPECT_GT(title.width, 0);
  for (const ItemCase& item : kItems) {
    EXPECT_FALSE(is_shown(host.control.state(), item.item));
    host.control.drag(item.item, {0, 0}, {3000, 3000});
  }
  EXPECT_EQ(host.layout().imgTitle.left, title.left);
}

TEST(Items, CanBeLookedForWhereACountIsWrong) {
  DragHost host;
  host.document().NumY = 3;
  EXPECT_TRUE(is_shown(host.state(), Item::kLegend));
  host.document().y_visible(1) = false;
  EXPECT_FALSE(is_shown(host.state(), Item::kLegend));
  EXPECT_EQ(item_at(host.state(), {6000, 4000}), std::nullopt);
}

TEST(Drag, KeepsTheGrabbedPointUnderThePointerAndMovesThatItemAlone) {
  for (const ItemCase& item : kItems) {
    DragHost host;
    std::vector<Single> expected = host.positions();
    const auto index = static_cast<std::size_t>(&item - kItems);
    host.control.drag(item.item, {30.5F, 20}, {5000, 6000.25F});
    expected[2 * index] = 4969.5F;
    expected[2 * index + 1] = 5980.25F;
    EXPECT_EQ(host.positions(), expected) << item.name;
    EXPECT_EQ(host.redraws(), 1);
    EXPECT_FALSE(host.control.GraphSaved());
  }
}

TEST(Drag, ByPressAndDropIsTheSame) {
  for (const ItemCase& item : kItems) {
    DragHost host;
    const Rect before = host.layout().*item.rect;
    host.control.press_mouse(1, 0, before.left + 25, before.top + 35);
    drop(host.state(), item.item, {before.left + 1025, before.top + 2035});
    EXPECT_EQ((host.layout().*item.rect).left, before.left + 1000) << item.name;
    EXPECT_EQ((host.layout().*item.rect).top, before.top + 2000) << item.name;
  }
}

TEST(Drag, OntoAnItemGoesToThatPlaceOfTheSurface) {
  for (const ItemCase& target : kItems) {
    for (const ItemCase& item : kItems) {
      DragHost host;
      const Rect on = host.layout().*target.rect;
      host.control.drag(item.item, {10, 20}, {50, 70}, target.item);
      EXPECT_EQ((host.layout().*item.rect).left, on.left + 40)
          << item.name << " on " << target.name;
      EXPECT_EQ((host.layout().*item.rect).top, on.top + 50) << item.name << " on " << target.name;
      EXPECT_EQ(host.redraws(), 1);
    }
  }
}

TEST(Drag, PlacesAreNotClampedToTheSurface) {
  DragHost host;
  host.control.drag(Item::kTitle, {10, 10}, {-5000, -32000});
  EXPECT_EQ(host.layout().imgTitle.left, -5010);
  EXPECT_EQ(host.layout().imgTitle.top, -32010);
  host.control.drag(Item::kTitle, {-500, 7000}, {100, 200});
  EXPECT_EQ(host.layout().imgTitle.left, 600) << "a grab beyond the item is taken as it is";
  EXPECT_EQ(host.layout().imgTitle.top, -6800);
}

TEST(Drag, PlacesAreKeptWithin16Bits) {
  DragHost host;
  host.control.drag(Item::kTitle, {10, 10}, {-32758, -32758.5F});
  EXPECT_EQ(host.layout().imgTitle.left, -32768);
  EXPECT_EQ(host.layout().imgTitle.top, -32768);
  for (const ItemCase& item : kItems) {
    host.control.drag(item.item, {0, 0}, {-40000, -1e30F});
    EXPECT_EQ((host.layout().*item.rect).left, -32768) << item.name;
    EXPECT_EQ((host.layout().*item.rect).top, -32768) << item.name;
  }
  host.control.set_NumTicks(0);  // the redraw fails before it brings the item back
  EXPECT_THROW(host.control.drag(Item::kTitle, {0, 0}, {40000, 1e30F}), Fault);
  EXPECT_EQ(to_integer(Double(host.layout().imgTitle.left)), 32767);
  EXPECT_EQ(to_integer(Double(host.layout().imgTitle.top)), 32767);
}

TEST(Drag, BeyondTheFarEdgesTheRedrawBringsTheItemBack) {
  DragHost host;
  host.control.drag(Item::kLegend, {0, 0}, {12001, 9001});
  EXPECT_EQ(host.layout().picLegend.left, to_single(host.layout().plot.PlotWidth / 3.0));
  EXPECT_EQ(host.layout().picLegend.top, to_single(host.layout().plot.PlotHeight / 3.0));
  host.control.drag(Item::kLegend, {0, 0}, {12000, 9000});
  EXPECT_EQ(host.layout().picLegend.left, 12000) << "the edge itself is not beyond";
  EXPECT_EQ(host.layout().picLegend.top, 9000);
}

TEST(Drag, ToAPlaceThatNoSingleHoldsOverflows) {
  DragHost host;
  const std::vector<Single> before = host.positions();
  const Single huge = std::numeric_limits<Single>::max();
  for (const SurfacePoint grab : {SurfacePoint{-huge, 0}, {0, -huge}}) {
    try {
      host.control.drag(Item::kTitle, grab, {huge, huge});
      ADD_FAILURE();
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.kind(), FaultKind::kOverflow);
    }
    EXPECT_EQ(host.positions(), before);
  }
  host.layout().picLegend.left = huge;
  EXPECT_THROW(host.control.drag(Item::kTitle, {0, 0}, {huge, 0}, Item::kLegend), Fault);
  EXPECT_EQ(host.redraws(), 0);
}

TEST(Drag, MovesAlsoWhereTheRedrawFails) {
  DragHost host;
  host.control.set_NumTicks(0);
  EXPECT_THROW(host.control.drag(Item::kTitle, {0, 0}, {3000, 3000}), Fault);
  EXPECT_EQ(host.layout().imgTitle.left, 3000);
}

TEST(Drag, LastsUntilRefresh) {
  DragHost host;
  host.control.ChartOptions("refresh");
  const std::vector<Single> home = host.positions();
  for (const ItemCase& item : kItems) host.control.drag(item.item, {0, 0}, {3000, 3000});
  host.control.build_the_graph();
  host.control.resize();
  EXPECT_EQ(host.positions(), std::vector<Single>(6, 3000));
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.positions(), home);
}

TEST(Drag, ToNoPlaceAtAllIsDrawnAsNothing) {
  DragHost host;
  const Single nan = std::numeric_limits<Single>::quiet_NaN();
  EXPECT_NO_THROW(host.control.drag(Item::kLegend, {0, 0}, {nan, nan}));
  EXPECT_EQ(host.redraws(), 1);
  EXPECT_EQ(item_at(host.state(), {6000, 4000}), std::nullopt);
  host.control.ChartOptions("refresh");
  EXPECT_EQ(host.layout().picLegend.left, 1000);
}

}  // namespace
}  // namespace kurv
