// What each control of the window does to the graph.
#include "tests/dialogs/frm_curves_fixture.h"

namespace kurv {
namespace {

using test::FrmCurvesTest;
using testing::ElementsAre;

// -- Filling --------------------------------------------------------------------------------------

TEST_F(FrmCurvesTest, ShowsTheColumnsTheCurvesAndTheFunctions) {
  load_three();
  document().y_visible(2) = Boolean::from_bits(2);
  document().y_visible(3) = false;
  document().y_func(1).visible = false;
  open();
  EXPECT_THAT(x_names(), ElementsAre("x", "a", "b")) << "a constant column cannot be x";
  EXPECT_EQ(cmbX().currentIndex(), 0);
  EXPECT_THAT(texts(lstScatters()), ElementsAre("a", "b", "flat"));
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(true, true, false));
  EXPECT_EQ(lstScatters().currentRow(), 0);
  EXPECT_THAT(texts(lstFuncs()), ElementsAre("x", "x*x"));
  EXPECT_THAT(ticks(lstFuncs()), ElementsAre(false, true));
  EXPECT_EQ(lstFuncs().currentRow(), 0);
}

TEST_F(FrmCurvesTest, FillingFiresNoHandler) {
  open_three();
  window->init(0);
  document().y_visible(1) = false;
  document().yVarName(3) = "other";
  window->refill();
  EXPECT_THAT(texts(lstScatters()), ElementsAre("a", "other", "flat"));
  EXPECT_EQ(client.handled, 0);
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, ChangesFromOutsideKeepTheUsersPlace) {
  open_three();
  click_name(lstScatters(), 2);
  document().yVarName(2) = "renamed";
  window->refill();
  EXPECT_THAT(texts(lstScatters()), ElementsAre("renamed", "b", "flat"));
  EXPECT_EQ(lstScatters().currentRow(), 2);
  document().NumY = 1;
  window->refill();
  EXPECT_THAT(texts(lstScatters()), ElementsAre("renamed"));
  EXPECT_EQ(lstScatters().currentRow(), 0);
}

TEST_F(FrmCurvesTest, ListsThatHaveNotChangedAreLeftAlone) {
  open_three();
  const QListWidgetItem* const item = lstScatters().item(1);
  click_box(lstScatters(), 1);
  window->refill();
  EXPECT_EQ(lstScatters().item(1), item);
}

// -- cmbX -----------------------------------------------------------------------------------------

TEST_F(FrmCurvesTest, ChoosingXExchangesTheColumnsInOneRedraw) {
  open_three();
  choose_x(1);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(document().yVarName(1), "a");
  EXPECT_EQ(document().xyArrUnsorted(1, 1), 30);
  EXPECT_THAT(texts(lstScatters()), ElementsAre("x", "b", "flat"));
  EXPECT_EQ(cmbX().currentText(), "a");
}

TEST_F(FrmCurvesTest, TheArrowKeysReachEveryColumn) {
  open_three();
  choose_x(2);
  EXPECT_EQ(client.redraws(), 2);
  EXPECT_EQ(document().yVarName(1), "b");
  EXPECT_THAT(x_names(), ElementsAre("x", "a", "b"));
  choose_x(0);
  EXPECT_EQ(document().yVarName(1), "x");
}

TEST_F(FrmCurvesTest, ChoosingTheSameXCausesNoRedraw) {
  open_three();
  cmbX().showPopup();
  QTest::keyClick(cmbX().view(), Qt::Key_Return);
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, TheTitleOfXIsAskedForAndShown) {
  open_three();
  shell().inputs = {"time"};
  click("cmdXLabel");
  ASSERT_EQ(shell().prompts.size(), 1u);
  EXPECT_EQ(shell().prompts[0].text, "Enter x axis title.");
  EXPECT_EQ(document().yVarName(1), "time");
  EXPECT_THAT(x_names(), ElementsAre("time", "a", "b"));
  EXPECT_EQ(cmbX().currentIndex(), 0);
  EXPECT_EQ(client.redraws(), 1);
}

// -- The boxes ------------------------------------------------------------------------------------

TEST_F(FrmCurvesTest, ABoxHidesAndShowsItsCurve) {
  open_three();
  click_box(lstScatters(), 1);
  EXPECT_FALSE(document().y_visible(2));
  EXPECT_EQ(lstScatters().currentRow(), 1);
  EXPECT_EQ(client.redraws(), 1);
  click_box(lstScatters(), 1);
  EXPECT_TRUE(document().y_visible(2).is_exactly_true());
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(true, true, true));
}

