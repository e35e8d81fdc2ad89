// The graph in a picture of another size.
#include "control/resized_picture.h"

#include <KurvGraph/recording_surface.h>
#include <gtest/gtest.h>

#include <string>

#include "control/control_state.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

std::string from_first_label(const std::string& log) {
  return log.substr(log.find("print"));
}

class ResizedPicture : public testing::Test {
 protected:
  void SetUp() override { host.load({1, 2, 3}, {5, 7, 6}, true, true); }

  std::string drawn(Double width, Double height) {
    RecordingSurface other(width, height);
    draw_resized_on(host.control.state(), other);
    return from_first_label(std::string(other.log()));
  }
  // What a control shows that has this size from the beginning.
  static std::string shown(Double width, Double height, bool is_fitted) {
    test::TestHost other(width, height);
    other.control.set_fitted_items(is_fitted);
    other.load({1, 2, 3}, {5, 7, 6}, true, true);
    other.control.ChartOptions("refresh");
    other.surface.clear_log();
    other.control.build_the_graph();
    return from_first_label(std::string(other.surface.log()));
  }

  test::TestHost host;
};

TEST_F(ResizedPicture, IsThatOfAWindowOfThisSize) {
  host.control.ChartOptions("refresh");
  EXPECT_EQ(drawn(12000, 9000), shown(12000, 9000, false));
}

TEST_F(ResizedPicture, HasItemsWhereTheyFit) {
  host.control.set_fitted_items(true);
  host.control.ChartOptions("refresh");
  EXPECT_EQ(drawn(6000, 5000), shown(6000, 5000, true));
  EXPECT_EQ(drawn(20000, 9000), shown(20000, 9000, true));
}

TEST_F(ResizedPicture, ChangesNothing) {
  host.control.set_fitted_items(true);
  host.control.ChartOptions("refresh");
  const std::string before(host.surface.log());
  const Single left = host.layout().picLegend.left;
  const Integer plot = host.layout().plot.PlotWidth;
  drawn(6000, 5000);
  EXPECT_EQ(host.surface.log(), before);
  EXPECT_EQ(host.layout().picLegend.left, left);
  EXPECT_EQ(host.layout().plot.PlotWidth, plot);
}

// The left edge of the last box, which is that of the legend.
Single legend_left(const std::string& log) {
  return std::stof(log.substr(log.rfind("box ") + 4));
}

TEST_F(ResizedPicture, AMovedLegendKeepsItsPlaceInProportion) {
  const PlotRect plot = host.layout().plot;
  Rect& legend = host.layout().picLegend;
  legend.left = to_single(plot.PlotLeft + (plot.PlotWidth - legend.width) / 2);
  host.control.build_the_graph();
  const std::string log = drawn(20000, 9000);
  const Double free = 20000.0 - plot.PlotLeft - host.control.Right_margine() - legend.width;
  EXPECT_NEAR(legend_left(log), plot.PlotLeft + free / 2, 1) << log;
}

TEST_F(ResizedPicture, AnEmptyGraphIsBlank) {
  test::TestHost empty;
  RecordingSurface other(6000, 5000);
  draw_resized_on(empty.control.state(), other);
  EXPECT_EQ(other.log().find("print"), std::string_view::npos);
}

}  // namespace
}  // namespace kurv
