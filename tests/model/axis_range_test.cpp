#include "model/axis_range.h"

#include "control/axis_limits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

TEST(AxisRange, EqualYLimitsMoveApartByOneEach) {
  TestHost host;
  host.load({1, 2, 3}, {5, 5, 5});
  EXPECT_EQ(host.control.ymin(), 4);
  EXPECT_EQ(host.control.ymax(), 6);
}

TEST(AxisRange, XStaysExactAndYIsRoundedByDefault) {
  TestHost host;
  host.load({0.5, 36.5}, {0, 37});
  EXPECT_EQ(host.control.xmin(), 0.5);
  EXPECT_EQ(host.control.xmax(), 36.5);
  EXPECT_EQ(host.control.ymin(), 0);
  EXPECT_EQ(host.control.ymax(), 40);
}

TEST(AxisRange, RoundsXOutwardToMultiplesOfTenPowersOfTen) {
  TestHost host;
  host.load({0, 37}, {0, 1});
  basKurvGraph01::set_XLimitsExact(host.control.state(), false);
  EXPECT_EQ(host.control.xmin(), 0);
  EXPECT_EQ(host.control.xmax(), 40);
}

TEST(AxisRange, RoundsXOutwardAcrossZero) {
  TestHost host;
  host.load({-12.5, 87}, {0, 1});
  basKurvGraph01::set_XLimitsExact(host.control.state(), false);
  EXPECT_EQ(host.control.xmin(), -20);
  EXPECT_EQ(host.control.xmax(), 90);
}

TEST(AxisRange, SmallSpanGivesMultiplesOfATenth) {
  TestHost host;
  host.load({0, 0.37}, {0, 1});
  basKurvGraph01::set_XLimitsExact(host.control.state(), false);
  EXPECT_EQ(host.control.xmin(), 0);
  EXPECT_DOUBLE_EQ(host.control.xmax(), 0.4);
}

TEST(AxisRange, AllCurvesHiddenLeavesAllLimits) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.control.set_xmin(-7);
  host.control.set_ymax(99);
  host.document().y_visible(1) = false;
  basKurvGraph01::compute_axis_range(host.document(), *host.services.numeric);
  EXPECT_EQ(host.control.xmin(), -7);
  EXPECT_EQ(host.control.xmax(), 2);
  EXPECT_EQ(host.control.ymin(), 3);
  EXPECT_EQ(host.control.ymax(), 99);
}

TEST(AxisRange, HiddenCurveDoesNotStretchYButItsXCount) {
  TestHost host;
  host.control.scatter_graph2("T", test::columns({{0, 50}, {1, 2}, {1000, 2000}}),
                              test::names({"x", "a", "b"}), 2, 2, test::flags({true, false}), 0,
                              {});
  EXPECT_EQ(host.control.ymax(), 2);
  EXPECT_EQ(host.control.xmax(), 50);
}

TEST(AxisRange, AnyNonZeroFlagCounts) {
  TestHost host;
  host.control.scatter_graph2("T", test::columns({{0, 50}, {1, 2}}), test::names({"x", "a"}), 2, 1,
                              test::flags({Boolean::from_bits(1)}), 0, {});
  EXPECT_EQ(basKurvGraph01::count_visible_curves(host.document()), 1);
  EXPECT_EQ(host.control.ymax(), 2);
}

TEST(AxisRange, MissingValuesStretchNothing) {
  TestHost host;
  const Double nan = std::numeric_limits<Double>::quiet_NaN();
  host.load({nan, 1, 2, nan}, {1, nan, 3, 1});
  EXPECT_EQ(host.control.xmin(), 1);
  EXPECT_EQ(host.control.xmax(), 2);
  EXPECT_EQ(host.control.ymin(), 1);
  EXPECT_EQ(host.control.ymax(), 3);
}

TEST(AxisRange, SpanOfZeroOnARoundedAxisIsTheNumericHelpersError) {
  TestHost host;
  host.document().XLimitsExact = false;
  EXPECT_THROW(host.load({5, 5}, {1, 2}), Fault);
  EXPECT_EQ(host.control.xmin(), 5) << "what was computed until then stays";
  EXPECT_EQ(host.control.xmax(), 5);
  EXPECT_EQ(host.control.ymin(), 1E+299);
  EXPECT_EQ(host.control.ymax(), -1E+299);
}

TEST(AxisRange, HelperThatFailsToRoundUpLeavesTheLowerLimitRounded) {
  struct NoRoundingUp final : NumericService {
    Double decimal_logarithm(Double) const override { return 0; }
    Double round_down(Double value) const override { return std::floor(value); }
    Double round_up(Double) const override { throw Fault(FaultKind::kOverflow); }
    Double larger_of(Double value, Double) const override { return value; }
  };
  TestHost host;
  host.load({1, 2}, {3, 37});
  EXPECT_THROW(basKurvGraph01::compute_axis_range(host.document(), NoRoundingUp()), Fault);
  EXPECT_EQ(host.control.ymin(), 0);
  EXPECT_EQ(host.control.ymax(), 37);
}

TEST(AxisRange, RestoreBringsDefaultsAndLimitsAndRedraws) {
  TestHost host;
  host.load({0, 10}, {0, 20});
  host.control.set_MarkerSize(100);
  host.control.set_Top_margine(1);
  host.control.set_Left_margine(2);
  host.control.set_Right_margine(3);
  host.control.set_Bottom_margine(4);
  host.control.set_xmin(5);
  host.control.set_Autoscale(false);
  host.document().YLimitsExact = true;
  host.surface.clear_log();
  host.control.Restore_Grf();
  EXPECT_EQ(host.control.MarkerSize(), 40);
  EXPECT_EQ(host.document().MarkerDrawSize, 200.0 / 6);
  EXPECT_EQ(host.control.Top_margine(), 480);
  EXPECT_EQ(host.control.Left_margine(), 800);
  EXPECT_EQ(host.control.Right_margine(), 800);
  EXPECT_EQ(host.control.Bottom_margine(), 520);
  EXPECT_EQ(host.control.xmin(), 0);
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
  EXPECT_FALSE(host.control.Autoscale()) << "the switches stay";
  EXPECT_TRUE(host.document().YLimitsExact);
}

TEST(AxisRange, SettingAnExactFlagRecomputesAndRedraws) {
  TestHost host;
  host.load({0, 10}, {0.5, 3.5});
  EXPECT_EQ(host.control.ymin(), 0);
  host.surface.clear_log();
  basKurvGraph01::set_YLimitsExact(host.control.state(), true);
  EXPECT_EQ(host.control.ymin(), 0.5);
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
}

}  // namespace
}  // namespace kurv
