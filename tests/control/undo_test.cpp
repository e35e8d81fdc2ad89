// What can be undone, and what the graph is like then.
#include <gmock/gmock.h>

#include <limits>
#include <string>

#include "control/axis_limits.h"
#include "control/zoom.h"
#include "tests/control/undo_fixture.h"

namespace kurv {
namespace {

using test::UndoHost;
using testing::ElementsAre;

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

// -- Off ------------------------------------------------------------------------------------------

TEST(Undo, IsOffUntilAHostTurnsItOn) {
  test::TestHost host;
  host.load({1, 2}, {3, 4});
  int calls = 0;
  host.control.add_undo_listener([&calls] { ++calls; });
  host.control.ChartOptions("refresh");
  host.control.drag(Item::kLegend, {0, 0}, {3000, 3000});
  host.surface.clear_log();
  EXPECT_FALSE(host.control.undo_enabled());
  EXPECT_FALSE(host.control.undo());
  EXPECT_FALSE(host.control.redo());
  host.control.ChartOptions("undo");
  EXPECT_EQ(host.control.undo_text(), std::nullopt);
  EXPECT_EQ(host.control.redo_text(), std::nullopt);
  EXPECT_EQ(host.surface.log(), "");
  EXPECT_EQ(calls, 0);
}

TEST(Undo, TurningItOffForgetsTheSteps) {
  UndoHost host;
  host.rename("first");
  host.control.set_undo_enabled(false);
  host.control.set_undo_enabled(true);
  EXPECT_EQ(host.control.undo_text(), std::nullopt);
}

// -- What can be undone ---------------------------------------------------------------------------

struct Gesture {
  const char* name;
  void (*make)(UndoHost& host);
};

template <PromptedSetting setting>
void answer(UndoHost& host, const char* text) {
  host.shell.inputs.emplace_back(text);
  host.control.prompt(setting);
}

template <PromptedSetting setting>
void choose_font(UndoHost& host) {
  host.shell.fonts.emplace_back(Font{"Courier", 14, true, true});
  host.control.prompt(setting);
}

const Gesture kGestures[] = {
    {"Move Legend",
     [](UndoHost& h) {
       h.control.drag(Item::kLegend, {9, 9}, {4000, 3000});
     }},
    {"Move Title",
     [](UndoHost& h) {
       h.control.drag(Item::kTitle, {9, 9}, {4000, 3000});
     }},
    {"Move Subtitle",
     [](UndoHost& h) {
       h.control.drag(Item::kSubTitle, {9, 9}, {4000, 300});
     }},
    {"Zoom",
     [](UndoHost& h) {
       zoom_at(h.state(), {6000, 4000}, {0.5, 0.8});
     }},
    {"Zoom",
     [](UndoHost& h) {
       zoom_to(h.state(), {3000, 2000}, {6000, 4000});
     }},
    {"Pan",
     [](UndoHost& h) {
       pan_from(h.state(), view_limits(h.state()), {300, 500});
     }},
    {"Rename Curve", [](UndoHost& h) { h.rename("other"); }},
    {"Hide Curve", [](UndoHost& h) { set_curve_visible(h.state(), 1, false); }},
    {"Hide Function", [](UndoHost& h) { set_function_visible(h.state(), 1, false); }},
    {"Hide All Curves", [](UndoHost& h) { set_all_curves_visible(h.state(), false); }},
    {"Choose X", [](UndoHost& h) { choose_x(h.state(), "b"); }},
    {"Edit Cells", [](UndoHost& h) { h.edit(2, 2, 400); }},
    {"Edit Cells", [](UndoHost& h) { h.edit(1, 2, 400); }},
    {"Edit Cells", [](UndoHost& h) { h.edit(3, 3, 5); }},
    {"Add Function", [](UndoHost& h) { EXPECT_FALSE(h.control.add_function("x^2")); }},
    {"Edit Function",
     [](UndoHost& h) {
       h.shell.inputs.emplace_back("x^3");
       h.control.edit_function("x*2");
     }},
    {"Add Derived Curve", [](UndoHost& h) { EXPECT_FALSE(h.control.derive("d", "a+c")); }},
    {"Restore Limits and Margins",
     [](UndoHost& h) {
       h.control.set_Left_margine(2000);
       h.control.set_xmin(-4);
       h.control.build_the_graph();
       h.control.clear_undo();
       h.control.Restore_Grf();
     }},
    {"Change X Limits", [](UndoHost& h) { basKurvGraph01::set_XLimitsExact(h.state(), false); }},
    {"Change Y Limits", [](UndoHost& h) { basKurvGraph01::set_YLimitsExact(h.state(), true); }},
    {"Change Marker Size", [](UndoHost& h) { answer<PromptedSetting::kMarkerSize>(h, "70"); }},
    {"Change Left Margin", [](UndoHost& h) { answer<PromptedSetting::kLeftMargin>(h, "2000"); }},
    {"Change Right Margin", [](UndoHost& h) { answer<PromptedSetting::kRightMargin>(h, "2000"); }},
    {"Change Top Margin", [](UndoHost& h) { answer<PromptedSetting::kTopMargin>(h, "2000"); }},
    {"Change Bottom Margin",
     [](UndoHost& h) { answer<PromptedSetting::kBottomMargin>(h, "2000"); }},
    {"Change X Axis Title", [](UndoHost& h) { answer<PromptedSetting::kXAxisTitle>(h, "time"); }},
    {"Change Axis Font", choose_font<PromptedSetting::kAxisFont>},
    {"Change Title Font", choose_font<PromptedSetting::kTitleFont>},
    {"Change Subtitle Font", choose_font<PromptedSetting::kSubtitleFont>},
};

class UndoneGesture : public testing::TestWithParam<bool> {};

TEST_P(UndoneGesture, LeavesTheGraphAsItWas) {
  for (const Gesture& gesture : kGestures) {
    UndoHost host;
    host.control.set_SortXY(GetParam());
    host.control.build_the_graph();
    // The host's part of a gesture is not undone.
    if (gesture.name == std::string("Restore Limits and Margins")) gesture.make(host);
    if (host.control.undo()) host.control.clear_undo();
    const GraphChanges before(host.state());
    const std::string picture = host.next_redraw();
    gesture.make(host);
    const GraphChanges after(host.state());
    const std::string later_picture = host.next_redraw();
    EXPECT_THAT(host.step_names(), ElementsAre(gesture.name));
    EXPECT_FALSE(before.agrees_with(host.state())) << gesture.name;

    host.surface.clear_log();
    EXPECT_TRUE(host.control.undo());
    EXPECT_TRUE(host.drawn() == picture) << gesture.name;
    EXPECT_TRUE(before.agrees_with(host.state())) << gesture.name;
    EXPECT_EQ(host.control.undo_text(), std::nullopt);
    EXPECT_EQ(host.control.redo_text(), gesture.name);

    host.surface.clear_log();
    EXPECT_TRUE(host.control.redo());
    EXPECT_TRUE(host.drawn() == later_picture) << gesture.name;
    EXPECT_TRUE(after.agrees_with(host.state())) << gesture.name;
    EXPECT_EQ(host.control.undo_text(), gesture.name);
    EXPECT_EQ(host.control.redo_text(), std::nullopt);
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, UndoneGesture, testing::Bool());

TEST(Undo, WhatChangesNothingIsNoStep) {
  UndoHost host;
  host.control.drag(Item::kLegend, {0, 0}, {0, 0}, Item::kLegend);
  host.control.build_the_graph();
  host.control.resize();
  host.control.show();
  host.rename("a");
  host.edit(2, 2, 10);
  host.edit(3, 3, kNaN);
  set_curve_visible(host.state(), 1, true);
  host.control.ChartOptions("copy");
  host.control.prompt(PromptedSetting::kTopMargin);
  EXPECT_THAT(host.step_names(), ElementsAre());
}

TEST(Undo, RefreshIsOneStepWhereSomethingHasMoved) {
  UndoHost host;
  host.control.drag(Item::kLegend, {0, 0}, {4000, 3000});
  host.control.drag(Item::kTitle, {0, 0}, {4000, 3000});
  host.control.ChartOptions("refresh");
  host.control.ChartOptions("refresh");
  EXPECT_THAT(host.step_names(), ElementsAre("Move Legend", "Move Title", "Reset Positions"));
  EXPECT_TRUE(host.control.undo());
  EXPECT_EQ(host.layout().picLegend.left, 4000);
  EXPECT_EQ(host.layout().imgTitle.top, 3000);
}

TEST(Undo, TheCommandWordsUndoAndRedo) {
  UndoHost host;
  host.rename("other");
  host.control.ChartOptions("undo");
  EXPECT_EQ(host.document().yVarName(2), "a");
  host.control.ChartOptions("redo");
  EXPECT_EQ(host.document().yVarName(2), "other");
  EXPECT_EQ(host.container.pointers.back(), kDefaultPointer);
}

}  // namespace
}  // namespace kurv
