// What happens to the graph when the user works in one field.
#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

QColor colour_of(const QLineEdit* box) {
  return box->palette().color(QPalette::Text);
}

TEST_F(FrmPropert, ShowsFourInRedAndFortyInBlackWhileTicksAreTyped) {
  open(kAxesPage);
  type("txtAxisTicks", "4");
  EXPECT_EQ(colour_of(box("txtAxisTicks")), QColor(255, 0, 0));
  EXPECT_EQ(graph().NumTicks(), 10);
  EXPECT_EQ(client.redraws(), 0);

  QTest::keyClicks(box("txtAxisTicks"), "0");
  EXPECT_EQ(text("txtAxisTicks"), "40");
  EXPECT_EQ(colour_of(box("txtAxisTicks")), QColor(0, 0, 0));
  EXPECT_EQ(graph().NumTicks(), 40);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(FrmPropert, ShowsAMarkerSizeThatIsTooLargeInRedAndKeepsTheOldOne) {
  open(kLinesPage);
  type("txtMarkerSize", "2");
  QTest::keyClicks(box("txtMarkerSize"), "50");
  EXPECT_EQ(text("txtMarkerSize"), "250");
  EXPECT_EQ(colour_of(box("txtMarkerSize")), QColor(255, 0, 0));
  // On the way there it was 25.
  EXPECT_EQ(graph().MarkerSize(), 25);
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, DrawsMarkersOfTheSizeThatIsTyped) {
  open(kLinesPage);
  type("txtMarkerSize", "60");
  EXPECT_EQ(graph().MarkerSize(), 60);
  EXPECT_EQ(client.document().MarkerDrawSize, 50);
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, ReturnInTheMarkerSizeRedraws) {
  open(kLinesPage);
  press("txtMarkerSize", Qt::Key_Return);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(graph().MarkerSize(), 40);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(FrmPropert, CheckedFieldsStayLightOnADarkDesktop) {
  const QPalette before = QApplication::palette();
  QApplication::setPalette(QPalette(QColor(30, 30, 30)));
  open(kAxesPage);
  for (const char* name : {"txtAxisTicks", "txtMarkerSize"}) {
    EXPECT_EQ(box(name)->palette().color(QPalette::Base), QColor(255, 255, 255)) << name;
    EXPECT_EQ(colour_of(box(name)), QColor(0, 0, 0)) << name;
  }
  EXPECT_NE(box("txtXAxis_1")->palette().color(QPalette::Base), QColor(255, 255, 255));
  QApplication::setPalette(before);
}

TEST_F(FrmPropert, StoresAndDrawsTitlesLetterByLetter) {
  open(kTitlesPage);
  type("txtTitle", "CO2");
  EXPECT_EQ(graph().Title(), "CO2");
  EXPECT_EQ(client.redraws(), 3);
  type("txtSubTitle", "ab");
  EXPECT_EQ(graph().SubTitle(), "ab");
  EXPECT_EQ(client.redraws(), 2);
}

TEST_F(FrmPropert, TitlesMayBeAnyText) {
  open(kTitlesPage);
  box("txtTitle")->setText(QStringLiteral("%1 <b>Größe</b> \"…\" & 気温"));
  EXPECT_EQ(graph().Title(), "%1 <b>Größe</b> \"…\" & 気温");
  type("txtTitle", "x");
  press("txtTitle", Qt::Key_Backspace);
  EXPECT_EQ(graph().Title(), "");
}

struct Switch {
  const char* name;
  Integer page;
  Boolean (Control::*get)() const;
};

TEST_F(FrmPropert, SwitchesStoreAndDraw) {
  const Switch switches[] = {{"chkSort", kGeneralPage, &Control::SortXY},
                             {"chkConnected", kGeneralPage, &Control::Connected},
                             {"chkDrawPoints", kLinesPage, &Control::DrawMarkers},
                             {"chkXGrids", kAxesPage, &Control::X_grid},
                             {"chkYGrids", kAxesPage, &Control::Y_grid}};
  for (const Switch& s : switches) {
    open(s.page);
    const bool was_on = check(s.name)->isChecked();
    EXPECT_EQ((graph().*s.get)(), Boolean(was_on)) << s.name;
    for (const bool on : {!was_on, was_on}) {
      press(s.name, Qt::Key_Space);
      EXPECT_EQ((graph().*s.get)(), Boolean(on)) << s.name;
      EXPECT_EQ(client.redraws(), 1) << s.name;
    }
  }
}

TEST_F(FrmPropert, SortingPlotsTheSortedCopy) {
  open(kGeneralPage);
  EXPECT_EQ(client.document().xyArr(1, 2), 3);
  press("chkSort", Qt::Key_Space);
  EXPECT_EQ(client.document().xyArr(1, 2), 2);
}

TEST_F(FrmPropert, GridCaptionsSayWhichLinesOneWillSee) {
  EXPECT_TRUE(check("chkXGrids")->text().contains("Horizontal"));
  EXPECT_TRUE(check("chkYGrids")->text().contains("Vertical"));
}

TEST_F(FrmPropert, TheMarkerSizesLabelFollowsTheMarkers) {
  open(kLinesPage);
  EXPECT_FALSE(find<QLabel>("lblMarkerSize")->isEnabled());
  press("chkDrawPoints", Qt::Key_Space);
  EXPECT_TRUE(find<QLabel>("lblMarkerSize")->isEnabled());
  press("chkDrawPoints", Qt::Key_Space);
  EXPECT_FALSE(find<QLabel>("lblMarkerSize")->isEnabled());

  graph().set_DrawMarkers(true);
  window->refill();
  EXPECT_TRUE(find<QLabel>("lblMarkerSize")->isEnabled());
}

TEST_F(FrmPropert, AWidthIsStoredAsSoonAsItIsChosen) {
  open(kLinesPage);
  press("cmbCurvesWidth", Qt::Key_Down);
  EXPECT_EQ(graph().CurvesWidth(), 2);
  EXPECT_EQ(client.redraws(), 1);
  QTest::keyClicks(list("cmbBorderWidth"), "4");
  EXPECT_EQ(graph().BorderWidth(), 4);
  EXPECT_EQ(client.redraws(), 1);
  EXPECT_EQ(client.shell.beeps, 0);
}

TEST_F(FrmPropert, AWidthThatIsNoneBeeps) {
  open(kLinesPage);
  for (const char* name : {"cmbCurvesWidth", "cmbBorderWidth"}) {
    for (const char* text : {"5", "0", "wide", "NaN"}) {
      client.shell.beeps = 0;
      list(name)->addItem(text);
      list(name)->setCurrentText(text);
      EXPECT_EQ(client.shell.beeps, 1) << text;
    }
  }
  EXPECT_EQ(graph().CurvesWidth(), 1);
  EXPECT_EQ(graph().BorderWidth(), 2);
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmPropert, OffersTheWidthsAndFormatsInTheirOrder) {
  const QStringList widths{"1", "2", "3", "4"};
  const QStringList formats{"0",       "0.0",    "0.00",    "0.000",    "0.0000",
                            "0.00000", "0.0E+0", "0.00E+0", "0.000E+0", "0.0000E+0"};
  const auto items = [&](const char* name) {
    QStringList all;
    for (int i = 0; i < list(name)->count(); ++i) all << list(name)->itemText(i);
    return all;
  };
  EXPECT_EQ(items("cmbCurvesWidth"), widths);
  EXPECT_EQ(items("cmbBorderWidth"), widths);
  EXPECT_EQ(items("cmbXFormat"), formats);
  EXPECT_EQ(items("cmbYFormat"), formats);
}

TEST_F(FrmPropert, AFormatIsStoredAndDrawn) {
  open(kAxesPage);
  graph().set_AxisLabelFormatX("0.00");
  graph().set_AxisLabelFormatY("0.0");
  window->refill();
  press("cmbXFormat", Qt::Key_Down);
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.000");
  EXPECT_EQ(client.redraws(), 1);
  list("cmbYFormat")->setCurrentIndex(9);
  EXPECT_EQ(graph().AxisLabelFormatY(), "0.0000E+0");
  EXPECT_EQ(client.redraws(), 1);
}

}  // namespace

}  // namespace kurv::test
