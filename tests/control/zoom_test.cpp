#include <gmock/gmock.h>

#include <limits>

#include "control/curve_edits.h"
#include "control/mouse.h"
#include "control/undo.h"
#include "control/zoom.h"
#include "model/tick_labels.h"
#include "render/number_format.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using testing::ElementsAre;

// A plot of 10400 x 8000 twips with limits that follow the data: 0 to 10, and 0 to 200.
class Zoom : public testing::Test {
 protected:
  void SetUp() override {
    control.scatter_graph2("Title", test::columns({{0, 4, 10}, {0, 120, 200}, {5, 0, 900}}),
                           test::names({"x", "a", "b"}), 3, 2, test::flags({true, false}), 0, {},
                           true, false);
    control.set_undo_enabled(true);
    host.surface.clear_log();
    host.container.pointers.clear();
  }

  std::vector<Double> limits() const {
    return {control.xmin(), control.xmax(), control.ymin(), control.ymax()};
  }
  // The point at these parts of the plot's width and height, from the bottom left.
  SurfacePoint point(Double x, Double y) {
    const PlotRect& plot = state.layout.plot;
    return {Single(plot.PlotLeft + x * plot.PlotWidth),
            Single(plot.PlotTop + (1 - y) * plot.PlotHeight)};
  }
  bool labels_differ(const String& format, Double min, Double max) {
    String last;
    for (int i = 0; i <= control.NumTicks(); ++i) {
      const String label = format_number(tick_value(min, max, control.NumTicks(), i), format);
      if (i > 0 && label == last) return false;
      last = label;
    }
    return true;
  }

  test::TestHost host;
  Control& control = host.control;
  ControlState& state = control.state();
};

TEST_F(Zoom, KeepsThePointAndTurnsAutoscaleOff) {
  ASSERT_THAT(limits(), ElementsAre(0, 10, 0, 200));
  EXPECT_FALSE(is_zoomed(state));
  zoom_at(state, point(0.5, 0.5), {0.8, 0.5});
  EXPECT_THAT(limits(), ElementsAre(1, 9, 50, 150));
  EXPECT_FALSE(control.Autoscale());
  EXPECT_TRUE(is_zoomed(state));
  EXPECT_THAT(host.surface.log(), testing::HasSubstr("cls"));
}

TEST_F(Zoom, BesideAnAxisThatAxisAlone) {
  zoom_at(state, point(0.5, -0.02), {0.8, 0.8});
  EXPECT_THAT(limits(), ElementsAre(1, 9, 0, 200));
  zoom_at(state, point(-0.02, 0.5), {0.8, 0.5});
  EXPECT_THAT(limits(), ElementsAre(1, 9, 50, 150));
}

TEST_F(Zoom, OutsideThePlotThePointIsOnItsEdge) {
  zoom_at(state, point(1.5, 1.1), {0.5, 0.5});
  EXPECT_THAT(limits(), ElementsAre(5, 10, 100, 200));
}

TEST_F(Zoom, APanMovesWhatIsUnderThePointer) {
  const PlotRect& plot = state.layout.plot;
  pan_from(state, view_limits(state),
           {Single(plot.PlotWidth * 0.1), Single(plot.PlotHeight * 0.5)});
  EXPECT_THAT(limits(), ElementsAre(-1, 9, 100, 300));
}

TEST_F(Zoom, ARectangleBecomesThePlot) {
  zoom_to(state, point(0.75, 0.2), point(0.25, 0.6));
  EXPECT_THAT(limits(), ElementsAre(2.5, 7.5, 40, 120));
  // Outside the plot it is cut off; without an area in it, it does nothing.
  zoom_to(state, point(-3, -3), point(0.5, 0.5));
  EXPECT_THAT(limits(), ElementsAre(2.5, 5, 40, 80));
  for (const auto& [corner, opposite] :
       {std::pair{point(0.5, 0.5), point(0.5, 0.9)},
        {point(1.2, 0), point(1.4, 1)},
        {point(std::numeric_limits<Double>::quiet_NaN(), 0), point(0.5, 0.5)}}) {
    zoom_to(state, corner, opposite);
    EXPECT_THAT(limits(), ElementsAre(2.5, 5, 40, 80));
  }
}

TEST_F(Zoom, ReversedAxesStayReversed) {
  control.set_xmin(10);
  control.set_xmax(0);
  zoom_to(state, point(0.2, 0), point(0.6, 1));
  EXPECT_THAT(limits(), ElementsAre(8, 4, 0, 200));
}

