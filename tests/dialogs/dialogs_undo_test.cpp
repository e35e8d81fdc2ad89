// What the user does in the windows, as steps that can be undone.
#include <gmock/gmock.h>

#include "control/control_state.h"
#include "control/property_pages.h"
#include "dialogs/frm_curves.h"
#include "tests/dialogs/propert_support.h"
#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> steps_of(Control& graph) {
  std::vector<std::string> names;
  for (const Step& step : graph.state().history.steps()) names.push_back(step.name);
  return names;
}

// -- Properties -----------------------------------------------------------------------------------

class PropertiesUndo : public FrmPropert {
 protected:
  PropertiesUndo() { graph().set_undo_enabled(true); }
  std::vector<std::string> steps() { return steps_of(graph()); }
  void undo_in(const char* name) {
    QTest::keyClick(window->findChild<QWidget*>(name), Qt::Key_Z, Qt::ControlModifier);
  }
};

TEST_F(PropertiesUndo, WhatIsTypedIntoAFieldIsOneStep) {
  open(kTitlesPage);
  type("txtTitle", "First");
  type("txtSubTitle", "Second");
  type("txtTitle", "Third");
  EXPECT_THAT(steps(), ElementsAre("Change Title", "Change Subtitle", "Change Title"));
  graph().undo();
  EXPECT_EQ(graph().Title(), "First");
  graph().undo();
  graph().undo();
  EXPECT_EQ(graph().Title(), "Title");
}

TEST_F(PropertiesUndo, LeavingAFieldEndsItsStep) {
  open(kTitlesPage);
  type("txtTitle", "First");
  box("txtSubTitle")->setFocus();
  type("txtTitle", "Second");
  EXPECT_THAT(steps(), ElementsAre("Change Title", "Change Title"));
}

TEST_F(PropertiesUndo, EachBoxIsAStep) {
  open(kGeneralPage);
  for (const char* name : {"chkSort", "chkConnected", "chkAutoScale", "chkXZoom", "chkYZoom",
                           "chkXGrids", "chkYGrids", "chkDrawPoints"}) {
    window->findChild<QCheckBox*>(name)->click();
  }
  for (const char* name : {"cmbXFormat", "cmbYFormat", "cmbCurvesWidth", "cmbBorderWidth"}) {
    window->findChild<QComboBox*>(name)->setCurrentIndex(2);
  }
  EXPECT_THAT(steps(),
              ElementsAre("Change Sorting", "Change Lines", "Change Limits", "Change X Limits",
                          "Change Y Limits", "Change Horizontal Grid", "Change Vertical Grid",
                          "Change Markers", "Change Y Number Format", "Change Curve Width",
                          "Change Border Width"));
}

