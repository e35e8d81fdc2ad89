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

TEST_F(FrmPropert, ReturnInALimitApplies) {
  open(kAxesPage);
  for (const char* name : {"txtXAxis_1", "txtXAxis_2", "txtYAxis_1", "txtYAxis_2"}) {
    press(name, Qt::Key_Return);
    EXPECT_EQ(client.redraws(), 1) << name;
    press(name, Qt::Key_Enter);
    EXPECT_EQ(client.redraws(), 1) << name;
  }
  type("txtXAxis_1", "12");
  EXPECT_EQ(client.redraws(), 0);
  press("txtXAxis_1", Qt::Key_Return);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(graph().xmax(), 12);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmPropert, SaysBelowTheLimitsWhyOneIsRefused) {
  open(kAxesPage);
  const auto note = [&](const char* name) { return find<QLabel>(name)->text().toStdString(); };
  type("txtXAxis_2", "9");
  EXPECT_EQ(note("lblXLimits"), "Minimum must be below maximum");
  EXPECT_EQ(box("txtXAxis_2")->accessibleDescription(), "Minimum must be below maximum");
  EXPECT_EQ(note("lblYLimits"), "");
  press("txtXAxis_2", Qt::Key_Return);
  EXPECT_EQ(text("txtXAxis_2"), "9");
  EXPECT_EQ(note("lblXLimits"), "Minimum must be below maximum");
  type("txtXAxis_2", "abc");
  EXPECT_EQ(note("lblXLimits"), "Minimum: not a number");
  box("txtAxisTicks")->setFocus();
  EXPECT_EQ(note("lblXLimits"), "");
  type("txtYAxis_1", "1e999");
  EXPECT_EQ(note("lblYLimits"), "Maximum: too large a number");
}

TEST_F(FrmPropert, ATypedLimitIsKept) {
  graph().set_undo_enabled(true);
  open(kAxesPage);
  ASSERT_TRUE(check("chkAutoScale")->isChecked());
  EXPECT_EQ(find<QLabel>("lblXLimits")->text(), "");
  type("txtXAxis_1", "12");
  EXPECT_FALSE(bool(graph().Autoscale()));
  EXPECT_FALSE(check("chkAutoScale")->isChecked());
  EXPECT_EQ(find<QLabel>("lblXLimits")->text(), "Not the exact range");
  EXPECT_EQ(find<QLabel>("lblYLimits")->text(), "Limits do not follow the data");
  EXPECT_EQ(graph().xmax(), 12);
  EXPECT_EQ(text("txtXAxis_1"), "12");

  graph().undo();
  window->refill();
  EXPECT_EQ(graph().xmax(), 3);
  EXPECT_TRUE(check("chkAutoScale")->isChecked()) << "one step with the limit";
  EXPECT_EQ(find<QLabel>("lblXLimits")->text(), "");
  EXPECT_FALSE(graph().undo_text());
}

TEST_F(FrmPropert, ALimitThatIsTypedAsItIsTurnsNothingOff) {
  open(kAxesPage);
  type("txtYAxis_1", "5");
  EXPECT_TRUE(bool(graph().Autoscale()));
  type("txtYAxis_1", "x");
  EXPECT_TRUE(bool(graph().Autoscale()));
}

