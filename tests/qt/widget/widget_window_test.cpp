// The widget in a real window, with a real window manager and a real mouse.
#include <gmock/gmock.h>

#include <QScreen>
#include <QTest>
#include <QWindow>
#include <tuple>

#include "tests/qt/widget/tools.h"
#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

class WidgetWindow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    resize_plot(m_graph, {600, 400});
    m_graph.plot(small_graph());
    m_graph.setWindowTitle("graph under test");
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    QTest::qWait(100);
    m_listener.redraws_since();
  }

  QString id() const { return QString::number(m_graph.winId()); }

  KurvGraph m_graph;
  Listener m_listener{m_graph};
};

TEST_F(WidgetWindow, ARealClickIsReportedInTwips) {
  std::vector<std::tuple<int, int>> buttons;
  float x = 0;
  float y = 0;
  QObject::connect(&m_graph, &KurvGraph::MouseUp,
                   [&](int button, int shift, float at_x, float at_y) {
                     buttons.emplace_back(button, shift);
                     x = at_x;
                     y = at_y;
                   });
  // The menu that a right click opens would take the next one.
  m_graph.setContextMenuPolicy(Qt::NoContextMenu);
  run_tool("xdotool",
           {"mousemove", "--window", id(), "300", QString::number(m_graph.plot_rect().top() + 200),
            "click", "1", "click", "3", "keydown", "shift", "click", "2", "keyup", "shift"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return buttons.size() == 3; }, 5000));
  EXPECT_THAT(buttons, testing::ElementsAre(std::tuple(1, 0), std::tuple(2, 0), std::tuple(4, 1)));
  EXPECT_EQ(x, 4500);
  EXPECT_EQ(y, 3000);
}

TEST_F(WidgetWindow, AResizeByTheWindowManagerIsOneRedraw) {
  run_tool("xdotool", {"windowsize", "--sync", id(), "700", "500"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.size() == QSize(700, 500); }, 5000));
  QTest::qWait(100);
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetWindow, ARestoreFromAnIconIsNoShow) {
  m_graph.set_Title("not drawn yet");
  const QImage before = m_graph.image();
  m_graph.showMinimized();
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.isMinimized(); }, 5000));
  QTest::qWait(200);
  run_tool("xdotool", {"windowmap", "--sync", id()});
  run_tool("wmctrl", {"-i", "-a", id()});
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m_graph.isMinimized(); }, 5000));
  QTest::qWait(200);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(m_graph.image(), before);
  m_graph.hide();
  m_graph.show();
  EXPECT_EQ(m_listener.redraws_since(), 1) << "but this is one";
}

TEST_F(WidgetWindow, TheScreenShowsThePicturesOwnPixels) {
  QImage shot;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        shot = m_graph.screen()->grabWindow(m_graph.winId()).toImage();
        return shot.copy(m_graph.plot_rect()).convertToFormat(QImage::Format_RGB32) ==
               m_graph.image();
      },
      5000));
  EXPECT_EQ(shot.size(), m_graph.size());
}

TEST_F(WidgetWindow, UncoveringTheWindowDrawsNothingAnew) {
  QWidget cover;
  cover.setGeometry(m_graph.geometry());
  cover.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&cover));
  QTest::qWait(100);
  cover.hide();
  QTest::qWait(100);
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(WidgetWindow, MayBeDeletedInASlotOfARealClick) {
  auto* const graph = new KurvGraph;
  bool clicked = false;
  QObject::connect(graph, &KurvGraph::MouseUp, graph, [&] {
    clicked = true;
    delete graph;
  });
  graph->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(graph));
  run_tool("xdotool",
           {"mousemove", "--window", QString::number(graph->winId()), "200", "200", "click", "1"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return clicked; }, 5000));
}

}  // namespace
}  // namespace kurv::test
