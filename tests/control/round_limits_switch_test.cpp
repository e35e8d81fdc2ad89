#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <optional>

#include "control/axis_limits.h"
#include "control/control_state.h"
#include "control/curve_edits.h"
#include "tests/control/counting_evaluator.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using testing::ElementsAre;

constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

class RoundLimitsSwitch : public testing::Test {
 protected:
  void load(const std::vector<Double>& x, const std::vector<Double>& y,
            const std::vector<Double>& other) {
    const auto count = static_cast<Integer>(x.size());
    control.scatter_graph2("Title", test::columns({x, y, other}), test::names({"x", "y", "other"}),
                           count, 2, test::flags({true, true}), 0, {}, true, false);
  }
  void load_example() { load({1.3, 6.1, 11.7}, {0, 12.9, 24.8}, {10, 60.3, 139.5}); }

  std::vector<Double> limits() const {
    return {control.xmin(), control.xmax(), control.ymin(), control.ymax()};
  }

  test::TestHost host;
  Control& control = host.control;
  GraphDocument& document = host.document();
};

TEST_F(RoundLimitsSwitch, IsOffByDefault) {
  EXPECT_FALSE(control.round_limits());
  load_example();
  EXPECT_THAT(limits(), ElementsAre(1.3, 11.7, 0, 200));
  EXPECT_EQ(control.NumTicks(), 10);
}

TEST_F(RoundLimitsSwitch, AnIntakeChoosesLimitsTicksAndFormatsTogether) {
  control.set_round_limits(true);
  EXPECT_TRUE(control.round_limits());
  load_example();
  EXPECT_THAT(limits(), ElementsAre(0, 12, 0, 150));
  EXPECT_EQ(control.NumTicks(), 6);
  EXPECT_EQ(control.AxisLabelFormatX(), "0");
  EXPECT_EQ(control.AxisLabelFormatY(), "0");
}

TEST_F(RoundLimitsSwitch, BothIntakesAndOtherDataUseIt) {
  control.set_round_limits(true);
  load_example();
  control.scatter_graph(test::columns({{0, 31000}}), test::points({0, 0.31}), 2, 1,
                        Variant("Title"), "x", test::names({"y"}), 0, {});
  EXPECT_THAT(limits(), ElementsAre(0, 0.35, 0, 35000));
  EXPECT_EQ(control.NumTicks(), 7);
  EXPECT_EQ(control.AxisLabelFormatX(), "0.00");
  EXPECT_EQ(control.AxisLabelFormatY(), "#,##0");
}

TEST_F(RoundLimitsSwitch, HidingACurveUsesItWhereLimitsFollowTheData) {
  control.set_round_limits(true);
  load_example();
  set_curve_visible(control.state(), 2, false);
  EXPECT_THAT(limits(), ElementsAre(0, 12.5, 0, 25));
  EXPECT_EQ(control.NumTicks(), 5);
  control.set_Autoscale(false);
  set_curve_visible(control.state(), 2, true);
  EXPECT_EQ(control.ymax(), 25);
}

TEST_F(RoundLimitsSwitch, PointsThatAreAppendedUseIt) {
  control.set_round_limits(true);
  load_example();
  control.append_points(test::columns({{18}, {1}, {1}}));
  EXPECT_EQ(control.xmax(), 20);
}

TEST_F(RoundLimitsSwitch, LabelFormatsFollowUnlessTheUserHasSetThem) {
  control.set_round_limits(true);
  load_example();
  control.set_AxisLabelFormatX("0.000");
  document.xyArrUnsorted(3, 3) = 13950;
  document.xyArr = document.xyArrUnsorted;
  control.update_limits();
  EXPECT_EQ(control.ymax(), 15000);
  EXPECT_EQ(control.AxisLabelFormatX(), "0.000");
  EXPECT_EQ(control.AxisLabelFormatY(), "#,##0");
  load_example();
  EXPECT_EQ(control.AxisLabelFormatX(), "0");
}

