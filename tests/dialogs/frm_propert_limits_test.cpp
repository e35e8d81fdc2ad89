// The limits and what sets them.
#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

TEST_F(FrmPropert, StoresTheLimitThatIsTypedAndDrawsOnlyOnApply) {
  open(kAxesPage);
  EXPECT_EQ(text("txtXAxis_2"), "1.5");
  EXPECT_EQ(text("txtXAxis_1"), "3");
  EXPECT_EQ(text("txtYAxis_2"), "2");
  EXPECT_EQ(text("txtYAxis_1"), "5");
  type("txtXAxis_1", "2.5");
  EXPECT_EQ(graph().xmax(), 2.5);
  type("txtXAxis_2", "-7");
  EXPECT_EQ(graph().xmin(), -7);
  type("txtYAxis_1", "1e3");
  EXPECT_EQ(graph().ymax(), 1000);
  type("txtYAxis_2", "1");
  EXPECT_EQ(graph().ymin(), 1);
  EXPECT_EQ(client.redraws(), 0);
  click("cmdApply");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(graph().xmax(), 2.5);
  EXPECT_EQ(graph().ymax(), 1000);
}

TEST_F(FrmPropert, LeavesALimitAloneWhileThePairIsNone) {
  open(kAxesPage);
  for (const char* keys : {"3", "4", "abc", "-", "NaN", "-Inf"}) {
    type("txtXAxis_2", keys);
    EXPECT_EQ(graph().xmin(), 1.5) << keys;
    EXPECT_EQ(text("txtXAxis_2"), keys);
  }
  EXPECT_EQ(box("txtXAxis_2")->palette(), box("txtTitle")->palette());
  EXPECT_EQ(client.redraws(), 0);
  EXPECT_TRUE(client.shell.messages.empty());
}

// Only the box whose text has changed is stored: the other text was refused when it was typed.
TEST_F(FrmPropert, StoresOnlyTheLimitWhoseBoxHasChanged) {
  open(kAxesPage);
  type("txtXAxis_2", "20");
  EXPECT_EQ(graph().xmin(), 2);  // On the way there.
  type("txtXAxis_1", "30");
  EXPECT_EQ(graph().xmax(), 30);
  EXPECT_EQ(graph().xmin(), 2);
  EXPECT_EQ(text("txtXAxis_2"), "20");
}

TEST_F(FrmPropert, ReadsAndShowsTheGraphsDecimalSeparator) {
  graph().set_decimal_separator(',');
  graph().set_xmax(3.5);
  open(kAxesPage);
  EXPECT_EQ(text("txtXAxis_1"), "3,5");
  type("txtXAxis_1", "4,25");
  EXPECT_EQ(graph().xmax(), 4.25);
}

TEST_F(FrmPropert, ExactLimitsAreComputedDrawnAndShown) {
  open(kAxesPage);
  type("txtXAxis_1", "77");
  press("chkXZoom", Qt::Key_Space);
  EXPECT_FALSE(client.document().XLimitsExact);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(text("txtXAxis_2"), "1");
  EXPECT_EQ(text("txtXAxis_1"), "3");
  press("chkYZoom", Qt::Key_Space);
  EXPECT_TRUE(client.document().YLimitsExact);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(text("txtYAxis_2"), "2");
  EXPECT_EQ(text("txtYAxis_1"), "4.5");
}

TEST_F(FrmPropert, AutomaticLimitsAreComputedOnlyWhenTurnedOn) {
  open(kGeneralPage);
  graph().set_xmax(77);
  press("chkAutoScale", Qt::Key_Space);
  EXPECT_FALSE(graph().Autoscale());
  EXPECT_EQ(graph().xmax(), 77);
  EXPECT_EQ(text("txtXAxis_1"), "77");
  EXPECT_EQ(client.redraws(), 1);
  press("chkAutoScale", Qt::Key_Space);
  EXPECT_TRUE(graph().Autoscale());
  EXPECT_EQ(graph().xmax(), 3);
  EXPECT_EQ(text("txtXAxis_1"), "3");
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, AFaultOnTheWayLeavesAWindowThatWorks) {
  open(kAxesPage);
  for (int i = 1; i <= 3; ++i) client.document().xyArrUnsorted(1, i) = 5;
  graph().build_the_graph();
  press("chkXZoom", Qt::Key_Space);
  EXPECT_EQ(client.faults, std::vector{FaultKind::kInvalidProcedureCall});
  EXPECT_FALSE(check("chkXZoom")->isChecked());
  press("chkXZoom", Qt::Key_Space);
  EXPECT_EQ(text("txtXAxis_1"), "5");
}

}  // namespace

}  // namespace kurv::test
