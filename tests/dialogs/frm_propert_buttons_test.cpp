#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

TEST_F(FrmPropert, ApplyDrawsAndNothingElse) {
  open(kAxesPage);
  type("txtXAxis_2", "abc");
  type("txtAxisTicks", "4");
  click("cmdApply");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(graph().xmin(), 1.5);
  EXPECT_EQ(text("txtAxisTicks"), "4");
}

TEST_F(FrmPropert, RestoreShowsLimitsMarginsAndMarkerSizeOfANewGraph) {
  open(kAxesPage);
  type("txtXAxis_1", "99");
  type("txtYAxis_2", "-50");
  graph().set_Top_margine(1000);
  graph().set_MarkerSize(100);
  window->refill();
  EXPECT_EQ(text("txtXAxis_1"), "99");
  click("cmdRestoreXY");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(text("txtXAxis_1"), "3");
  EXPECT_EQ(text("txtXAxis_2"), "1.5");
  EXPECT_EQ(text("txtYAxis_1"), "5");
  EXPECT_EQ(text("txtYAxis_2"), "2");
  EXPECT_EQ(text("txtMarginTop"), "480");
  EXPECT_EQ(text("txtMarginBottom"), "520");
  EXPECT_EQ(text("txtMarginLeft"), "800");
  EXPECT_EQ(text("txtMarginRight"), "800");
  EXPECT_EQ(text("txtMarkerSize"), "40");
  EXPECT_EQ(graph().MarkerSize(), 40);
}

TEST_F(FrmPropert, RoundLimitsFitsBothAxesAndTheirTicksOnce) {
  open(kAxesPage);
  type("txtYAxis_1", "99");
  client.surface.clear_log();
  click("cmdRoundLimits");
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(text("txtXAxis_2"), "1.5");
  EXPECT_EQ(text("txtXAxis_1"), "3");
  EXPECT_EQ(text("txtYAxis_2"), "2");
  EXPECT_EQ(text("txtYAxis_1"), "5");
  EXPECT_EQ(text("txtAxisTicks"), "6");
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.00");
  EXPECT_EQ(graph().AxisLabelFormatY(), "0.0");
  EXPECT_FALSE(check("chkXZoom")->isChecked());
  EXPECT_FALSE(graph().round_limits());
}

TEST_F(FrmPropert, RoundLimitsThatFollowTheDataAreFittedToTheTicksThatAreTyped) {
  graph().set_round_limits(true);
  graph().update_limits();
  open(kAxesPage);
  type("txtAxisTicks", "10");
  EXPECT_EQ(graph().NumTicks(), 10);
  EXPECT_EQ(text("txtXAxis_1"), "3.2");
  EXPECT_EQ(text("txtYAxis_1"), "4.5");
  EXPECT_EQ(text("txtAxisTicks"), "10");
}

TEST_F(FrmPropert, RestoreByItsLetterReplacesTheMarginThatIsBeingTyped) {
  open(kGeneralPage);
  type("txtMarginTop", "9");
  QTest::keyClick(window.data(), Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return text("txtMarginTop") == "480"; }));
  EXPECT_EQ(window->focusWidget(), box("txtMarginTop"));
  press("txtMarginTop", Qt::Key_Tab);
  EXPECT_EQ(graph().Top_margine(), 480);
}

TEST_F(FrmPropert, EachFontButtonAsksForItsFontUnderAnHourglass) {
  open(kTitlesPage);
  graph().set_FontName("Axis");
  graph().set_TitleFontName("Main");
  graph().set_SubTitleFontName("Sub");
  const char* const buttons[] = {"cmdFonts_0", "cmdFonts_1", "cmdFonts_2"};
  const char* const presets[] = {"Axis", "Main", "Sub"};
  for (int i = 0; i < 3; ++i) {
    Qt::CursorShape during = Qt::ArrowCursor;
    client.shell.meanwhile = [&] { during = window->cursor().shape(); };
    client.shell.fonts = {Font{"New", 12, true, false}};
    click(buttons[i]);
    ASSERT_EQ(client.shell.font_presets.size(), static_cast<std::size_t>(i) + 1);
    EXPECT_EQ(client.shell.font_presets.back().FontName, presets[i]);
    EXPECT_EQ(during, Qt::WaitCursor);
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(client.redraws(), 1);
  }
  EXPECT_EQ(graph().FontName(), "New");
  EXPECT_EQ(graph().TitleFontName(), "New");
  EXPECT_EQ(graph().SubTitleFontName(), "New");
}

TEST_F(FrmPropert, ACancelledFontChangesNothing) {
  open(kTitlesPage);
  const String before = graph().TitleFontName();
  click("cmdFonts_1");
  EXPECT_EQ(graph().TitleFontName(), before);
  EXPECT_EQ(client.redraws(), 0);
  EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmPropert, TheWindowMayGoWhileAFontIsChosen) {
  open(kTitlesPage);
  client.shell.meanwhile = [&] { delete window.data(); };
  client.shell.fonts = {Font{"New", 12, true, false}};
  press("cmdFonts_1", Qt::Key_Space);
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(graph().TitleFontName(), "New");
}

TEST_F(FrmPropert, TheHourglassGoesWhenTheClientDoes) {
  open(kTitlesPage);
  client.shell.meanwhile = [&] { window->set_client(nullptr); };
  click("cmdFonts_0");
  EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(FrmPropert, CloseAndEscapeClose) {
  open(kGeneralPage);
  click("cmdClose");
  EXPECT_FALSE(window->isVisible());
  open(kTitlesPage);
  press("txtTitle", Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(graph().Title(), "Title");
}

TEST_F(FrmPropert, ReturnInATextBoxPressesNoButton) {
  for (const auto& [page, name] : std::vector<std::pair<Integer, const char*>>{
           {kTitlesPage, "txtTitle"}, {kAxesPage, "txtAxisTicks"}}) {
    open(page);
    box(name)->setFocus();
    press(name, Qt::Key_Return);
    press(name, Qt::Key_Enter);
    EXPECT_TRUE(window->isVisible()) << name;
    EXPECT_EQ(client.redraws(), 0) << name;
  }
}

TEST_F(FrmPropert, ReturnPressesTheButtonThatHasTheFocus) {
  open(kAxesPage);
  find<QPushButton>("cmdApply")->setFocus();
  press("cmdApply", Qt::Key_Return);
  EXPECT_EQ(client.redraws(), 1);
  find<QPushButton>("cmdClose")->setFocus();
  press("cmdClose", Qt::Key_Return);
  EXPECT_FALSE(window->isVisible());
}

}  // namespace

}  // namespace kurv::test