TEST_F(FrmCurvesTest, ANameIsSelectedAndNoMore) {
  open_three();
  click_name(lstScatters(), 2);
  EXPECT_EQ(lstScatters().currentRow(), 2);
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(true, true, true));
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, SpaceTicksTheSelectedCurve) {
  open_three();
  QTest::keyClick(&lstScatters(), Qt::Key_Down);
  QTest::keyClick(&lstScatters(), Qt::Key_Space);
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(true, false, true));
  EXPECT_FALSE(document().y_visible(2));
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, ATickComputesTheLimitsWhileAutoscaleIsOn) {
  open_three();
  click_box(lstScatters(), 0);
  EXPECT_EQ(document().ymax, 9);
  document().Autoscale = false;
  click_box(lstScatters(), 0);
  EXPECT_EQ(document().ymax, 9);
}

TEST_F(FrmCurvesTest, ABoxThatSaysWhatTheFlagSaysCausesNoRedraw) {
  open_three();
  document().y_visible(1) = Boolean::from_bits(0);
  document().y_func(1).visible = false;
  click_box(lstScatters(), 0);
  show_functions();
  click_box(lstFuncs(), 0);
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, ABoxHidesAndShowsItsFunction) {
  open_three();
  show_functions();
  click_box(lstFuncs(), 1);
  EXPECT_FALSE(document().y_func(2).visible);
  EXPECT_TRUE(document().y_func(1).visible);
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, RowsStandForPlacesAlsoWhereANameIsEmpty) {
  load({{1, 2}, {3, 4}, {5, 6}, {7, 8}}, {"x", "a", "", "c"}, {"x", "", "x*x"});
  open();
  EXPECT_THAT(texts(lstScatters()), ElementsAre("a", "c"));
  click_box(lstScatters(), 1);
  EXPECT_FALSE(document().y_visible(2)) << "the row of \"c\" is the second";
  EXPECT_TRUE(document().y_visible(3));
  show_functions();
  click_box(lstFuncs(), 1);
  EXPECT_FALSE(document().y_func(2).visible);
  EXPECT_TRUE(document().y_func(3).visible);
}

// -- The buttons of the curves --------------------------------------------------------------------

TEST_F(FrmCurvesTest, HideAllAndShowAllAreOneRedrawAndLeaveFunctionsAlone) {
  load_three();
  document().y_func(2).visible = false;
  open();
  click_name(lstScatters(), 2);
  click("cmdHideAllCurves");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(false, false, false));
  EXPECT_FALSE(document().y_visible(1) || document().y_visible(2) || document().y_visible(3));
  EXPECT_EQ(lstScatters().currentRow(), 0);
  click_name(lstScatters(), 1);
  click("cmdShowAllCurves");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_THAT(ticks(lstScatters()), ElementsAre(true, true, true));
  EXPECT_TRUE(document().y_visible(1) && document().y_visible(2) && document().y_visible(3));
  EXPECT_EQ(lstScatters().currentRow(), 0);
  EXPECT_THAT(ticks(lstFuncs()), ElementsAre(true, false));
  EXPECT_FALSE(document().y_func(2).visible);
}

