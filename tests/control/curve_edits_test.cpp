#include "control/curve_edits.h"

#include <unistd.h>

#include <filesystem>

#include "control/graph_file_commands.h"
#include "tests/control/curve_edits_fixture.h"

namespace kurv {
namespace {

using test::CurveEdits;
using test::kNaN;
using test::TestHost;
using testing::ElementsAre;

// -- Another x ------------------------------------------------------------------------------------

TEST_F(CurveEdits, AnotherXTakesThePlaceOfTheOld) {
  load_three();
  choose_x(state(), "b");
  EXPECT_THAT(names(), ElementsAre("b", "a", "x", "flat"));
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(7, 9, 8));
  EXPECT_THAT(values(document().xyArr, 2), ElementsAre(30, 10, 20));
  EXPECT_THAT(values(document().xyArr, 3), ElementsAre(3, 1, 2));
  EXPECT_EQ(document().xyArr, document().xyArrUnsorted);
  EXPECT_THAT(values(document().xyArrSorted, 1), ElementsAre(7, 8, 9));
  EXPECT_THAT(values(document().xyArrSorted, 3), ElementsAre(3, 2, 1));
  EXPECT_EQ(redraws(), 1);
}

TEST_F(CurveEdits, AnotherXIsTakenInTheHostsOrderAlsoWhileSorted) {
  load_three();
  document().SortXY = true;
  host.control.build_the_graph();
  choose_x(state(), "b");
  EXPECT_THAT(values(document().xyArrUnsorted, 1), ElementsAre(7, 9, 8));
  EXPECT_EQ(document().xyArr, document().xyArrSorted);
  choose_x(state(), "x");
  EXPECT_THAT(names(), ElementsAre("x", "a", "b", "flat"));
  EXPECT_THAT(values(document().xyArrUnsorted, 1), ElementsAre(3, 1, 2));
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(1, 2, 3));
}

TEST_F(CurveEdits, AnotherXSurvivesRedrawsAndSorting) {
  load_three();
  choose_x(state(), "a");
  host.control.build_the_graph();
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(30, 10, 20));
  document().SortXY = true;
  host.control.build_the_graph();
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(10, 20, 30));
  EXPECT_THAT(values(document().xyArr, 2), ElementsAre(1, 2, 3));
  document().SortXY = false;
  host.control.build_the_graph();
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(30, 10, 20));
}

TEST_F(CurveEdits, AnotherXSurvivesTheFile) {
  load_three();
  choose_x(state(), "a");
  const auto path = std::filesystem::temp_directory_path() /
                    ("kurv_another_x_" + std::to_string(getpid()) + ".gdf");
  save_graph_file(state(), path.string());
  TestHost other;
  other.control.file_load(path.string());
  std::filesystem::remove(path);
  for (int c = 1; c <= 4; ++c) {
    EXPECT_EQ(other.document().yVarName(c), document().yVarName(c));
  }
  EXPECT_EQ(other.document().xyArrUnsorted, document().xyArrUnsorted);
}

TEST_F(CurveEdits, AnotherXComputesTheLimitsWhateverAutoscaleSays) {
  load_three();
  document().Autoscale = false;
  document().xmin = -77;
  choose_x(state(), "a");
  EXPECT_EQ(document().xmin, 10);
  EXPECT_EQ(document().xmax, 30);
}

TEST_F(CurveEdits, AnotherXLeavesTheFlagsInTheirPlaces) {
  load_three();
  document().y_visible(1) = false;
  choose_x(state(), "b");
  EXPECT_THAT(flags(), ElementsAre(0, -1, -1));
}

TEST_F(CurveEdits, TheSameXChangesNothing) {
  load_three();
  document().xmin = -77;
  choose_x(state(), "x");
  EXPECT_EQ(document().xmin, -77);
  EXPECT_EQ(redraws(), 0);
}

TEST_F(CurveEdits, WhatCannotBeXIsNotTaken) {
  load_three();
  for (const char* name : {"flat", "nowhere", "", "X", " a"}) choose_x(state(), name);
  EXPECT_THAT(names(), ElementsAre("x", "a", "b", "flat"));
  EXPECT_EQ(redraws(), 0);
}

