#include "render/legend_place.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

class LegendPlacing : public testing::Test {
 protected:
  void load(const std::vector<Double>& x, const std::vector<Double>& y, bool lines = true) {
    const auto count = static_cast<Integer>(x.size());
    host.control.scatter_graph(test::columns({y}), test::points(x), count, 1, String("Title"), "x",
                               test::names({"y"}), 0, {}, Boolean(lines), Boolean(true));
    for (const auto& [set, value] :
         {std::pair(&Control::set_xmin, 0.0), std::pair(&Control::set_xmax, 10.0),
          std::pair(&Control::set_ymin, 0.0), std::pair(&Control::set_ymax, 10.0)}) {
      (host.control.*set)(value);
    }
    host.control.build_the_graph();
    host.layout().picLegend = {0, 0, 2000, 1000};
  }
  LegendPlace place() { return find_legend_place(host.document(), host.layout()).value(); }
  bool is_left(const LegendPlace& found) { return found.left < host.layout().plot.PlotLeft + 400; }
  bool is_top(const LegendPlace& found) { return found.top < host.layout().plot.PlotTop + 400; }

  test::TestHost host;
};

TEST_F(LegendPlacing, IsTheTopLeftCornerWhereThatIsFree) {
  load({4, 6, 9}, {5, 1, 9}, false);
  EXPECT_TRUE(is_left(place()) && is_top(place()));
  EXPECT_EQ(place().hidden, 0);
}

TEST_F(LegendPlacing, IsAnotherCornerWherePointsAreInTheFirst) {
  load({1, 2, 9}, {9, 9.5, 1}, false);
  EXPECT_TRUE(!is_left(place()) && is_top(place()));
  load({1, 9, 9}, {9, 9, 1}, false);
  EXPECT_TRUE(is_left(place()) && !is_top(place()));
}

TEST_F(LegendPlacing, LinesCountToo) {
  load({0, 10}, {10, 10}, false);
  EXPECT_TRUE(is_left(place()) && is_top(place()));
  load({0, 10}, {9, 9});
  EXPECT_FALSE(is_top(place()));
}

TEST_F(LegendPlacing, SaysHowMuchItHides) {
  std::vector<Double> x;
  std::vector<Double> y;
  for (int i = 0; i <= 100; ++i) {
    for (int k = 0; k <= 100; ++k) {
      x.push_back(i / 10.0);
      y.push_back(k / 10.0);
    }
  }
  load(x, y, false);
  const PlotRect& plot = host.layout().plot;
  const Double share = 2000.0 * 1000 / (Double(plot.PlotWidth) * plot.PlotHeight);
  EXPECT_NEAR(place().hidden, share, share / 2);
}

TEST_F(LegendPlacing, MissingValuesAndPointsOutsideDoNotCount) {
  load({1, 1, 5}, {NAN, 11, 5}, false);
  EXPECT_TRUE(is_left(place()) && is_top(place()));
}

TEST_F(LegendPlacing, HasNoPlaceWhereItIsLargerThanThePlot) {
  load({1, 2}, {1, 2});
  host.layout().picLegend.height = 9000;
  EXPECT_EQ(find_legend_place(host.document(), host.layout()), std::nullopt);
}

}  // namespace
}  // namespace kurv
