#include "render/curves.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

std::string curves_of(TestHost& host) {
  host.surface.clear_log();
  DrawScatterCurves(host.document(), host.layout(), host.surface);
  return host.surface.log();
}

// One curve over x = 0..10, y = 0..10 on a plot of 10400 x 8000 twips at (800, 480).
TestHost& with_limits(TestHost& host) {
  host.control.set_xmin(0);
  host.control.set_xmax(10);
  host.control.set_ymin(0);
  host.control.set_ymax(10);
  return host;
}

TEST(Curves, LinesOfAllCurvesComeBeforeTheFirstMarker) {
  TestHost host;
  host.control.scatter_graph(test::columns({{1, 2, 3}, {3, 2, 1}}), test::points({0, 1, 2}), 3, 2,
                             String("T"), "x", test::names({"a", "b"}), 0, {}, Boolean(true),
                             Boolean(true));
  test::expect_golden("curves.txt", curves_of(host));
}

// The pen width is set before the points are mapped, and the next ticks have the width that is
// left.
TEST(Curves, PenStaysWhereARangeCannotBeMapped) {
  TestHost host;
  host.load({0, 5}, {5, 5});
  with_limits(host);
  host.document().xmax = host.document().xmin;
  host.document().CurvesWidth = 3;
  host.surface.clear_log();
  EXPECT_THROW(DrawScatterCurves(host.document(), host.layout(), host.surface), Fault);
  EXPECT_EQ(host.surface.log(), "width 3\n");
}

TEST(Curves, SegmentComesInFromOutsideInFullButNoneLeaves) {
  TestHost host;
  host.load({-5, 5, 15, 6}, {5, 5, 5, 5});
  with_limits(host);
  EXPECT_EQ(curves_of(host),
            "width 1\n"
            "segment -4400 4480 6000 4480 1\n"
            "segment 16400 4480 7040 4480 1\n"
            "width 1\n");
}

TEST(Curves, FirstPointOutsideIsReached) {
  TestHost host;
  host.load({1, 5}, {-10, 5});
  with_limits(host);
  EXPECT_EQ(curves_of(host), "width 1\nsegment 1840 16480 6000 4480 1\nwidth 1\n");
}

TEST(Curves, PointOnTheBoundaryIsInside) {
  TestHost host;
  host.load({0, 10}, {0, 10}, true, true);
  with_limits(host);
  const std::string log = curves_of(host);
  EXPECT_NE(log.find("segment 800 8480 11200 480 1\n"), std::string::npos);
  EXPECT_NE(log.find("circle 800 8480 40 1\n"), std::string::npos);
  EXPECT_NE(log.find("circle 11200 480 40 1\n"), std::string::npos)
      << "in full, also where it reaches outside the plot";
}

TEST(Curves, MissingValueLeavesAGap) {
  const Double nan = std::numeric_limits<Double>::quiet_NaN();
  TestHost host;
  host.load({0, 1, 2, 3}, {1, nan, 3, 4}, true, true);
  with_limits(host);
  const std::string log = curves_of(host);
  // The point after the gap is inside, so a segment from the missing one is passed to the surface,
  // which draws nothing of it.
  EXPECT_NE(log.find("segment 1840 NaN 2880 6080 1\n"), std::string::npos);
  EXPECT_NE(log.find("segment 2880 6080 3920 5280 1\n"), std::string::npos);
  EXPECT_EQ(log.find("circle 1840"), std::string::npos);
}

TEST(Curves, OnePointHasAMarkerAndNoLine) {
  TestHost host;
  host.load({5, 6}, {5, 6}, true, true);
  with_limits(host);
  host.document().NumData = 1;
  const std::string log = curves_of(host);
  EXPECT_EQ(log.find("segment"), std::string::npos);
  EXPECT_NE(log.find("circle 6000 4480 40 1\n"), std::string::npos);
}

TEST(Curves, NumbersGiveColourAndKind) {
  EXPECT_EQ(curve_colour(1), 1);
  EXPECT_EQ(curve_colour(13), 13);
  EXPECT_EQ(curve_colour(14), 0);
  EXPECT_EQ(curve_colour(15), 1);
  EXPECT_EQ(curve_colour(41), 13);
  for (int k = 1; k <= 149; ++k) EXPECT_LT(curve_colour(k), 14) << "never yellow or white";
}

TEST(Curves, MarkersNeedExactlyTrueAndLinesAnyFlag) {
  TestHost host;
  host.load({1, 2}, {1, 2}, true, true);
  host.control.set_DrawMarkers(Boolean::from_bits(1));
  host.control.set_Connected(Boolean::from_bits(1));
  const std::string log = curves_of(host);
  EXPECT_EQ(log.find("circle"), std::string::npos);
  EXPECT_NE(log.find("segment"), std::string::npos);
}

TEST(Curves, AnyNonZeroVisibilityFlagDraws) {
  TestHost host;
  host.load({1, 2}, {1, 2});
  host.document().y_visible(1) = Boolean::from_bits(1);
  EXPECT_NE(curves_of(host).find("segment"), std::string::npos);
  host.document().y_visible(1) = false;
  EXPECT_EQ(curves_of(host), "");
}

TEST(Curves, PenIsAsWideAsTheCurvesAndOneAfterwards) {
  TestHost host;
  host.load({1, 2}, {1, 2});
  host.control.set_CurvesWidth(3);
  const std::string log = curves_of(host);
  EXPECT_EQ(log.find("width 3\n"), 0U);
  EXPECT_EQ(log.rfind("width 1\n"), log.size() - 8);
}

TEST(Curves, NothingVisibleNeedsNoRange) {
  TestHost host;
  host.load({1, 2}, {1, 2}, false, false);
  host.control.set_xmax(host.control.xmin());
  EXPECT_THROW(curves_of(host), Fault) << "the test for markers maps every point";
  host.document().y_visible(1) = false;
  EXPECT_NO_THROW(curves_of(host));
}

TEST(Curves, FlatRangeIsFoundAlsoWhereEveryXIsOutside) {
  TestHost host;
  host.load({1, 2}, {1, 2}, false, false);
  host.control.set_xmin(10);
  host.control.set_xmax(20);
  host.control.set_ymax(host.control.ymin());
  EXPECT_THROW(curves_of(host), Fault);
}

}  // namespace
}  // namespace kurv