TEST_F(FrmCurvesTest, HideAllReachesCurvesWithoutAName) {
  load({{1, 2}, {3, 4}, {5, 6}}, {"x", "", "b"});
  open();
  click("cmdHideAllCurves");
  EXPECT_FALSE(document().y_visible(1) || document().y_visible(2));
}

TEST_F(FrmCurvesTest, RenamingChangesTheNameInBothLists) {
  open_three();
  click_name(lstScatters(), 1);
  shell().inputs = {"better"};
  click("cmdYTitle");
  ASSERT_EQ(shell().prompts.size(), 1u);
  EXPECT_EQ(shell().prompts[0].text, "Enter new title.");
  EXPECT_EQ(shell().prompts[0].title, "KURV Guide");
  EXPECT_EQ(shell().prompts[0].default_text, "b");
  EXPECT_EQ(document().yVarName(3), "better");
  EXPECT_THAT(texts(lstScatters()), ElementsAre("a", "better", "flat"));
  EXPECT_THAT(x_names(), ElementsAre("x", "a", "better"));
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, TheRenamedColumnCanBeChosen) {
  open_three();
  shell().inputs = {"better"};
  click("cmdYTitle");
  choose_x(1);
  EXPECT_EQ(document().yVarName(1), "better");
}

TEST_F(FrmCurvesTest, RenamingReplacesTheFirstChoiceOfThatName) {
  load({{1, 2}, {3, 4}, {5, 6}}, {"same", "other", "same"});
  open();
  click_name(lstScatters(), 1);
  shell().inputs = {"new"};
  click("cmdYTitle");
  EXPECT_THAT(x_names(), ElementsAre("new", "other", "same"));
  EXPECT_EQ(document().yVarName(3), "new");
}

TEST_F(FrmCurvesTest, RenamingToNothingStops) {
  open_three();
  click_name(lstScatters(), 1);
  for (const char* answer : {"", "   "}) {
    shell().inputs = {answer};
    click("cmdYTitle");
  }
  EXPECT_EQ(document().yVarName(3), "b");
  EXPECT_EQ(lstScatters().currentRow(), 1);
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, F2Renames) {
  open_three();
  lstScatters().setFocus();
  shell().inputs = {"better"};
  QTest::keyClick(&lstScatters(), Qt::Key_F2);
  EXPECT_EQ(document().yVarName(2), "better");
}

TEST_F(FrmCurvesTest, ADoubleClickRenames) {
  open_three();
  shell().inputs = {"better"};
  double_click_name(lstScatters(), 1);
  EXPECT_EQ(document().yVarName(3), "better");
  ASSERT_EQ(shell().prompts.size(), 1u);
  EXPECT_EQ(shell().prompts[0].default_text, "b");
}

TEST_F(FrmCurvesTest, ADoubleClickOnABoxOnlyTicks) {
  open_three();
  const QRect row = lstScatters().visualItemRect(lstScatters().item(1));
  double_click_at(lstScatters(), row.topLeft() + QPoint(row.height() / 2, row.height() / 2));
  EXPECT_TRUE(shell().prompts.empty());
}

TEST_F(FrmCurvesTest, ADoubleClickBelowTheRowsDoesNothing) {
  open_three();
  double_click_at(lstScatters(), lstScatters().viewport()->rect().bottomLeft() + QPoint(40, -3));
  EXPECT_TRUE(shell().prompts.empty());
}

TEST_F(FrmCurvesTest, ADoubleClickEditsTheFunction) {
  open_three();
  show_functions();
  shell().inputs = {"2*x"};
  double_click_name(lstFuncs(), 1);
  EXPECT_EQ(document().y_func(2).expression, "2*x");
}

TEST_F(FrmCurvesTest, AGraphThatIsLoadedWhileAPromptIsOpenIsShownAfterIt) {
  open_three();
  shell().while_prompting = [this] {
    load({{1, 2}, {3, 4}}, {"t", "only"});
    window->refill();
    EXPECT_EQ(lstScatters().count(), 3) << "not under the user's hands";
  };
  click("cmdYTitle");
  EXPECT_THAT(texts(lstScatters()), ElementsAre("only"));
  EXPECT_THAT(x_names(), ElementsAre("t", "only"));
}