TEST_F(RoundLimitsSwitch, AFormatThatTheUserHasSetStaysAlsoWhereItWasChosen) {
  control.set_round_limits(true);
  load_example();
  control.set_AxisLabelFormatX("0");
  control.set_xmax(15);
  control.build_the_graph();
  EXPECT_EQ(control.AxisLabelFormatX(), "0");
}

TEST_F(RoundLimitsSwitch, ANumberOfTicksThatTheUserHasSetStays) {
  control.set_round_limits(true);
  load_example();
  control.set_NumTicks(10);
  control.update_limits();
  EXPECT_EQ(control.NumTicks(), 10);
  EXPECT_THAT(limits(), ElementsAre(0, 15, 0, 150));
  EXPECT_EQ(control.AxisLabelFormatX(), "0.0");
}

TEST_F(RoundLimitsSwitch, AnAxisThatIsMadeExactStaysExact) {
  control.set_round_limits(true);
  load_example();
  basKurvGraph01::set_XLimitsExact(control.state(), true);
  EXPECT_THAT(limits(), ElementsAre(1.3, 11.7, 0, 140));
  basKurvGraph01::set_YLimitsExact(control.state(), true);
  EXPECT_THAT(limits(), ElementsAre(1.3, 11.7, 0, 139.5));
}

TEST_F(RoundLimitsSwitch, TurningItOffRestoresTheControlsOwnRule) {
  load_example();
  const std::vector<Double> own = limits();
  const String x_format = control.AxisLabelFormatX();
  const String y_format = control.AxisLabelFormatY();
  control.set_NumTicks(13);
  control.set_round_limits(true);
  control.update_limits();
  EXPECT_NE(limits(), own);
  control.set_round_limits(false);
  control.update_limits();
  EXPECT_EQ(limits(), own);
  EXPECT_EQ(control.NumTicks(), 13);
  EXPECT_EQ(control.AxisLabelFormatX(), x_format);
  EXPECT_EQ(control.AxisLabelFormatY(), y_format);
  EXPECT_TRUE(document.XLimitsExact);
  EXPECT_FALSE(document.YLimitsExact);
}

TEST_F(RoundLimitsSwitch, OtherDataAfterItWasTurnedOffGetTheSameAsWithoutIt) {
  test::TestHost other;
  control.set_round_limits(true);
  load({0, 1}, {0, 99999}, {0, 1});
  control.set_round_limits(false);
  for (Control* each : {&control, &other.control}) {
    each->scatter_graph(test::columns({{3, 40}}), test::points({1, 7}), 2, 1, Variant("Title"), "x",
                        test::names({"y"}), 0, {});
  }
  EXPECT_EQ(control.AxisLabelFormatX(), other.control.AxisLabelFormatX());
  EXPECT_EQ(control.AxisLabelFormatY(), other.control.AxisLabelFormatY());
  EXPECT_EQ(control.NumTicks(), other.control.NumTicks());
  EXPECT_EQ(control.xmin(), other.control.xmin());
}

TEST_F(RoundLimitsSwitch, DataThatCannotBePlottedAreRefusedAsEver) {
  control.set_round_limits(true);
  load({3, 3}, {1, 2}, {3, 4});
  ASSERT_EQ(host.shell.messages.size(), 1u);
  EXPECT_EQ(host.shell.messages[0].text, "Graph cannot be plotted when all x values are the same.");
}

TEST_F(RoundLimitsSwitch, MissingAndInfiniteValuesDoNotCount) {
  control.set_round_limits(true);
  load({0, 5, 10, kInfinity}, {kMissing, 1, 10, -kInfinity},
       {kMissing, kMissing, kMissing, kMissing});
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 10));
  load({0, 5, 10}, {kMissing, kMissing, kMissing}, {kMissing, kMissing, kMissing});
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 1));
}

TEST_F(RoundLimitsSwitch, TimeHasWholeUnitsAlsoAfterAnotherXWasChosenAndTakenBack) {
  control.set_round_limits(true);
  control.set_x_unit(AxisUnit::kHours);
  load({0, 30.5, 71}, {0, 3, 6}, {0, 1, 2});
  EXPECT_EQ(control.xmax(), 72);
  choose_x(control.state(), "y");
  EXPECT_EQ(control.xmax(), 8);
  choose_x(control.state(), "x");
  EXPECT_EQ(control.xmax(), 72);
}

