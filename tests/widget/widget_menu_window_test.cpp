// The menu on the plot and the prompts behind it, with the keys of a real keyboard.
#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QFontDialog>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "tests/widget/hands.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

// What a user does: waits for something to be there, then presses keys. A timer drives it, because
// prompts run event loops of their own.
class User {
 public:
  User() {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { step(); });
    m_timer.start(50);
    m_clock.start();
  }

  User& does(const QStringList& keys) {
    return after([] { return true; }, keys);
  }
  User& in_menu(const QStringList& keys) {
    return after([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }, keys);
  }
  template <class Dialog>
  User& in(const QStringList& keys) {
    return after(
        [this] {
          auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
          if (!dialog || !dialog->isActiveWindow() || !QApplication::focusWidget()) return false;
          // The keys for the one before may still be on their way to it.
          if (dialog->property("answered").toBool()) return false;
          dialog->setProperty("answered", true);
          note(dialog);
          return true;
        },
        keys);
  }

  // Also waits for the tool: a key that it has pressed and not released would stay down.
  bool is_done() {
    return QTest::qWaitFor(
               [this] {
                 return m_next == m_steps.size() && m_tool.state() == QProcess::NotRunning &&
                        !QApplication::activeModalWidget();
               },
               20000) &&
           !m_gave_up;
  }

  std::vector<std::string> shown;  // the texts of prompts and boxes

 private:
  struct Step {
    std::function<bool()> is_time;
    QStringList keys;
  };

  User& after(std::function<bool()> is_time, const QStringList& keys) {
    m_steps.push_back({std::move(is_time), keys});
    return *this;
  }
  void note(const QInputDialog* prompt) { shown.push_back(prompt->labelText().toStdString()); }
  void note(const QMessageBox* box) { shown.push_back(box->text().toStdString()); }
  void note(const QFontDialog* dialog) {
    shown.push_back(dialog->currentFont().family().toStdString());
  }
  // One thing at a time: the next one waits until the tool has pressed all keys.
  void step() {
    if (m_tool.state() != QProcess::NotRunning) return;
    if (m_clock.hasExpired(15000)) return give_up();
    if (m_next == m_steps.size() || !m_steps[m_next].is_time()) return;
    m_tool.start("xdotool", m_steps[m_next++].keys);
    m_clock.restart();
  }
  // What is still open would keep the test waiting for ever.
  void give_up() {
    m_gave_up = true;
    m_next = m_steps.size();
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    if (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
  }

  QTimer m_timer;
  QProcess m_tool;
  std::vector<Step> m_steps;
  std::size_t m_next = 0;
  QElapsedTimer m_clock;
  bool m_gave_up = false;
};

QStringList type(const QString& text) {
  return {"key", "ctrl+a", "type", "--delay", "20", "--args", "1", text, "key", "Return"};
}

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

TEST_F(MenuWindow, ARefusedFunctionIsToldInABox) {
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
  user.does(right_click()).in_menu({"key", "i"}).in<QFontDialog>({"key", "Return"});
  EXPECT_TRUE(user.is_done());
  EXPECT_THAT(user.shown, ElementsAre("Liberation Sans"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_listener.redraws == 1; }, 5000));
  EXPECT_EQ(m_graph.TitleFontName(), "Liberation Sans");
  EXPECT_EQ(m_graph.TitleFontSize(), 11);
}

TEST_F(MenuWindow, ARunTimeErrorBehindAPromptIsTold) {
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
