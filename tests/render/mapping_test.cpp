#include "render/mapping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

GraphDocument document_with_limits() {
  GraphDocument document;
  document.xmin = -10;
  document.xmax = 30;
  document.ymin = 2;
  document.ymax = 4;
  return document;
}

constexpr PlotRect kPlot{.PlotTop = 100, .PlotLeft = 200, .PlotWidth = 4000, .PlotHeight = 1000};

TEST(Mapping, EndsOfTheRangesAreTheEdgesOfThePlot) {
  const Mapping mapping(document_with_limits(), kPlot);
  EXPECT_EQ(mapping.SurfX(-10), 200);
  EXPECT_EQ(mapping.SurfX(30), 4200);
  EXPECT_EQ(mapping.SurfY(4), 100) << "the largest y is at the top";
  EXPECT_EQ(mapping.SurfY(2), 1100);
  EXPECT_EQ(mapping.SurfX(0), 1200);
}

TEST(Mapping, BothEndsOfBothRangesAreInside) {
  const Mapping mapping(document_with_limits(), kPlot);
  for (const Double x : {-10.0, 30.0}) {
    for (const Double y : {2.0, 4.0}) EXPECT_TRUE(mapping.InPlot({x, y}));
  }
  EXPECT_FALSE(mapping.InPlot({-10.001, 3}));
  EXPECT_FALSE(mapping.InPlot({30.001, 3}));
  EXPECT_FALSE(mapping.InPlot({0, 1.999}));
  EXPECT_FALSE(mapping.InPlot({0, 4.001}));
}

TEST(Mapping, MissingValuesAreInsideNoPlot) {
  const Double nan = std::numeric_limits<Double>::quiet_NaN();
  const Mapping mapping(document_with_limits(), kPlot);
  EXPECT_FALSE(mapping.InPlot({nan, 3}));
  EXPECT_FALSE(mapping.InPlot({0, nan}));
}

TEST(Mapping, CrossedLimitsMirrorTheAxis) {
  GraphDocument document = document_with_limits();
  std::swap(document.xmin, document.xmax);
  const Mapping mapping(document, kPlot);
  EXPECT_EQ(mapping.SurfX(30), 200);
  EXPECT_TRUE(mapping.InPlot({0, 3}));
}

TEST(Mapping, RangeWithoutWidthIsAnErrorWhenItIsUsed) {
  GraphDocument document = document_with_limits();
  document.xmax = document.xmin;
  const Mapping mapping(document, kPlot);
  try {
    mapping.NormX(3);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kDivisionByZero);
  }
  EXPECT_NO_THROW(mapping.NormY(3));
}

TEST(Mapping, FarAwayPointsBecomeInfinite) {
  const Mapping mapping(document_with_limits(), kPlot);
  const SurfacePoint point = mapping.surface_point({1e300, -1e300});
  EXPECT_EQ(point.x, std::numeric_limits<Single>::infinity());
  EXPECT_EQ(point.y, std::numeric_limits<Single>::infinity()) << "small y lies far below";
}

PlotRect plot_rect(const GraphDocument& document, Double scale_width, Double scale_height) {
  PlotRect plot;
  update_plot_rect(plot, document, scale_width, scale_height);
  return plot;
}

TEST(PlotRectangle, IsWhatTheMarginsLeaveRoundedToEven) {
  GraphDocument document;
  document.Left_margine = 100;
  document.Right_margine = 50;
  document.Top_margine = 10;
  document.Bottom_margine = 20;
  const PlotRect plot = plot_rect(document, 1000.5, 501.5);
  EXPECT_EQ(plot.PlotLeft, 100);
  EXPECT_EQ(plot.PlotTop, 10);
  EXPECT_EQ(plot.PlotWidth, 850) << "850.5 goes to the even neighbour";
  EXPECT_EQ(plot.PlotHeight, 472) << "471.5 goes to the even neighbour";
}

TEST(PlotRectangle, WithoutMarginsIsTheWholeSurface) {
  GraphDocument document;
  document.Left_margine = document.Right_margine = 0;
  document.Top_margine = document.Bottom_margine = 0;
  const PlotRect plot = plot_rect(document, 1000, 500);
  EXPECT_EQ(plot.PlotLeft, 0);
  EXPECT_EQ(plot.PlotTop, 0);
  EXPECT_EQ(plot.PlotWidth, 1000);
  EXPECT_EQ(plot.PlotHeight, 500);
}

TEST(PlotRectangle, MayBeNegativeButNotBeyondSixteenBits) {
  GraphDocument document;
  document.Left_margine = 800;
  EXPECT_EQ(plot_rect(document, 100, 9000).PlotWidth, 100 - 1600);
  document.Left_margine = 32767;
  document.Right_margine = 32767;
  EXPECT_THROW(plot_rect(document, 100, 100), Fault);
  document.Left_margine = document.Right_margine = -30000;
  EXPECT_THROW(plot_rect(document, 100, 100), Fault);
}

TEST(PlotRectangle, KeepsWhatWasWrittenBeforeAnOverflow) {
  test::TestHost host;
  host.load({0, 10}, {0, 20});
  const PlotRect& plot = host.layout().plot;
  const PlotRect before = plot;
  host.control.set_Top_margine(700);
  host.control.set_Left_margine(900);
  host.control.set_Right_margine(-30000);
  EXPECT_THROW(host.control.build_the_graph(), Fault);
  EXPECT_EQ(plot.PlotTop, 700);
  EXPECT_EQ(plot.PlotLeft, 900);
  EXPECT_EQ(plot.PlotWidth, before.PlotWidth) << "the first that overflows";
  EXPECT_EQ(plot.PlotHeight, before.PlotHeight);

  host.control.set_Right_margine(100);
  host.control.set_Bottom_margine(-30000);
  EXPECT_THROW(host.control.build_the_graph(), Fault);
  EXPECT_EQ(plot.PlotWidth, 12000 - 900 - 100);
  EXPECT_EQ(plot.PlotHeight, before.PlotHeight);
}

TEST(PlotFrame, WithoutMarginsTheBorderRunsAlongTheSurfacesEdge) {
  test::TestHost host;
  host.load({0, 10}, {0, 20});
  host.control.set_Left_margine(0);
  host.control.set_Right_margine(0);
  host.control.set_Top_margine(0);
  host.control.set_Bottom_margine(0);
  EXPECT_NE(host.redrawn().find("width 2\nbox 0 0 12000 9000 0\n"), std::string::npos);
}

TEST(PlotFrame, NegativePlotIsDrawnAllTheSame) {
  test::TestHost host;
  host.load({0, 10}, {0, 20});
  host.control.set_Left_margine(12500);
  EXPECT_NE(host.redrawn().find("box 12500 480 11200 8480 0\n"), std::string::npos);
}

}  // namespace
}  // namespace kurv
