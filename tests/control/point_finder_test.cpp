#include "control/point_finder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kReach = 120;

class PointFinderTest : public testing::Test {
 protected:
  // Limits 0..10 on both axes.
  void load(const std::vector<std::vector<Double>>& values, std::vector<String> functions = {}) {
    const auto curves = static_cast<Integer>(values.size() - 1);
    std::vector<String> names(values.size(), "name");
    const auto count = static_cast<Integer>(functions.size());
    host.control.scatter_graph2(String("Title"), test::columns(values), test::names(names),
                                static_cast<Integer>(values.front().size()), curves,
                                test::flags(std::vector<Boolean>(values.size() - 1, Boolean(true))),
                                count, test::names(std::move(functions)));
    set_limits(0, 10, 0, 10);
  }

  void set_limits(Double xmin, Double xmax, Double ymin, Double ymax) {
    host.control.set_xmin(xmin);
    host.control.set_xmax(xmax);
    host.control.set_ymin(ymin);
    host.control.set_ymax(ymax);
    host.control.build_the_graph();
  }

  const ControlState& state() { return host.control.state(); }

  // At a place beside this point of the data, in twips.
  std::optional<FoundPoint> nearest(DataPoint at, Double dx = 0, Double dy = 0) {
    const SurfacePlace place = *place_of(state(), at);
    return finder.nearest(state(), {place.x + dx, place.y + dy}, kReach);
  }

  std::optional<FoundPoint> moved(const std::optional<FoundPoint>& from, PointMove move) {
    return from ? finder.moved(state(), *from, move) : std::nullopt;
  }

  TestHost host;
  PointFinder finder;
};

TEST_F(PointFinderTest, FindsAPointWithinTheReach) {
  load({{1, 5, 9}, {2, 6, 4}});
  EXPECT_EQ(nearest({5, 6}, 100, 0), (FoundPoint{false, 1, 2, {5, 6}}));
  EXPECT_EQ(nearest({5, 6}, 0, -119), (FoundPoint{false, 1, 2, {5, 6}}));
  EXPECT_FALSE(nearest({5, 6}, 121, 0));
  EXPECT_FALSE(nearest({5, 6}, 100, 100));
}

TEST_F(PointFinderTest, ReportsThePointInTheOrderOfTheHost) {
  load({{9, 1, 5}, {2, 6, 4}});
  EXPECT_EQ(nearest({9, 2})->point, 1);
  host.control.set_SortXY(true);
  host.control.build_the_graph();
  EXPECT_EQ(nearest({9, 2})->point, 1);
  EXPECT_EQ(nearest({1, 6})->point, 2);
}

TEST_F(PointFinderTest, FindsNoHiddenNoMissingAndNoOutsidePoint) {
  load({{1, 5, 9}, {2, kMissing, 4}, {8, 7, 6}});
  EXPECT_TRUE(nearest({5, 7}));
  host.document().y_visible(2) = false;
  EXPECT_FALSE(nearest({5, 7}));
  EXPECT_TRUE(nearest({9, 4}));
  set_limits(0, 8.95, 0, 10);
  EXPECT_FALSE(nearest({8.95, 4}));
}

TEST_F(PointFinderTest, FindsNothingWithoutAGraph) {
  EXPECT_FALSE(data_at(state(), {3000, 3000}));
  EXPECT_FALSE(place_of(state(), {1, 1}));
  EXPECT_FALSE(finder.nearest(state(), {3000, 3000}, kReach));
  EXPECT_FALSE(finder.first(state()));
  load({{1, 5, 9}, {2, 6, 4}});
  host.document().xmax = host.document().xmin;
  EXPECT_FALSE(finder.nearest(state(), {3000, 3000}, kReach));
  EXPECT_FALSE(finder.first(state()));
}

TEST_F(PointFinderTest, GivesDataInsideThePlotAlone) {
  load({{1, 5, 9}, {2, 6, 4}});
  const SurfacePlace place = *place_of(state(), {2.5, 7.5});
  EXPECT_NEAR(data_at(state(), place)->x, 2.5, 1e-12);
  EXPECT_NEAR(data_at(state(), place)->y, 7.5, 1e-12);
  EXPECT_FALSE(data_at(state(), *place_of(state(), {-0.1, 5})));
  EXPECT_FALSE(data_at(state(), *place_of(state(), {5, 10.1})));
}

TEST_F(PointFinderTest, FindsTheValueOfAFunctionWhereItsLineIs) {
  load({{1, 5, 9}, {2, 6, 4}}, {"x", "0*x+8"});
  const auto flat = nearest({3.3, 8}, 0, 60);
  ASSERT_TRUE(flat);
  EXPECT_TRUE(flat->is_function);
  EXPECT_EQ(flat->curve, 2);
  EXPECT_EQ(flat->point, 0);
  EXPECT_NEAR(flat->value.x, 3.3, 1e-9);
  EXPECT_EQ(flat->value.y, 8);
  EXPECT_EQ(nearest({7.1, 7.1})->curve, 1);
  EXPECT_FALSE(nearest({3.3, 8}, 0, 125));
  host.document().y_func(2).visible = false;
  EXPECT_FALSE(nearest({3.3, 8}));
}

