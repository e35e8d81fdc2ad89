// How the steps of the user are kept.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/control/undo_fixture.h"

namespace kurv {
namespace {

using test::UndoHost;
using testing::ElementsAre;

TEST(Undo, GoesBackAndForthThroughSeveralSteps) {
  UndoHost host;
  host.rename("one");
  host.edit(2, 1, 31);
  host.edit(1, 2, 9);
  host.rename("two");
  EXPECT_THAT(host.step_names(),
              ElementsAre("Rename Curve", "Edit Cells", "Edit Cells", "Rename Curve"));
  while (host.control.undo()) {
  }
  EXPECT_EQ(host.document().yVarName(2), "a");
  EXPECT_EQ(host.document().xyArr(2, 1), 30);
  EXPECT_EQ(host.document().xyArr(1, 2), 1);
  while (host.control.redo()) {
  }
  EXPECT_EQ(host.document().yVarName(2), "two");
  EXPECT_EQ(host.document().xyArr(2, 1), 31);
  EXPECT_EQ(host.document().xyArr(1, 2), 9);
}

TEST(Undo, ANewStepForgetsTheUndoneOnes) {
  UndoHost host;
  host.rename("one");
  host.rename("two");
  host.control.undo();
  host.edit(2, 1, 31);
  EXPECT_THAT(host.step_names(), ElementsAre("Rename Curve", "Edit Cells"));
  EXPECT_FALSE(host.control.redo());
}

TEST(Undo, AHundredStepsAreKept) {
  UndoHost host;
  for (int i = 0; i <= kMaxUndoSteps; ++i) host.rename(std::to_string(i));
  EXPECT_EQ(host.step_names().size(), 100u);
  while (host.control.undo()) {
  }
  EXPECT_EQ(host.document().yVarName(2), "0");
}

TEST(Undo, AStepInsideAnotherIsAPartOfIt) {
  UndoHost host;
  host.control.make_step("Swap Names", [&host] {
    host.rename("b2");
    host.edit(2, 1, 31);
    EXPECT_FALSE(host.control.undo());
  });
  EXPECT_THAT(host.step_names(), ElementsAre("Swap Names"));
  host.control.undo();
  EXPECT_EQ(host.document().yVarName(2), "a");
  EXPECT_EQ(host.document().xyArr(2, 1), 30);
}

TEST(Undo, StepsWithOneKeyAreOneUntilSomethingElseHappens) {
  UndoHost host;
  const auto type = [&host](const String& text) {
    const StepRecorder step(host.state(), {.name = "Change Title", .key = "title"});
    host.control.set_Title(text);
  };
  type("T");
  type("Ti");
  EXPECT_THAT(host.step_names(), ElementsAre("Change Title"));
  host.rename("other");
  type("Tit");
  host.state().history.end_merging();
  type("Titl");
  EXPECT_THAT(host.step_names(),
              ElementsAre("Change Title", "Rename Curve", "Change Title", "Change Title"));
  host.control.undo();
  host.control.undo();
  type("New");
  type("Ne");
  EXPECT_THAT(host.step_names(), ElementsAre("Change Title", "Rename Curve", "Change Title"));
  host.control.undo();
  EXPECT_EQ(host.control.Title(), "Ti");
}

TEST(Undo, TypingThatEndsWhereItBeganIsNoStep) {
  UndoHost host;
  const auto type = [&host](const String& text) {
    const StepRecorder step(host.state(), {.name = "Change Title", .key = "title"});
    host.control.set_Title(text);
  };
  type("First");
  host.state().history.end_merging();
  type("First2");
  type("First");
  EXPECT_THAT(host.step_names(), ElementsAre("Change Title"));
  // The step before was complete, so this is another one.
  type("Second");
  EXPECT_THAT(host.step_names(), ElementsAre("Change Title", "Change Title"));
}

TEST(Undo, WhatTheHostHasSetStays) {
  UndoHost host;
  host.rename("other");
  host.control.set_Title("By the host");
  host.control.set_CurvesWidth(3);
  host.control.build_the_graph();
  host.control.undo();
  EXPECT_EQ(host.document().yVarName(2), "a");
  EXPECT_EQ(host.control.Title(), "By the host");
  host.control.redo();
  EXPECT_EQ(host.document().yVarName(2), "other");
  EXPECT_EQ(host.control.CurvesWidth(), 3);
}

TEST(Undo, AStepThatEndsByAFaultCanBeUndone) {
  UndoHost host;
  host.control.set_NumTicks(0);
  EXPECT_THROW(host.rename("other"), Fault);
  EXPECT_THROW(host.control.undo(), Fault);
  EXPECT_EQ(host.document().yVarName(2), "a");
  host.control.set_NumTicks(5);
  EXPECT_TRUE(host.control.redo());
  EXPECT_EQ(host.document().yVarName(2), "other");
}

TEST(Undo, ADerivedCurveWithoutAColumnCanBeUndone) {
  test::TestHost host;
  List<String> names(1, kMaxCurves);
  for (int k = 1; k <= kMaxCurves; ++k) names(k) = "y" + std::to_string(k);
  host.control.scatter_graph(Matrix<Double>(1, kMaxCurves, 1, 3), test::points({1, 2, 3}), 3,
                             kMaxCurves, String("Full"), "x", names, 0, {});
  host.control.set_undo_enabled(true);
  EXPECT_THROW(static_cast<void>(host.control.derive("more", "x")), Fault);
  EXPECT_TRUE(host.control.undo());
  EXPECT_EQ(host.document().NumY, kMaxCurves);
  EXPECT_EQ(host.document().yVarName.upper(), kMaxCurves + 1);
}

TEST(Undo, ListenersHearOfEachChange) {
  UndoHost host;
  std::vector<std::string> heard;
  host.control.add_undo_listener([&] {
    heard.push_back(host.control.undo_text().value_or("-") + "/" +
                    host.control.redo_text().value_or("-"));
  });
  host.rename("other");
  host.rename("other");
  host.edit(2, 1, 31);
  host.control.undo();
  host.control.redo();
  host.load_three();
  host.load_three();
  host.rename("other");
  host.control.clear_undo();
  EXPECT_THAT(heard, ElementsAre("Rename Curve/-", "Edit Cells/-", "Rename Curve/Edit Cells",
                                 "Edit Cells/-", "-/-", "Rename Curve/-", "-/-"));
}

}  // namespace
}  // namespace kurv