TEST_F(FrmCurvesTest, ADerivedCurveIsListedAndCanBeX) {
  open_three();
  shell().inputs = {"sum", "a+b"};
  click("cmdAddScatter");
  EXPECT_THAT(texts(lstScatters()), ElementsAre("a", "b", "flat", "sum"));
  EXPECT_THAT(x_names(), ElementsAre("x", "a", "b", "sum"));
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, CurvesAreDerivedBelow149Only) {
  std::vector<std::vector<Double>> data(149, {1, 2});
  std::vector<String> names(149);
  for (std::size_t c = 0; c < names.size(); ++c) names[c] = "c" + std::to_string(c);
  load(data, names);
  open();
  EXPECT_TRUE(button("cmdAddScatter").isEnabled());
  shell().inputs = {"last", "c1"};
  click("cmdAddScatter");
  EXPECT_EQ(lstScatters().count(), 149);
  EXPECT_FALSE(button("cmdAddScatter").isEnabled());
  click("cmdAddScatter");
  EXPECT_EQ(document().NumY, 149);
}

// -- The buttons of the functions -----------------------------------------------------------------

TEST_F(FrmCurvesTest, AFunctionIsAddedAndListed) {
  open_three();
  show_functions();
  shell().inputs = {"sin(x)"};
  click("cmdAddFunc");
  EXPECT_THAT(texts(lstFuncs()), ElementsAre("x", "x*x", "sin(x)"));
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, TheThirtyFirstFunctionIsRefusedByTheCommand) {
  load({{1, 2}, {3, 4}}, {"x", "a"}, std::vector<String>(29, "x"));
  open();
  show_functions();
  shell().inputs = {"x*x"};
  click("cmdAddFunc");
  EXPECT_EQ(lstFuncs().count(), 30);
  click("cmdAddFunc");
  ASSERT_EQ(shell().messages.size(), 1u);
  EXPECT_EQ(shell().messages[0].text,
            "You can not use more than  30 user function curves. Selection aborted.");
  EXPECT_EQ(shell().prompts.size(), 1u);
}

TEST_F(FrmCurvesTest, TheSelectedFunctionIsEdited) {
  open_three();
  show_functions();
  click_name(lstFuncs(), 1);
  shell().inputs = {"2*x"};
  click("cmdEditFunc");
  ASSERT_EQ(shell().prompts.size(), 1u);
  EXPECT_EQ(shell().prompts[0].default_text, "x*x");
  EXPECT_THAT(texts(lstFuncs()), ElementsAre("x", "2*x"));
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmCurvesTest, F2EditsTheFunction) {
  open_three();
  show_functions();
  lstFuncs().setFocus();
  shell().inputs = {"2*x"};
  QTest::keyClick(&lstFuncs(), Qt::Key_F2);
  EXPECT_EQ(document().y_func(1).expression, "2*x");
}

TEST_F(FrmCurvesTest, WithoutAFunctionThereIsNothingToEdit) {
  load({{1, 2}, {3, 4}}, {"x", "a"});
  open();
  show_functions();
  EXPECT_FALSE(button("cmdEditFunc").isEnabled());
  EXPECT_EQ(lstFuncs().currentRow(), -1);
  shell().inputs = {"x"};
  click("cmdAddFunc");
  EXPECT_TRUE(button("cmdEditFunc").isEnabled());
}

TEST_F(FrmCurvesTest, TheButtonsWithoutAnActionAreDisabledAndSayWhy) {
  open_three();
  for (const char* name : {"cmdFuncLabel", "cmdFuncColor"}) {
    EXPECT_FALSE(button(name).isEnabled()) << name;
    EXPECT_FALSE(button(name).toolTip().isEmpty()) << name;
  }
}

}  // namespace
}  // namespace kurv
