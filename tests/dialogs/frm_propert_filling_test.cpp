// Filling shows the graph and never writes to it.
#include <limits>

#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST_F(FrmPropert, ShowsEveryPropertyAndHandlesNothingMeanwhile) {
  GraphDocument& document = client.document();
  document.Title = "One";
  document.SubTitle = "Two";
  document.xmin = -1.5;
  document.xmax = 1e20;
  document.ymin = 0;
  document.ymax = 7;
  document.Top_margine = 1;
  document.Bottom_margine = 2;
  document.Left_margine = 3;
  document.Right_margine = 4;
  document.NumTicks = 12;
  document.MarkerSize = 55;
  document.Autoscale = false;
  document.Connected = Boolean::from_bits(1);
  document.DrawMarkers = true;
  document.SortXY = true;
  document.X_grid = true;
  document.Y_grid = false;
  document.XLimitsExact = false;
  document.YLimitsExact = true;
  document.CurvesWidth = 4;
  document.BorderWidth = 3;
  document.AxisLabelFormatX = "0.00000";
  document.AxisLabelFormatY = "0.000E+0";
  window->init(kGeneralPage);

  const std::pair<const char*, const char*> texts[] = {
      {"txtTitle", "One"},     {"txtSubTitle", "Two"},   {"txtXAxis_1", "1E+20"},
      {"txtXAxis_2", "-1.5"},  {"txtYAxis_1", "7"},      {"txtYAxis_2", "0"},
      {"txtMarginTop", "1"},   {"txtMarginBottom", "2"}, {"txtMarginLeft", "3"},
      {"txtMarginRight", "4"}, {"txtAxisTicks", "12"},   {"txtMarkerSize", "55"}};
  for (const auto& [name, shown] : texts) EXPECT_EQ(text(name), shown) << name;
  const std::pair<const char*, bool> checks[] = {
      {"chkAutoScale", false}, {"chkConnected", true}, {"chkDrawPoints", true}, {"chkSort", true},
      {"chkXGrids", true},     {"chkYGrids", false},   {"chkXZoom", false},     {"chkYZoom", true}};
  for (const auto& [name, on] : checks) EXPECT_EQ(check(name)->isChecked(), on) << name;
  EXPECT_EQ(list("cmbCurvesWidth")->currentText(), "4");
  EXPECT_EQ(list("cmbBorderWidth")->currentText(), "3");
  EXPECT_EQ(list("cmbXFormat")->currentText(), "0.00000");
  EXPECT_EQ(list("cmbYFormat")->currentText(), "0.000E+0");

  EXPECT_EQ(client.handled, 0);
  EXPECT_EQ(client.redraws(), 0);
  // A flag that is not quite True stays what it is.
  EXPECT_EQ(document.Connected.bits(), 1);
}

TEST_F(FrmPropert, ShowsWhatItDoesNotOfferAndLeavesItAlone) {
  GraphDocument& document = client.document();
  document.CurvesWidth = 7;
  document.BorderWidth = -1;
  document.AxisLabelFormatX = "#,##0";
  document.AxisLabelFormatY = "";
  document.NumTicks = 3;
  document.MarkerSize = 300.5;
  document.xmin = kNaN;
  document.xmax = -std::numeric_limits<Double>::infinity();
  document.Top_margine = -20;
  open(kLinesPage);
  EXPECT_EQ(list("cmbCurvesWidth")->currentIndex(), -1);
  EXPECT_EQ(list("cmbCurvesWidth")->placeholderText(), "7");
  EXPECT_EQ(list("cmbXFormat")->currentIndex(), -1);
  EXPECT_EQ(list("cmbXFormat")->placeholderText(), "#,##0");
  EXPECT_EQ(list("cmbYFormat")->currentIndex(), -1);
  EXPECT_EQ(text("txtAxisTicks"), "3");
  EXPECT_EQ(text("txtMarkerSize"), "300");
  EXPECT_EQ(text("txtXAxis_2"), "NaN");
  EXPECT_EQ(text("txtXAxis_1"), "-Inf");

  window->init(kAxesPage);
  window->close();
  EXPECT_EQ(client.handled, 0);
  EXPECT_EQ(client.shell.beeps, 0);
  EXPECT_EQ(document.CurvesWidth, 7);
  EXPECT_EQ(document.BorderWidth, -1);
  EXPECT_EQ(document.AxisLabelFormatX, "#,##0");
  EXPECT_EQ(document.MarkerSize, 300.5);
  EXPECT_EQ(document.Top_margine, -20);
}

TEST_F(FrmPropert, AWidthThatIsNotOfferedGivesWayToOneThatIs) {
  graph().set_CurvesWidth(7);
  open(kLinesPage);
  press("cmbCurvesWidth", Qt::Key_Down);
  EXPECT_EQ(graph().CurvesWidth(), 1);
}