class RoundLimitsOfFiles : public RoundLimitsSwitch {
 protected:
  RoundLimitsOfFiles() {
    host.shell.files.push_back({m_path, 1});
    other.control.set_round_limits(true);
  }
  ~RoundLimitsOfFiles() override { std::filesystem::remove(m_path); }
  void save_and_load() {
    control.ChartOptions("saveas");
    other.control.file_load(m_path);
  }

  const std::string& path() const { return m_path; }

  test::TestHost other;

 private:
  const std::string m_path =
      (std::filesystem::temp_directory_path() / "kurv_round_limits.gdf").string();
};

TEST_F(RoundLimitsOfFiles, AnyGraphFileKeepsItsLimitsAndTicks) {
  load_example();
  control.set_NumTicks(17);
  control.set_ymax(180);
  save_and_load();
  EXPECT_FALSE(other.control.round_limits());
  EXPECT_EQ(other.control.NumTicks(), 17);
  EXPECT_EQ(other.control.xmin(), 1.3);
  EXPECT_EQ(other.control.ymax(), 180);
  EXPECT_EQ(other.control.AxisLabelFormatX(), control.AxisLabelFormatX());
  EXPECT_EQ(other.control.AxisLabelFormatY(), control.AxisLabelFormatY());
  EXPECT_TRUE(other.document().XLimitsExact);
}

TEST_F(RoundLimitsOfFiles, AGraphThatWasSavedWithThemKeepsThem) {
  control.set_round_limits(true);
  load({0.1, 0.2, 0.5}, {0, 137500, 3}, {1, 2, 3});
  save_and_load();
  EXPECT_TRUE(other.control.round_limits());
  EXPECT_EQ(other.control.AxisLabelFormatX(), "0.0");
  EXPECT_EQ(other.control.AxisLabelFormatY(), "#,##0");
  EXPECT_EQ(other.control.NumTicks(), control.NumTicks());
  EXPECT_EQ(other.control.ymax(), control.ymax());
  set_curve_visible(other.control.state(), 1, false);
  EXPECT_EQ(other.control.ymax(), 3);
}

// As by a handler that is called while the graph is drawn.
TEST_F(RoundLimitsOfFiles, WhatIsSetWhileAFileIsLoadedStays) {
  control.set_round_limits(true);
  load_example();
  ASSERT_EQ(control.add_function("x"), std::nullopt);
  const test::HostsEvaluator handler([this]() -> std::unique_ptr<Service> {
    other.control.set_round_limits(false);
    return make_evaluator();
  });
  save_and_load();
  EXPECT_FALSE(other.control.round_limits());
}

TEST_F(RoundLimitsOfFiles, AreOnAfterAFileThatFails) {
  std::ofstream(path()) << "no graph";
  EXPECT_THROW(other.control.file_load(path()), Fault);
  EXPECT_TRUE(other.control.round_limits());
}

TEST_F(RoundLimitsSwitch, OnceRoundsBothAxesAndLeavesItOff) {
  load_example();
  basKurvGraph01::round_limits_once(control.state());
  EXPECT_FALSE(control.round_limits());
  EXPECT_THAT(limits(), ElementsAre(0, 12, 0, 150));
  EXPECT_EQ(control.NumTicks(), 6);
  EXPECT_FALSE(document.XLimitsExact);
  EXPECT_FALSE(document.YLimitsExact);
}

TEST_F(RoundLimitsSwitch, OnceWithNoVisibleCurveLeavesTheLimits) {
  load_example();
  set_curve_visible(control.state(), 1, false);
  set_curve_visible(control.state(), 2, false);
  const std::vector<Double> before = limits();
  basKurvGraph01::round_limits_once(control.state());
  EXPECT_EQ(limits(), before);
  EXPECT_EQ(control.NumTicks(), 10);
}

}  // namespace
}  // namespace kurv