TEST_F(CurveEdits, OfColumnsWithOneNameTheFirstIsTaken) {
  load({{1, 2}, {3, 3}, {5, 6}, {7, 8}}, {"x", "a", "a", "a"});
  choose_x(state(), "a");
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(5, 6)) << "the first that varies";
  EXPECT_THAT(names(), ElementsAre("a", "a", "x", "a"));
  choose_x(state(), "a");
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(5, 6)) << "x itself is the first now";
}

TEST_F(CurveEdits, AnotherXThatIsTheLastOf149Columns) {
  std::vector<std::vector<Double>> data;
  std::vector<String> column_names;
  for (int c = 0; c < 150; ++c) {
    data.push_back({Double(c), Double(c + 1)});
    column_names.push_back("c" + std::to_string(c));
  }
  load(data, column_names);
  EXPECT_EQ(x_choices(document()).size(), 150u);
  choose_x(state(), "c149");
  EXPECT_THAT(values(document().xyArr, 1), ElementsAre(149, 150));
  EXPECT_THAT(values(document().xyArr, 150), ElementsAre(0, 1));
  EXPECT_EQ(document().yVarName(150), "c0");
}

TEST_F(CurveEdits, MissingValuesInAnotherXAreOutsideThePlot) {
  load({{1, 2, 3}, {kNaN, 4, 5}}, {"x", "a"});
  choose_x(state(), "a");
  EXPECT_EQ(document().xmin, 4);
  EXPECT_EQ(document().xmax, 5);
  EXPECT_EQ(redraws(), 1);
}

TEST_F(CurveEdits, LabelFormatsGetAnExponentForFarAndNearLimitsOnly) {
  struct Row {
    Double low, high;
    const char* format;
  };
  // One value as x and the other way round as y, both axes exact.
  for (const Row& row : std::vector<Row>{{0, 0.0009, "0.00E-0"},
                                         {0, 0.009, "0.00E-0"},
                                         {5, 5.01, "0.00E-0"},
                                         {0, 0.011, "kept"},
                                         {0, 10000, "kept"},
                                         {0, 10001, "0.00E-0"},
                                         {-6000, 6000, "0.00E-0"},
                                         {0, 5, "kept"}}) {
    load({{1, 2}, {row.low, row.high}}, {"x", "a"});
    document().YLimitsExact = true;
    document().AxisLabelFormatX = document().AxisLabelFormatY = "kept";
    choose_x(state(), "a");
    EXPECT_EQ(document().AxisLabelFormatX, row.format) << row.high;
    EXPECT_EQ(document().AxisLabelFormatY, "kept") << row.high;
    document().AxisLabelFormatX = "kept";
    choose_x(state(), "x");
    EXPECT_EQ(document().AxisLabelFormatY, row.format) << row.high;
    EXPECT_EQ(document().AxisLabelFormatX, "kept") << row.high;
  }
}

TEST_F(CurveEdits, AnotherXOfAGraphThatIsNotValidIsTakenButNotDrawn) {
  load({{1, 1}, {3, 4}}, {"x", "a"});
  EXPECT_FALSE(document().GraphValid);
  choose_x(state(), "a");
  EXPECT_THAT(names(), ElementsAre("a", "x"));
  EXPECT_EQ(redraws(), 0);
}

// -- Visibility -----------------------------------------------------------------------------------

TEST_F(CurveEdits, HidingACurveComputesTheLimitsOnlyWhileAutoscaleIsOn) {
  load_three();
  EXPECT_EQ(document().ymax, 30);
  set_curve_visible(state(), 1, false);
  EXPECT_THAT(flags(), ElementsAre(0, -1, -1));
  EXPECT_EQ(document().ymax, 9);
  EXPECT_EQ(redraws(), 1);
  document().Autoscale = false;
  set_curve_visible(state(), 1, true);
  EXPECT_EQ(document().ymax, 9);
  EXPECT_EQ(redraws(), 1);
}