TEST_F(FrmPropert, LeavesALimitAloneWhileThePairIsNone) {
  open(kAxesPage);
  for (const char* keys : {"3", "4", "abc", "-", "NaN", "-Inf"}) {
    type("txtXAxis_2", keys);
    EXPECT_EQ(graph().xmin(), 1.5) << keys;
    EXPECT_EQ(text("txtXAxis_2"), keys);
    EXPECT_TRUE(is_red("txtXAxis_2")) << keys;
  }
  EXPECT_FALSE(is_red("txtXAxis_1")) << "its limit is stored";
  EXPECT_EQ(client.redraws(), 0);
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(FrmPropert, StoresTheRefusedLimitWithTheOtherOneThatMakesThemAPair) {
  graph().set_xmin(0);
  graph().set_xmax(10);
  open(kAxesPage);
  type("txtXAxis_2", "20");
  EXPECT_EQ(graph().xmin(), 2) << "on the way there";
  EXPECT_TRUE(is_red("txtXAxis_2"));
  press("txtXAxis_2", Qt::Key_Tab);
  EXPECT_EQ(text("txtXAxis_2"), "20");
  EXPECT_TRUE(is_red("txtXAxis_2"));
  type("txtXAxis_1", "30");
  EXPECT_EQ(graph().xmin(), 20);
  EXPECT_EQ(graph().xmax(), 30);
  EXPECT_FALSE(is_red("txtXAxis_2"));
  EXPECT_FALSE(is_red("txtXAxis_1"));
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmPropert, StoresBothLimitsBelowTheOldOnesToo) {
  open(kAxesPage);
  type("txtYAxis_1", "-5");
  EXPECT_TRUE(is_red("txtYAxis_1"));
  type("txtYAxis_2", "-7");
  EXPECT_EQ(graph().ymin(), -7);
  EXPECT_EQ(graph().ymax(), -5);
  EXPECT_FALSE(is_red("txtYAxis_1"));
}

TEST_F(FrmPropert, StoresNoLimitBesideARefusedOneThatIsInfinite) {
  open(kAxesPage);
  type("txtXAxis_2", "-Inf");
  type("txtXAxis_1", "-5");
  EXPECT_EQ(graph().xmin(), 1.5);
  EXPECT_EQ(graph().xmax(), 3);
  EXPECT_TRUE(is_red("txtXAxis_1"));
  EXPECT_TRUE(is_red("txtXAxis_2"));
}

// The stored limit may have more digits than its field shows.
TEST_F(FrmPropert, DoesNotStoreALimitAgainThatItsBoxShowsAlready) {
  const Double third = 1.0 / 3;
  graph().set_xmin(third);
  open(kAxesPage);
  type("txtXAxis_1", "2");
  EXPECT_EQ(graph().xmin(), third);
  EXPECT_FALSE(is_red("txtXAxis_2"));
}

TEST_F(FrmPropert, KeepsARefusedLimitWhileTheFocusIsInALimitBox) {
  open(kAxesPage);
  type("txtXAxis_2", "20");
  for (const char* next : {"txtXAxis_1", "txtYAxis_1", "txtYAxis_2", "txtXAxis_2"}) {
    box(next)->setFocus();
    window->refill();
    EXPECT_EQ(text("txtXAxis_2"), "20") << next;
    EXPECT_TRUE(is_red("txtXAxis_2")) << next;
  }
}

TEST_F(FrmPropert, ShowsTheStoredLimitsWhenTheFocusLeavesTheLimitBoxes) {
  for (const char* next : {"chkXZoom", "txtAxisTicks", "cmbXFormat", "cmdApply", "cmdClose"}) {
    open(kAxesPage);
    graph().set_xmin(1.5);
    window->refill();
    type("txtXAxis_2", "9");
    type("txtYAxis_1", "abc");
    find<QWidget>(next)->setFocus();
    EXPECT_EQ(text("txtXAxis_2"), "1.5") << next;
    EXPECT_EQ(text("txtYAxis_1"), "5") << next;
    EXPECT_FALSE(is_red("txtXAxis_2")) << next;
    EXPECT_FALSE(is_red("txtYAxis_1")) << next;
  }
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmPropert, ShowsTheStoredLimitsWhenItIsOpenedAgain) {
  open(kAxesPage);
  type("txtXAxis_2", "9");
  window->close();
  open(kAxesPage);
  EXPECT_EQ(text("txtXAxis_2"), "1.5");
  EXPECT_FALSE(is_red("txtXAxis_2"));
}

// Somebody may look a number up in another window.
TEST_F(FrmPropert, KeepsARefusedLimitWhileAnotherWindowIsActive) {
  open(kAxesPage);
  type("txtXAxis_2", "9");
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  window->refill();
  EXPECT_EQ(text("txtXAxis_2"), "9");
  EXPECT_TRUE(is_red("txtXAxis_2"));
}

TEST_F(FrmPropert, RestoreReplacesARefusedLimit) {
  open(kAxesPage);
  type("txtXAxis_2", "9");
  QTest::keyClick(window.data(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return text("txtXAxis_2") == "1.5"; }));
  EXPECT_FALSE(is_red("txtXAxis_2"));
}