TEST_F(PointFinderTest, FindsAPointBeforeAFunctionThatIsFittedToIt) {
  load({{1, 5, 9}, {2, 5.01, 4}}, {"x"});
  EXPECT_FALSE(nearest({5, 5})->is_function);
  EXPECT_TRUE(nearest({4, 4})->is_function);
}

TEST_F(PointFinderTest, FindsNoFunctionThatIsNotDrawn) {
  // The line ends at the first sample that has no value, which is the first of all.
  load({{1, 5, 9}, {2, 6, 4}}, {"log(x)+5"});
  const auto is_found = [&] {
    return nearest({3, std::log(3) + 5}) || nearest({3, std::log10(3) + 5});
  };
  EXPECT_FALSE(is_found());
  set_limits(1, 10, 0, 10);
  EXPECT_TRUE(is_found());
}

TEST_F(PointFinderTest, GoesFromPointToPointByAscendingX) {
  load({{9, 1, 5}, {2, 6, 4}, {3, 3, kMissing}});
  const auto first = finder.first(state());
  EXPECT_EQ(first, (FoundPoint{false, 1, 2, {1, 6}}));
  const auto second = moved(first, PointMove::kNext);
  EXPECT_EQ(second, (FoundPoint{false, 1, 3, {5, 4}}));
  const auto third = moved(second, PointMove::kNext);
  EXPECT_EQ(third, (FoundPoint{false, 1, 1, {9, 2}}));
  EXPECT_EQ(moved(third, PointMove::kNext), third);
  EXPECT_EQ(moved(third, PointMove::kPrevious), second);
  EXPECT_EQ(moved(third, PointMove::kFirst), first);
  EXPECT_EQ(moved(first, PointMove::kLast), third);
  EXPECT_EQ(moved(first, PointMove::kPrevious), first);
}

TEST_F(PointFinderTest, GoesToTheOtherCurvesWhereXIsNearest) {
  load({{1, 5, 9}, {2, 6, 4}, {3, kMissing, 3}, {7, 8, 9}}, {"x"});
  host.document().y_visible(3) = false;
  const auto middle = moved(finder.first(state()), PointMove::kNext);
  const auto second = moved(middle, PointMove::kNextCurve);
  EXPECT_EQ(second, (FoundPoint{false, 2, 1, {1, 3}}));
  const auto function = moved(second, PointMove::kNextCurve);
  ASSERT_TRUE(function);
  EXPECT_TRUE(function->is_function);
  EXPECT_EQ(function->point, 5);
  EXPECT_EQ(function->value.y, 1);
  EXPECT_EQ(moved(function, PointMove::kNextCurve), function);
  EXPECT_EQ(moved(function, PointMove::kPreviousCurve), second);
  EXPECT_EQ(moved(function, PointMove::kNext)->value.x, 1.25);
}

TEST_F(PointFinderTest, GoesOnByATenthOfThePointsThatAreInThePlot) {
  std::vector<Double> x, y;
  for (int i = 0; i < 100; ++i) {
    x.push_back(i / 5.0);
    y.push_back(5);
  }
  load({x, y});
  // 51 of them are.
  const auto first = finder.first(state());
  EXPECT_EQ(moved(first, PointMove::kPageOn)->point, 6);
  EXPECT_EQ(moved(moved(first, PointMove::kPageOn), PointMove::kPageBack), first);
  EXPECT_EQ(moved(first, PointMove::kLast)->point, 51);
}

TEST_F(PointFinderTest, RenewsAPointThatHasChanged) {
  load({{1, 5, 9}, {2, 6, 4}});
  const auto point = nearest({5, 6});
  host.control.replace_points(test::columns({{1, 5, 9}, {2, 7, 4}}), test::names({"x", "a"}));
  EXPECT_EQ(finder.renewed(state(), *point)->value.y, 7);
  set_limits(0, 4, 0, 10);
  EXPECT_FALSE(finder.renewed(state(), *point));
  EXPECT_FALSE(moved(point, PointMove::kNext));
}

TEST_F(PointFinderTest, FindsWhatIsThereAfterAnIntakeThatHasFailedMidway) {
  load({{1, 5, 9}, {2, 6, 4}}, {"x"});
  const auto all = test::columns({{1, 5}, {2, 6}});
  for (const Integer curves : {Integer{3}, Integer{200}}) {
    EXPECT_THROW(host.control.scatter_graph2("Title", all, test::names({"x"}), 2, curves,
                                             test::flags({true}), 0, {}),
                 Fault);
    EXPECT_NO_THROW(nearest({5, 6}));
    EXPECT_NO_THROW(finder.first(state()));
  }
}

}  // namespace
}  // namespace kurv