TEST_F(CurveEdits, AStateThatTheFlagHasAlreadyCausesNoRedraw) {
  load({{1, 2}, {3, 4}}, {"x", "a"}, {"x"});
  document().y_visible(1) = Boolean::from_bits(2);
  document().y_func(1).visible = Boolean::from_bits(7);
  set_curve_visible(state(), 1, true);
  set_function_visible(state(), 1, true);
  EXPECT_EQ(redraws(), 0);
  EXPECT_EQ(document().y_visible(1).bits(), 2) << "any flag that is not zero is visible, and stays";
  EXPECT_EQ(document().y_func(1).visible.bits(), 7);
}

TEST_F(CurveEdits, HidingAFunctionIsTheSame) {
  load({{1, 2}, {3, 4}}, {"x", "a"}, {"x", "x*x"});
  document().ymax = 99;
  set_function_visible(state(), 2, false);
  EXPECT_FALSE(document().y_func(2).visible);
  EXPECT_EQ(document().ymax, 4) << "the limits follow the data";
  EXPECT_EQ(redraws(), 1);
  document().Autoscale = false;
  document().ymax = 99;
  set_function_visible(state(), 2, true);
  EXPECT_TRUE(document().y_func(2).visible.is_exactly_true());
  EXPECT_EQ(document().ymax, 99);
  EXPECT_EQ(redraws(), 1);
}

TEST_F(CurveEdits, HidingAndShowingAllLeavesFunctionsAndLimits) {
  load({{1, 2}, {3, 4}, {5, 6}}, {"x", "a", ""}, {"x", "x*x"});
  document().y_func(2).visible = false;
  document().y_visible(1) = Boolean::from_bits(2);
  document().ymax = 99;
  set_all_curves_visible(state(), false);
  EXPECT_THAT(flags(), ElementsAre(0, 0));
  EXPECT_EQ(redraws(), 1);
  set_all_curves_visible(state(), true);
  EXPECT_THAT(flags(), ElementsAre(-1, -1));
  EXPECT_EQ(redraws(), 1);
  EXPECT_EQ(document().ymax, 99);
  EXPECT_TRUE(document().y_func(1).visible);
  EXPECT_FALSE(document().y_func(2).visible);
}

TEST_F(CurveEdits, AFlagThatIsNotThereIsASubscriptError) {
  load_three();
  EXPECT_THROW(set_curve_visible(state(), 4, true), Fault);
  EXPECT_THROW(set_function_visible(state(), 31, true), Fault);
}

// -- Names ----------------------------------------------------------------------------------------

TEST_F(CurveEdits, RenamingAsksWithTheNameAndKeepsTheAnswerAsTyped) {
  load_three();
  host.shell.inputs = {"  new & <b>name</b> "};
  rename_curve(state(), 2);
  ASSERT_EQ(host.shell.prompts.size(), 1u);
  EXPECT_EQ(host.shell.prompts[0].text, "Enter new title.");
  EXPECT_EQ(host.shell.prompts[0].title, "KURV Guide");
  EXPECT_EQ(host.shell.prompts[0].default_text, "b");
  EXPECT_THAT(names(), ElementsAre("x", "a", "  new & <b>name</b> ", "flat"));
  EXPECT_EQ(redraws(), 1);
}

TEST_F(CurveEdits, AnAnswerOfBlanksRenamesNothing) {
  load_three();
  for (const char* answer : {"", " ", " \t "}) {
    host.shell.inputs = {answer};
    rename_curve(state(), 2);
  }
  EXPECT_THAT(names(), ElementsAre("x", "a", "b", "flat"));
  EXPECT_EQ(redraws(), 0);
}

TEST_F(CurveEdits, ACurveThatIsGoneWhenThePromptIsAnsweredIsNotRenamed) {
  load_three();
  host.shell.inputs = {"new", "new"};
  host.shell.while_prompting = [this] { load({{1, 2}, {3, 4}}, {"x", "other"}); };
  rename_curve(state(), 1);
  EXPECT_THAT(names(), ElementsAre("x", "other"));
  host.shell.while_prompting = [this] { load({{1, 2}, {3, 4}}, {"x", "another"}); };
  rename_curve(state(), 1);
  EXPECT_THAT(names(), ElementsAre("x", "another"));
  EXPECT_EQ(redraws(), 0) << "since the load";
}

}  // namespace
}  // namespace kurv