TEST_F(PropertiesUndo, NumbersAndLimitsAreStepsToo) {
  open(kAxesPage);
  type("txtXAxis_1", "12");
  type("txtAxisTicks", "25");
  type("txtMarkerSize", "60");
  type("txtMarginTop", "600");
  press("txtMarginTop", Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_THAT(steps(), ElementsAre("Change X Limits", "Change Tick Intervals", "Change Marker Size",
                                   "Change Top Margin"));
  while (graph().undo()) {
  }
  EXPECT_EQ(graph().xmax(), 3);
  EXPECT_EQ(graph().NumTicks(), 10);
  EXPECT_EQ(graph().Top_margine(), 480);
}

TEST_F(PropertiesUndo, ItsKeysUndoAndShowTheGraph) {
  open(kGeneralPage);
  auto* const sort = window->findChild<QCheckBox*>("chkSort");
  sort->click();
  undo_in("chkSort");
  EXPECT_FALSE(sort->isChecked());
  EXPECT_FALSE(bool(graph().SortXY()));
  QTest::keyClick(sort, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_TRUE(sort->isChecked());
}

TEST_F(PropertiesUndo, ButtonsThatOnlyRedrawAreNoSteps) {
  open(kGeneralPage);
  window->findChild<QPushButton*>("cmdApply")->click();
  EXPECT_THAT(steps(), ElementsAre());
  window->findChild<QPushButton*>("cmdRestoreXY")->click();
  EXPECT_THAT(steps(), ElementsAre());
}

// -- Keys in the text fields of the properties ----------------------------------------------------

class FieldUndo : public PropertiesUndo {
 protected:
  void redo_in(const char* name) {
    QTest::keyClick(window->findChild<QWidget*>(name), Qt::Key_Z,
                    Qt::ControlModifier | Qt::ShiftModifier);
  }
};

TEST_F(FieldUndo, TakesBackALimitTogetherWithWhatItTurnedOff) {
  open(kAxesPage);
  type("txtXAxis_2", "0.50");
  ASSERT_FALSE(bool(graph().Autoscale()));
  undo_in("txtXAxis_2");
  EXPECT_EQ(graph().xmin(), 1.5);
  EXPECT_TRUE(bool(graph().Autoscale()));
  EXPECT_EQ(text("txtXAxis_2"), "1.5");
  EXPECT_FALSE(graph().undo_text());
  redo_in("txtXAxis_2");
  EXPECT_EQ(graph().xmin(), 0.5);
  EXPECT_FALSE(bool(graph().Autoscale()));
  EXPECT_EQ(text("txtXAxis_2"), "0.5");
}

TEST_F(FieldUndo, TakesBackTheLastStepWhateverFieldHasTheFocus) {
  open(kGeneralPage);
  check("chkSort")->click();
  box("txtMarginTop")->setFocus();
  undo_in("txtMarginTop");
  EXPECT_FALSE(check("chkSort")->isChecked());
  EXPECT_FALSE(bool(graph().SortXY()));
}

TEST_F(FieldUndo, AddsNoStep) {
  open(kTitlesPage);
  type("txtTitle", "Typed");
  box("txtSubTitle")->setFocus();
  box("txtTitle")->setFocus();
  undo_in("txtTitle");
  EXPECT_EQ(graph().Title(), "Title");
  EXPECT_EQ(text("txtTitle"), "Title");
  EXPECT_EQ(graph().redo_text(), "Change Title");
  EXPECT_FALSE(graph().undo_text());
}

TEST_F(FieldUndo, WhatIsTypedAfterItIsAStepOfItsOwn) {
  open(kTitlesPage);
  type("txtTitle", "First");
  box("txtSubTitle")->setFocus();
  type("txtTitle", "Second");
  undo_in("txtTitle");
  type("txtTitle", "Third");
  EXPECT_THAT(steps(), ElementsAre("Change Title", "Change Title"));
}

TEST_F(FieldUndo, TakesBackAFormatThatWasTyped) {
  open(kAxesPage);
  const String before = graph().AxisLabelFormatX();
  auto* const formats = list("cmbXFormat");
  formats->setFocus();
  formats->lineEdit()->selectAll();
  QTest::keyClicks(formats, "0.0000");
  ASSERT_EQ(graph().AxisLabelFormatX(), "0.0000");
  undo_in("cmbXFormat");
  EXPECT_EQ(graph().AxisLabelFormatX(), before);
  EXPECT_EQ(formats->currentText().toStdString(), before);
  EXPECT_FALSE(graph().undo_text());
}

TEST_F(FieldUndo, FirstTakesBackATextThatIsNotStored) {
  open(kGeneralPage);
  check("chkSort")->click();
  type("txtMarginTop", "700");
  undo_in("txtMarginTop");
  EXPECT_EQ(text("txtMarginTop"), "480");
  redo_in("txtMarginTop");
  EXPECT_EQ(text("txtMarginTop"), "700");
  undo_in("txtMarginTop");
  EXPECT_TRUE(bool(graph().SortXY()));
  undo_in("txtMarginTop");
  EXPECT_FALSE(bool(graph().SortXY()));
}

TEST_F(FieldUndo, FirstTakesBackATextThatIsRefused) {
  open(kAxesPage);
  check("chkXGrids")->click();
  type("txtXAxis_2", "9");
  type("txtAxisTicks", "4");
  undo_in("txtAxisTicks");
  EXPECT_EQ(text("txtAxisTicks"), "10");
  EXPECT_EQ(graph().undo_text(), "Change Horizontal Grid");
  undo_in("txtAxisTicks");
  EXPECT_FALSE(graph().undo_text());
}

TEST_F(FieldUndo, IsThatOfTheFieldWhereUndoIsOff) {
  graph().set_undo_enabled(false);
  open(kTitlesPage);
  type("txtTitle", "Typed");
  undo_in("txtTitle");
  EXPECT_EQ(graph().Title(), "Title");
  EXPECT_EQ(text("txtTitle"), "Title");
}

// -- Table ----------------------------------------------------------------------------------------

struct TableUndo : Table {
  TableUndo() {
    client.host.control.set_undo_enabled(true);
    window.refill();
  }
  QAction& entry(const char* name) { return *window.findChild<QAction*>(name); }
  Control& graph() { return client.host.control; }
};

TEST(TableUndo, HasNoEntriesForItWhileItIsOff) {
  Table table;
  EXPECT_FALSE(table.window.findChild<QAction*>("mnuUndo")->isVisible());
  EXPECT_FALSE(table.window.findChild<QAction*>("mnuRedo")->isVisible());
}

TEST(TableUndo, ACellACutAndAPasteAreOneStepEach) {
  TableUndo table;
  table.type(1, 2, "31");
  table.select(1, 2, 3, 2);
  table.cut();
  table.select(1, 3);
  table.paste("7\r\n8");
  table.select(1, 2);
  table.erase();
  EXPECT_THAT(steps_of(table.graph()), ElementsAre("Edit Cell", "Cut", "Paste"));
  EXPECT_EQ(table.entry("mnuUndo").text(), "&Undo Paste");
  EXPECT_FALSE(table.entry("mnuRedo").isEnabled());
  table.entry("mnuUndo").trigger();
  EXPECT_EQ(table.cell(1, 3), "-3");
  table.entry("mnuUndo").trigger();
  EXPECT_EQ(table.cell(1, 2), "31");
  EXPECT_EQ(table.entry("mnuRedo").text(), "&Redo Cut");
  table.entry("mnuUndo").trigger();
  EXPECT_EQ(table.cell(1, 2), "30");
  EXPECT_FALSE(table.entry("mnuUndo").isEnabled());
}

TEST(TableUndo, ATextThatIsNoNumberIsTakenBackFirst) {
  TableUndo table;
  table.type(1, 2, "31");
  table.type(2, 2, "abc");
  ASSERT_TRUE(table.is_marked(2, 2));
  EXPECT_EQ(table.entry("mnuUndo").text(), "&Undo Typing");
  table.entry("mnuUndo").trigger();
  EXPECT_FALSE(table.is_marked(2, 2));
  EXPECT_EQ(table.cell(2, 2), "10");
  EXPECT_EQ(table.cell(1, 2), "31");
  table.entry("mnuUndo").trigger();
  EXPECT_EQ(table.cell(1, 2), "30");
}

TEST(TableUndo, TextsThatAreNoNumbersAreTakenBackOneAfterTheOther) {
  TableUndo table;
  table.type(1, 2, "abc");
  table.type(2, 2, "def");
  table.entry("mnuUndo").trigger();
  EXPECT_TRUE(table.is_marked(1, 2));
  EXPECT_FALSE(table.is_marked(2, 2));
  EXPECT_EQ(table.entry("mnuUndo").text(), "&Undo Typing");
  table.entry("mnuUndo").trigger();
  EXPECT_FALSE(table.is_marked(1, 2));
  EXPECT_FALSE(table.entry("mnuUndo").isEnabled());
}

// -- Curves ---------------------------------------------------------------------------------------

TEST(CurvesUndo, ItsListsShowWhatWasUndone) {
  TableClient client;
  load_columns(client.host, {{3, 1, 2}, {30, 10, 20}, {7, 9, 8}});
  client.host.control.set_undo_enabled(true);
  frmCurves window(nullptr);
  window.set_client(&client);
  window.init(0);
  window.show();
  auto* const list = window.findChild<QListWidget*>("lstScatters");
  list->item(1)->setCheckState(Qt::Unchecked);
  EXPECT_THAT(steps_of(client.host.control), ElementsAre("Hide Curve"));
  QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(list->item(1)->checkState(), Qt::Checked);
  QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(list->item(1)->checkState(), Qt::Unchecked);
}

}  // namespace
}  // namespace kurv::test
