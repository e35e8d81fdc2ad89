// The menu on the plot and the prompts that it opens, with the keys of a real keyboard.
#include <gmock/gmock.h>

#include <QTest>
#include <QTimer>

#include "tests/qt/widget/plot_test.h"
#include "tests/qt/widget/user.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

class MenuWindow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    m_graph.resize(600, 400);
    m_graph.plot(small_graph());
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    m_graph.setFocus();
    QTest::qWait(100);
    m_listener.redraws_since();
  }
  QStringList right_click() const {
    return {"mousemove", "--window", QString::number(m_graph.winId()), "300", "200", "click", "3"};
  }

  OpenGraph m_graph;
  Listener m_listener{m_graph};
};

TEST_F(MenuWindow, ARightClickAndALetterLeadToAFunction) {
  User user;
  user.does(right_click()).in_menu({"key", "f"}).in<QInputDialog>(type("x^2"));
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.document().NumYFunc == 1; }, 5000));
  EXPECT_EQ(m_graph.document().y_func(1).expression, "x^2");
  EXPECT_THAT(user.shown, ElementsAre("Enter new y function curve.\n"
                                      "Numeric expression as function of x,\n"
                                      "For example: x*(sin(x)+2)\n\n"
                                      "Change the y scale if the curve cannot be seen."));
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_listener.redraws > 0; }, 5000));
}

TEST_F(MenuWindow, ARightClickOnACurveAndALetterHideIt) {
  m_graph.set_extended_menu(true);
  const QPointF on_curve = *m_graph.pixel_of(1.5, 2.5);
  User user;
  user.does({"mousemove", "--window", QString::number(m_graph.winId()),
             QString::number(qRound(on_curve.x())), QString::number(qRound(on_curve.y())), "click",
             "3"})
      .in_menu({"key", "h"});
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_graph.document().y_visible(1); }, 5000));
  EXPECT_TRUE(m_graph.document().y_visible(2));
}

TEST_F(MenuWindow, ARejectedFunctionIsReportedInABox) {
  User user;
  user.does(right_click())
      .in_menu({"key", "f"})
      .in<QInputDialog>(type("x+y"))
      .in<QMessageBox>({"key", "Return"});
  EXPECT_TRUE(user.is_done());
  EXPECT_EQ(m_graph.document().NumYFunc, 0);
  EXPECT_EQ(user.shown.back(), "Only 'x' variable is allowed in the algebric expression.");
}

TEST_F(MenuWindow, TheMenuKeyLeadsToADerivedCurveInTwoSteps) {
  User user;
  user.does({"key", "Menu"})
      .in_menu({"key", "d"})
      .in<QInputDialog>(type("a"))
      .in<QMessageBox>({"key", "Return"})
      .in<QInputDialog>(type("sum"))
      .in<QInputDialog>(type("a+b"));
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.document().NumY == 3; }, 5000));
  EXPECT_EQ(m_graph.document().yVarName(4), "sum");
  EXPECT_EQ(m_graph.document().xyArr(4, 1), 4);
  ASSERT_EQ(user.shown.size(), 4u);
  EXPECT_EQ(user.shown[1], "'a' is not a unique variable name");
}

TEST_F(MenuWindow, ShiftF10LeadsToAMargin) {
  User user;
  user.does({"key", "shift+F10"}).in_menu({"key", "l"}).in<QInputDialog>(type("1500"));
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.Left_margine() == 1500; }, 5000));
  EXPECT_THAT(user.shown, ElementsAre("Enter Left Margine size."));
}

TEST_F(MenuWindow, AnEscapedPromptChangesNothing) {
  User user;
  user.does(right_click()).in_menu({"key", "m"}).in<QInputDialog>({"key", "Escape"});
  EXPECT_TRUE(user.is_done());
  QTest::qWait(100);
  EXPECT_EQ(m_graph.MarkerSize(), 40);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(MenuWindow, TheFontDialogComesWithTheFontAndItsAnswerIsDrawn) {
  m_graph.set_TitleFontName("Liberation Sans");
  User user;
  user.does(right_click()).in_menu({"key", "i"}).in<FontDialog>({"key", "Return"});
  EXPECT_TRUE(user.is_done());
  EXPECT_THAT(user.shown, ElementsAre("Title Font"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_listener.redraws == 1; }, 5000));
  EXPECT_EQ(m_graph.TitleFontName(), "Liberation Sans");
  EXPECT_EQ(m_graph.TitleFontSize(), 11);
}

TEST_F(MenuWindow, ARunTimeErrorAfterAPromptIsReported) {
  m_graph.set_NumTicks(0);
  User user;
  user.does(right_click()).in_menu({"key", "x"}).in<QInputDialog>(type("time"));
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_listener.errors.empty(); }, 5000));
  EXPECT_THAT(m_listener.errors, ElementsAre(11));
  EXPECT_EQ(m_graph.document().yVarName(1), "time") << "what was stored stays";
}

TEST_F(MenuWindow, TheWindowMayGoWhileAPromptIsOpen) {
  auto* const graph = new KurvGraph;
  graph->plot(small_graph());
  graph->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(graph));
  QTimer closing;
  bool gone = false;
  QObject::connect(&closing, &QTimer::timeout, [&] {
    if (!gone && qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
      gone = true;
      delete graph;
    }
  });
  closing.start(20);
  graph->setFocus();
  User user;
  user.does({"key", "shift+F10"}).in_menu({"key", "d"});
  EXPECT_TRUE(user.is_done());
  EXPECT_TRUE(QTest::qWaitFor([&] { return gone; }, 10000));
  QTest::qWait(100);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace kurv::test