TEST_F(FrmPropert, WorksOnAGraphWithoutData) {
  TestHost empty;
  struct EmptyClient final : Client {
    explicit EmptyClient(TestHost& host) : m_host(host) {}
    Control& control() override { return m_host.control; }
    QWidget* window() const override { return nullptr; }
    void handle(const std::function<void(Control&)>& work) override { work(m_host.control); }
    TestHost& m_host;
  } empty_client(empty);
  window->set_client(&empty_client);
  open(kGeneralPage);
  press("chkAutoScale", Qt::Key_Space);
  press("chkAutoScale", Qt::Key_Space);
  open(kAxesPage);
  click("cmdRestoreXY");
  press("chkXZoom", Qt::Key_Space);
  type("txtXAxis_1", "5");
  click("cmdApply");
  EXPECT_EQ(empty.control.xmax(), 5);
  window->set_client(&client);
}

TEST_F(FrmPropert, ARefillShowsWhatOthersHaveChanged) {
  open(kAxesPage);
  type("txtAxisTicks", "40");
  type("txtXAxis_1", "5");
  graph().set_NumTicks(20);
  graph().set_xmax(8);
  window->refill();
  EXPECT_EQ(text("txtAxisTicks"), "20");
  EXPECT_EQ(text("txtXAxis_1"), "8") << "5 has been stored, so the text counts as finished";
  EXPECT_EQ(find<QTabWidget>("tabCurves")->currentIndex(), 2);
}

TEST_F(FrmPropert, ARefillShowsATitleThatOthersHaveChangedWhileOneIsTyped) {
  open(kTitlesPage);
  type("txtTitle", "mine");
  graph().set_Title("theirs");
  window->refill();
  EXPECT_EQ(text("txtTitle"), "theirs");
}

TEST_F(FrmPropert, ARefillLeavesAMarginThatIsBeingTyped) {
  open(kGeneralPage);
  type("txtMarginTop", "6");
  graph().set_Left_margine(901);
  window->refill();
  QTest::keyClicks(box("txtMarginTop"), "11");
  window->refill();
  EXPECT_EQ(text("txtMarginTop"), "611");
  EXPECT_EQ(text("txtMarginLeft"), "901") << "the others keep up";
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(graph().Top_margine(), 611);
  graph().set_Top_margine(700);
  window->refill();
  EXPECT_EQ(text("txtMarginTop"), "700") << "the typed one has been applied";
}

struct RefusedText {
  Integer page;
  const char* name;
  const char* keys;
  const char* rest;
  const char* shown;
};

TEST_F(FrmPropert, ARefillLeavesARedTextUntilTheFocusLeaves) {
  for (const RefusedText& c : {RefusedText{kAxesPage, "txtAxisTicks", "4", "2", "42"},
                               RefusedText{kLinesPage, "txtMarkerSize", "5", "5", "55"}}) {
    for (const bool finished : {true, false}) {
      open(c.page);
      const std::string before = text(c.name);
      type(c.name, c.keys);
      window->refill();
      EXPECT_EQ(text(c.name), c.keys);
      EXPECT_EQ(box(c.name)->palette().color(QPalette::Text), QColor(255, 0, 0)) << c.name;
      if (finished) QTest::keyClicks(box(c.name), c.rest);
      press(c.name, Qt::Key_Tab);
      window->refill();
      EXPECT_EQ(text(c.name), finished ? c.shown : before);
      EXPECT_EQ(box(c.name)->palette().color(QPalette::Text), QColor(0, 0, 0)) << c.name;
    }
  }
}

TEST_F(FrmPropert, ARefillLeavesALimitThatIsBeingTyped) {
  open(kAxesPage);
  type("txtXAxis_2", "");
  for (const char* key : {"-", "0", ".", "0", "5"}) {
    QTest::keyClicks(box("txtXAxis_2"), QLatin1String(key));
    window->refill();
  }
  EXPECT_EQ(text("txtXAxis_2"), "-0.05");
  EXPECT_EQ(graph().xmin(), -0.05);
}

TEST_F(FrmPropert, ARefillLeavesTheCursorInATextThatIsRight) {
  open(kTitlesPage);
  box("txtTitle")->setFocus();
  box("txtTitle")->setCursorPosition(2);
  window->refill();
  EXPECT_EQ(box("txtTitle")->cursorPosition(), 2);
}

TEST_F(FrmPropert, WithoutAClientNothingHappens) {
  open(kAxesPage);
  window->set_client(nullptr);
  window->refill();
  type("txtTitle", "x");
  type("txtXAxis_1", "9");
  type("txtMarginTop", "0");
  press("txtMarginTop", Qt::Key_Return);
  type("txtAxisTicks", "50");
  press("txtMarkerSize", Qt::Key_Return);
  for (const char* name : {"chkAutoScale", "chkXZoom", "chkSort", "chkDrawPoints", "cmdApply",
                           "cmdRestoreXY", "cmdFonts_0"}) {
    press(name, Qt::Key_Space);
  }
  press("cmbXFormat", Qt::Key_End);
  press("cmbCurvesWidth", Qt::Key_End);
  EXPECT_EQ(client.handled, 0);
  EXPECT_EQ(client.redraws(), 0);
  EXPECT_EQ(graph().xmax(), 3);
  press("cmdClose", Qt::Key_Space);
  EXPECT_FALSE(window->isVisible());
}

}  // namespace

}  // namespace kurv::test