TEST_F(Zoom, ShowAllReturnsToBeforeTheFirstZoom) {
  const String format = control.AxisLabelFormatX();
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  zoom_to(state, point(0.2, 0.2), point(0.3, 0.3));
  show_all(state);
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 200));
  EXPECT_TRUE(control.Autoscale());
  EXPECT_FALSE(is_zoomed(state));
  EXPECT_EQ(control.AxisLabelFormatX(), format);
  EXPECT_EQ(control.undo_text(), "Show All");
  EXPECT_TRUE(control.undo());
  EXPECT_TRUE(is_zoomed(state));
  EXPECT_FALSE(control.Autoscale());
}

TEST_F(Zoom, ShowAllReturnsToLimitsThatWereSet) {
  control.set_ymax(1000);
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  show_all(state);
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 1000));
  control.set_Autoscale(false);
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  show_all(state);
  EXPECT_FALSE(control.Autoscale());
}

TEST_F(Zoom, ShowAllShowsWhatHasComeMeanwhile) {
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  control.append_points(test::columns({{20}, {500}, {1}}));
  EXPECT_EQ(control.xmax(), 7.5);
  set_curve_visible(state, 2, true);
  EXPECT_EQ(control.ymax(), 150);
  show_all(state);
  EXPECT_THAT(limits(), ElementsAre(0, 20, 0, 900));
}

TEST_F(Zoom, ShowAllWithoutAZoomDoesNothing) {
  host.surface.clear_log();
  show_all(state);
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_EQ(control.undo_text(), std::nullopt);
}

TEST_F(Zoom, AutoscaleThatIsTurnedOnEndsIt) {
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  control.set_Autoscale(true);
  control.update_limits();
  EXPECT_FALSE(is_zoomed(state));
  control.set_ymax(800);
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  show_all(state);
  EXPECT_EQ(control.ymax(), 800);
}

TEST_F(Zoom, OtherDataEndIt) {
  const String format = control.AxisLabelFormatX();
  for (int i = 0; i < 30; ++i) zoom_at(state, point(0.31, 0.5), {0.5, 0.5});
  EXPECT_NE(control.AxisLabelFormatX(), format);
  host.load({1, 2}, {3, 4});
  EXPECT_FALSE(is_zoomed(state));
  EXPECT_TRUE(control.Autoscale());
  EXPECT_EQ(control.AxisLabelFormatX(), format);
  EXPECT_EQ(control.xmax(), 2);
}

TEST_F(Zoom, AGestureIsOneStep) {
  for (int i = 0; i < 7; ++i) zoom_at(state, point(0.5, 0.5), {0.8, 0.8});
  EXPECT_EQ(control.undo_text(), "Zoom");
  state.history.end_merging();
  zoom_at(state, point(0.5, 0.5), {0.8, 0.8});
  EXPECT_EQ(state.history.steps().size(), 2U);
  const ViewLimits start = view_limits(state);
  for (int i = 1; i < 5; ++i) pan_from(state, start, {Single(100 * i), 0});
  EXPECT_EQ(control.undo_text(), "Pan");
  EXPECT_EQ(state.history.steps().size(), 3U);
  while (control.undo()) {
  }
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 200));
  EXPECT_TRUE(control.Autoscale());
  EXPECT_FALSE(is_zoomed(state));
}

TEST_F(Zoom, WhatChangesNothingIsNotDrawn) {
  host.surface.clear_log();
  zoom_at(state, point(0.5, 0.5), {1, 1});
  pan_from(state, view_limits(state), {0, 0});
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_TRUE(control.Autoscale());
}

TEST_F(Zoom, NothingHappensWithoutAGraph) {
  host.document().GraphValid = false;
  EXPECT_FALSE(can_zoom(state));
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  zoom_to(state, point(0.2, 0.2), point(0.3, 0.3));
  pan_from(state, view_limits(state), {100, 100});
  EXPECT_THAT(limits(), ElementsAre(0, 10, 0, 200));
  host.document().GraphValid = true;
  state.layout.plot.PlotWidth = 0;
  EXPECT_FALSE(can_zoom(state));
}

TEST_F(Zoom, LabelsTellTicksApartAtEveryDepth) {
  for (const bool round : {false, true}) {
    control.set_round_limits(round);
    control.update_limits();
    const String x_format = control.AxisLabelFormatX();
    const String y_format = control.AxisLabelFormatY();
    for (int i = 0; i < 150; ++i) {
      zoom_at(state, point(0.37, 0.61), {0.8, 0.8});
      ASSERT_TRUE(labels_differ(control.AxisLabelFormatX(), control.xmin(), control.xmax())) << i;
      ASSERT_TRUE(labels_differ(control.AxisLabelFormatY(), control.ymin(), control.ymax())) << i;
    }
    show_all(state);
    EXPECT_EQ(control.AxisLabelFormatX(), x_format);
    EXPECT_EQ(control.AxisLabelFormatY(), y_format);
    for (int i = 0; i < 60; ++i) zoom_at(state, point(0.37, 0.61), {1.25, 1.25});
    EXPECT_LE(format_number(control.xmax(), control.AxisLabelFormatX()).size(), 12U);
    show_all(state);
    EXPECT_EQ(control.AxisLabelFormatX(), x_format);
  }
}

