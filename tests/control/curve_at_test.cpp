// Which curve a point of the picture belongs to.
#include "control/curve_at.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "control/control_state.h"
#include "render/mapping.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

constexpr Double kReach = 120;

class CurveAt : public testing::Test {
 protected:
  // "up" from 0 to 10, and "down".
  void SetUp() override { load({0, 5, 10}, {{0, 5, 10}, {10, 5, 0}}, {"x", "up", "down"}); }

  void load(const std::vector<Double>& x, std::vector<std::vector<Double>> curves,
            const std::vector<String>& names, bool has_lines = true, bool has_markers = false) {
    const auto count = static_cast<Integer>(x.size());
    const auto number = static_cast<Integer>(curves.size());
    curves.insert(curves.begin(), x);
    host.control.scatter_graph2("Title", test::columns(curves), test::names(names), count, number,
                                test::flags(std::vector<Boolean>(curves.size() - 1, true)), 0, {},
                                has_lines, has_markers);
    host.control.set_xmin(0);
    host.control.set_xmax(10);
    host.control.set_ymin(0);
    host.control.set_ymax(10);
    host.layout().picLegend.left = 9000;
    host.layout().picLegend.top = 8000;
    host.control.build_the_graph();
  }
  SurfacePoint place(Double x, Double y) {
    return Mapping(host.document(), host.layout().plot).surface_point({x, y});
  }
  std::optional<int> at(SurfacePoint point, Double reach = kReach) {
    return curve_at(host.control.state(), point, reach);
  }

  test::TestHost host;
};

TEST_F(CurveAt, IsTheOneWhoseLineIsNear) {
  EXPECT_EQ(at(place(2, 2)), 1);
  EXPECT_EQ(at(place(2, 8)), 2);
  EXPECT_EQ(at(place(2, 5)), std::nullopt);
}

TEST_F(CurveAt, IsTheNearestAndAtTheSameDistanceTheUpperOne) {
  EXPECT_EQ(at(place(4.9, 4.99)), 1);
  EXPECT_EQ(at(place(5, 5)), 2);
}

TEST_F(CurveAt, IsWithinReach) {
  SurfacePoint near = place(0, 0);
  near.x -= 100;
  EXPECT_EQ(at(near), 1);
  EXPECT_EQ(at(near, 99), std::nullopt);
}

TEST_F(CurveAt, IsNoHiddenOne) {
  host.document().y_visible(1) = false;
  EXPECT_EQ(at(place(2, 2)), std::nullopt);
}

TEST_F(CurveAt, IsAtItsMarkersAloneWhereThereAreNoLines) {
  load({0, 5, 10}, {{0, 5, 10}}, {"x", "up"}, false, true);
  EXPECT_EQ(at(place(5, 5)), 1);
  EXPECT_EQ(at(place(2, 2)), std::nullopt);
}

TEST_F(CurveAt, HasNoLineAtAMissingValue) {
  constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();
  load({0, 4, 6, 10}, {{1, kMissing, 9, 9}}, {"x", "gap"});
  EXPECT_EQ(at(place(3, 5)), std::nullopt);
  EXPECT_EQ(at(place(8, 9)), 1);
}

TEST_F(CurveAt, HasASegmentThatEntersThePlotAndNoneThatLeavesIt) {
  load({0, 5, 10}, {{5, 5, 15}}, {"x", "leaving"});
  EXPECT_EQ(at(place(7, 9)), std::nullopt);
  load({0, 5, 10}, {{15, 5, 5}}, {"x", "entering"});
  EXPECT_EQ(at(place(3, 9)), 1);
}

TEST_F(CurveAt, IsThatOfTheRowInTheLegend) {
  const Rect& legend = host.layout().picLegend;
  const Single x = legend.left + legend.width / 2;
  EXPECT_EQ(at({x, legend.top + legend.height / 4}), 1);
  EXPECT_EQ(at({x, legend.top + legend.height * 3 / 4}), 2);
  host.document().y_visible(1) = false;
  host.control.build_the_graph();
  EXPECT_EQ(at({x, legend.top + legend.height / 4}), 2);
}

TEST_F(CurveAt, IsNoneBelowATitleThatCoversIt) {
  Rect& title = host.layout().imgTitle;
  const SurfacePoint middle = place(2, 2);
  title.left = middle.x - title.width / 2;
  title.top = middle.y - title.height / 2;
  host.control.build_the_graph();
  EXPECT_EQ(at(middle), std::nullopt);
}

TEST_F(CurveAt, IsNoneWhereNothingCanBeDrawn) {
  host.document().xmax = host.document().xmin;
  EXPECT_EQ(at({2000, 2000}, 1e9), std::nullopt);
  host.document().GraphValid = false;
  EXPECT_EQ(at({2000, 2000}, 1e9), std::nullopt);
}

// Fewer points, columns, flags and names than the counts say.
TEST_F(CurveAt, IsNoneOrOneThatIsThereAfterAnIntakeThatHasFailedMidway) {
  const Rect legend = host.layout().picLegend;
  const SurfacePoint row{legend.left + legend.width / 2, legend.top + legend.height / 2};
  const auto x = test::points({0, 5, 10});
  const auto y = test::columns({{0, 5, 10}, {10, 5, 0}});
  const auto intake = [&](Integer points, Integer curves, const List<String>& names) {
    EXPECT_THROW(
        host.control.scatter_graph(y, x, points, curves, Variant("Title"), "x", names, 0, {}),
        Fault);
    ASSERT_TRUE(host.document().GraphValid);
    EXPECT_NO_THROW(at(place(2, 2)));
    EXPECT_NO_THROW(at(row));
  };
  intake(3, 3, test::names({"up", "down", "more"}));
  intake(4, 2, test::names({"up", "down"}));
  intake(3, 2, test::names({"up"}));
  intake(3, 200, test::names({"up", "down"}));
}

TEST_F(CurveAt, IsNoneAfterAnIntakeOfAMatrixThatHasFailedMidway) {
  const Rect legend = host.layout().picLegend;
  const SurfacePoint row{legend.left + legend.width / 2, legend.top + legend.height / 2};
  const Matrix<Double> all = test::columns({{0, 5, 10}, {0, 5, 10}, {10, 5, 0}});
  EXPECT_THROW(host.control.scatter_graph2("Title", all, test::names({"x"}), 3, 3,
                                           test::flags({true}), 0, {}),
               Fault);
  EXPECT_NO_THROW(at(place(2, 2)));
  EXPECT_NO_THROW(at(row));
}

}  // namespace
}  // namespace kurv
