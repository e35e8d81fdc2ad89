// The window of the properties under a real keyboard.
#include <QLineEdit>
#include <QTimer>

#include "tests/dialogs/window_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class PropertWindow : public RealWindow {
 protected:
  PropertWindow() : RealWindow("frmPropert", "setup") {}

  User& does(const QStringList& names) { return m_user.in_window("frmPropert", keys(names)); }
  // Over what stands in the field.
  User& writes(const QStringList& letters) { return does(QStringList{"ctrl+a"} + letters); }
  std::string text(const char* name) const { return find<QLineEdit>(name)->text().toStdString(); }
  QColor colour(const char* name) const {
    return find<QLineEdit>(name)->palette().color(QPalette::Text);
  }
  void expect_closed_by_escape() {
    does({"Escape"}).sees([&] { return !window(); });
    EXPECT_TRUE(m_user.is_done());
  }
};

TEST_F(PropertWindow, TicksAreRedWhileTheyAreTooFew) {
  does({"alt+x", "alt+k"});
  writes({"4"}).sees(
      [&] { return text("txtAxisTicks") == "4" && colour("txtAxisTicks") == QColor(255, 0, 0); });
  does({"0"}).sees(
      [&] { return text("txtAxisTicks") == "40" && colour("txtAxisTicks") == QColor(0, 0, 0); });
  expect_closed_by_escape();
  EXPECT_EQ(m_graph.NumTicks(), 40);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(PropertWindow, AMarginIsTakenByTab) {
  does({"alt+p"});
  writes({"9", "0", "0", "Tab"}).sees([&] { return m_graph.Top_margine() == 900; });
  expect_closed_by_escape();
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(PropertWindow, ARefusedMarginIsToldAndPutBack) {
  does({"alt+p"});
  writes({"0", "Return"}).in<QMessageBox>({"key", "Return"});
  m_user.sees([&] { return window()->isActiveWindow() && text("txtMarginTop") == "480"; });
  expect_closed_by_escape();
  EXPECT_EQ(m_graph.Top_margine(), 480);
  EXPECT_THAT(m_user.shown, ElementsAre("Invalid data entry."));
}

TEST_F(PropertWindow, AMarginCanBeTypedWhileTheHostRedrawsAgainAndAgain) {
  QTimer host;
  QObject::connect(&host, &QTimer::timeout, [&] { m_graph.ChartOptions("refresh"); });
  host.start(20);
  does({"alt+p"});
  writes({"7", "0", "0"}).sees([&] { return text("txtMarginTop") == "700"; });
  does({"Return"}).sees([&] { return m_graph.Top_margine() == 700; });
  expect_closed_by_escape();
  EXPECT_GT(m_listener.redraws_since(), 2);
}

TEST_F(PropertWindow, LimitsAreDrawnByApply) {
  does({"alt+x", "alt+m"});
  writes({"minus", "5"}).sees([&] { return m_graph.xmin() == -5; });
  does({"alt+u"});
  writes({"1", "2"}).sees([&] { return m_graph.xmax() == 12; });
  does({"alt+a"}).sees([&] { return m_listener.redraws > 0; });
  expect_closed_by_escape();
  EXPECT_EQ(m_graph.xmin(), -5);
  EXPECT_EQ(m_graph.xmax(), 12);
  EXPECT_EQ(m_listener.redraws_since(), 1) << "not while they were typed";
}

TEST_F(PropertWindow, LimitsAboveTheOldOnesAreTakenTogether) {
  const QColor red(255, 0, 0);
  m_graph.set_xmin(0);
  m_graph.set_xmax(10);
  does({"alt+x", "alt+m"});
  writes({"2", "0"}).sees([&] {
    return text("txtXAxis_2") == "20" && colour("txtXAxis_2") == red;
  });
  does({"Tab"});
  writes({"3", "0"}).sees([&] {
    return text("txtXAxis_1") == "30" && colour("txtXAxis_1") != red && colour("txtXAxis_2") != red;
  });
  expect_closed_by_escape();
  EXPECT_EQ(m_graph.xmin(), 20);
  EXPECT_EQ(m_graph.xmax(), 30);
}

TEST_F(PropertWindow, ARefusedLimitIsRestoredWhenTheFocusLeavesTheLimits) {
  const QColor red(255, 0, 0);
  m_graph.set_xmin(0);
  m_graph.set_xmax(10);
  does({"alt+x", "alt+m"});
  writes({"9", "9"}).sees([&] {
    return text("txtXAxis_2") == "99" && colour("txtXAxis_2") == red;
  });
  does({"Tab"}).sees(
      [&] { return find<QLineEdit>("txtXAxis_1")->hasFocus() && text("txtXAxis_2") == "99"; });
  does({"Tab"}).sees([&] { return text("txtXAxis_2") == "9" && colour("txtXAxis_2") != red; });
  expect_closed_by_escape();
  EXPECT_EQ(m_graph.xmin(), 9);
  EXPECT_EQ(m_graph.xmax(), 10);
}

TEST_F(PropertWindow, AFontDialogOpensAndTheWindowHasTheKeyboardAgain) {
  m_graph.set_TitleFontName("Liberation Sans");
  does({"alt+t", "alt+e"}).in<FontDialog>({"key", "Escape"});
  does({"alt+i"});
  writes({"S", "u", "n"}).sees([&] { return m_graph.Title() == "Sun"; });
  expect_closed_by_escape();
  EXPECT_THAT(m_user.shown, ElementsAre("Title Font"));
}

TEST_F(PropertWindow, SpaceTurnsTheFirstSwitchAndALetterAnotherOne) {
  does({"space"}).sees([&] { return bool(m_graph.SortXY()); });
  does({"alt+n"}).sees([&] { return !m_graph.Connected(); });
  expect_closed_by_escape();
  EXPECT_TRUE(m_graph.SortXY());
  EXPECT_EQ(m_listener.redraws_since(), 2);
}

}  // namespace
}  // namespace kurv::test