TEST_F(FrmPropert, ALimitThatAHostStoresMeanwhileIsNoLongerRed) {
  open(kAxesPage);
  type("txtXAxis_2", "9");
  graph().set_xmax(12);
  graph().set_xmin(9);
  window->refill();
  EXPECT_EQ(text("txtXAxis_2"), "9");
  EXPECT_FALSE(is_red("txtXAxis_2"));
  EXPECT_EQ(text("txtXAxis_1"), "12");
}

TEST_F(FrmPropert, ARedLimitIsReadableOnADarkDesktop) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(30, 30, 30)));
  open(kAxesPage);
  type("txtXAxis_2", "9");
  EXPECT_TRUE(is_red("txtXAxis_2"));
  EXPECT_EQ(box("txtXAxis_2")->palette().color(QPalette::Base), QColor(255, 255, 255));
  box("txtAxisTicks")->setFocus();
  EXPECT_EQ(box("txtXAxis_2")->palette(), box("txtTitle")->palette());
  QApplication::setPalette(before);
}

TEST_F(FrmPropert, TheWindowMayGoWhileALimitIsRefused) {
  open(kAxesPage);
  type("txtXAxis_2", "9");
  delete window.data();
  EXPECT_EQ(graph().xmin(), 1.5);
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

TEST_F(FrmPropert, SaysThatATypedLimitIsNotTheExactRange) {
  open(kAxesPage);
  const QLabel& note = *find<QLabel>("lblXLimits");
  ASSERT_TRUE(check("chkXZoom")->isChecked());
  type("txtXAxis_1", "12");
  EXPECT_EQ(note.text(), "Not the exact range");
  type("txtXAxis_1", "3");
  EXPECT_EQ(note.text(), "Limits do not follow the data") << "which end at 3";
  type("txtXAxis_1", "12");
  click("cmdRestoreXY");
  EXPECT_EQ(note.text(), "Limits do not follow the data");
  EXPECT_EQ(graph().xmin(), 1.5);
  EXPECT_EQ(graph().xmax(), 3);
}

TEST_F(FrmPropert, TheExactRangeOfOneAxisKeepsATypedLimitOfTheOther) {
  open(kAxesPage);
  type("txtXAxis_1", "12");
  press("chkYZoom", Qt::Key_Space);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(text("txtYAxis_1"), "4.5");
  EXPECT_EQ(text("txtXAxis_1"), "12");
  EXPECT_EQ(graph().xmax(), 12);
  type("txtYAxis_1", "9");
  press("chkXZoom", Qt::Key_Space);
  EXPECT_EQ(graph().xmax(), 3);
  EXPECT_EQ(graph().ymax(), 9);
  EXPECT_EQ(find<QLabel>("lblXLimits")->text(), "Limits do not follow the data");
  EXPECT_EQ(find<QLabel>("lblYLimits")->text(), "Not the exact range");
}

TEST_F(FrmPropert, TheExactRangeNeedsNoRangeOfTheOtherAxis) {
  open(kAxesPage);
  for (int i = 1; i <= 3; ++i) client.document().xyArrUnsorted(1, i) = 5;
  graph().build_the_graph();
  client.document().XLimitsExact = false;
  type("txtXAxis_1", "12");
  press("chkYZoom", Qt::Key_Space);
  EXPECT_TRUE(client.faults.empty());
  EXPECT_EQ(text("txtYAxis_1"), "4.5");
  EXPECT_EQ(text("txtXAxis_1"), "12");
  EXPECT_FALSE(client.document().XLimitsExact);
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