TEST_F(Zoom, AFormatThatIsSetMeanwhileStays) {
  for (int i = 0; i < 30; ++i) zoom_at(state, point(0.31, 0.5), {0.8, 0.8});
  control.set_AxisLabelFormatX("0.0000000");
  zoom_at(state, point(0.31, 0.5), {0.8, 0.8});
  EXPECT_EQ(control.AxisLabelFormatX(), "0.0000000");
  show_all(state);
  EXPECT_EQ(control.AxisLabelFormatX(), "0.0000000");
}

TEST_F(Zoom, WithRoundLimitsARectangleHasRoundTicks) {
  control.set_round_limits(true);
  control.update_limits();
  control.set_NumTicks(10);
  zoom_to(state, point(0.213, 0.317), point(0.631, 0.702));
  const Double distance = (control.xmax() - control.xmin()) / 10;
  EXPECT_THAT(limits(), ElementsAre(2, 7, 60, 160));
  EXPECT_EQ(distance, 0.5);
  EXPECT_EQ(control.NumTicks(), 10);
  EXPECT_EQ(control.AxisLabelFormatX(), "0.0");
}

TEST_F(Zoom, ZoomingOutEndsAtAMillionTimesTheLimitsOfBefore) {
  for (int i = 0; i < 300; ++i) zoom_at(state, point(0.5, 0.5), {2, 2});
  EXPECT_NEAR(control.xmax() - control.xmin(), 1e7, 1e5);
  for (int i = 0; i < 300; ++i) zoom_at(state, point(0.3, 0.3), {0.5, 0.5});
  EXPECT_LT(control.xmin(), control.xmax());
  EXPECT_LT(control.ymin(), control.ymax());
}

TEST_F(Zoom, AnUndoAfterPointsHaveComeFollowsTheData) {
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  control.append_points(test::columns({{20}, {500}, {1}}));
  EXPECT_TRUE(control.undo());
  EXPECT_EQ(control.xmax(), 20);
  EXPECT_TRUE(control.Autoscale());
}

TEST_F(Zoom, UndoRestoresWhichFormatsWereChosen) {
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  control.append_points(test::columns({{20}, {5e6}, {1}}));
  const String format = control.AxisLabelFormatY();
  show_all(state);
  ASSERT_EQ(control.AxisLabelFormatY(), "0.00E+0");
  control.undo();
  ASSERT_EQ(control.AxisLabelFormatY(), format);
  control.set_Autoscale(true);
  control.append_points(test::columns({{21}, {6e6}, {1}}));
  EXPECT_EQ(control.AxisLabelFormatY(), "0.00E+0");
}

TEST_F(Zoom, AFormatThatIsSetToTheFittedOneStays) {
  for (int i = 0; i < 30; ++i) zoom_at(state, point(0.31, 0.5), {0.8, 0.8});
  const String x_format = control.AxisLabelFormatX();
  const String y_format = control.AxisLabelFormatY();
  control.set_AxisLabelFormatX(x_format);
  control.set_AxisLabelFormatY(y_format);
  show_all(state);
  EXPECT_EQ(control.AxisLabelFormatX(), x_format);
  EXPECT_EQ(control.AxisLabelFormatY(), y_format);
}

TEST_F(Zoom, StaysWhereDataCannotBeCopied) {
  zoom_at(state, point(0.5, 0.5), {0.5, 0.5});
  const auto zoomed = limits();
  EXPECT_THROW(control.scatter_graph2("Title", test::columns({{1}, {2}}), test::names({"x", "a"}),
                                      2, 1, test::flags({true}), 0, {}),
               Fault);
  EXPECT_TRUE(is_zoomed(state));
  EXPECT_THROW(control.scatter_graph(test::columns({{1}}), test::points({1}), 2, 1,
                                     Variant("Title"), "x", test::names({"y"}), 0, {}),
               Fault);
  EXPECT_TRUE(is_zoomed(state));
  EXPECT_FALSE(control.Autoscale());
  EXPECT_EQ(limits(), zoomed);
}

}  // namespace
}  // namespace kurv
