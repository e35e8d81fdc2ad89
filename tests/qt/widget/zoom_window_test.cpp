// Zooming and panning with a real mouse and a real keyboard.
#include <gmock/gmock.h>

#include <QUndoStack>

#include "tests/qt/widget/plot_test.h"
#include "tests/qt/widget/tools.h"

namespace kurv::test {
namespace {

constexpr QPoint kPlain(250, 180);

class ZoomWindow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    resize_plot(m_graph, {600, 400});
    m_graph.plot(small_graph());
    m_graph.set_zoom_enabled(true);
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
    m_graph.setFocus();
    QTest::qWait(100);
    m_before = limits();
    tool(move_to(kPlain));
  }

  std::vector<double> limits() const {
    return {m_graph.xmin(), m_graph.xmax(), m_graph.ymin(), m_graph.ymax()};
  }
  QStringList move_to(QPoint at) const {
    const QPoint in_window = m_graph.plot_rect().topLeft() + at;
    return {"mousemove", "--window", QString::number(m_graph.winId()),
            QString::number(in_window.x()), QString::number(in_window.y())};
  }
  void tool(const QStringList& arguments) {
    run_tool("xdotool", arguments);
    QTest::qWait(200);
  }
  // Releases the keys as well, so that no other test has them pressed.
  void with_key(const QString& name, const std::function<void()>& work) {
    tool({"keydown", name});
    work();
    tool({"keyup", name});
  }
  void drag(const QString& button, QPoint from, QPoint to) {
    tool(move_to(from));
    tool({"mousedown", button});
    tool(move_to((from + to) / 2));
    tool(move_to(to));
    tool({"mouseup", button});
  }

  OpenGraph m_graph;
  QUndoStack* m_stack = m_graph.undo_stack();
  std::vector<double> m_before;
};

TEST_F(ZoomWindow, TheWheelZoomsAtThePointerAndCtrl0Returns) {
  const QPoint at = m_graph.plot_rect().topLeft() + kPlain;
  const QPointF value = *m_graph.data_at(at);
  tool({"click", "--repeat", "3", "--delay", "20", "4"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.xmax() < m_before[1]; }, 5000));
  QTest::qWait(300);
  const QPointF place = *m_graph.pixel_of(value.x(), value.y());
  EXPECT_NEAR(place.x(), at.x(), 1);
  EXPECT_NEAR(place.y(), at.y(), 1);
  EXPECT_EQ(m_stack->count(), 1);
  tool({"key", "ctrl+0"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return limits() == m_before; }, 5000));
}

TEST_F(ZoomWindow, ShiftAndCtrlChooseTheAxis) {
  with_key("shift", [this] { tool({"click", "5"}); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.xmax() > m_before[1]; }, 5000));
  EXPECT_EQ(m_graph.ymax(), m_before[3]);
  const double xmax = m_graph.xmax();
  with_key("ctrl", [this] { tool({"click", "5"}); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return m_graph.ymax() > m_before[3]; }, 5000));
  EXPECT_EQ(m_graph.xmax(), xmax);
}

TEST_F(ZoomWindow, TheMiddleButtonAndSpacePan) {
  drag("2", kPlain, kPlain + QPoint(60, 0));
  EXPECT_LT(m_graph.xmin(), m_before[0]);
  const double xmin = m_graph.xmin();
  with_key("space", [this] { drag("1", kPlain, kPlain + QPoint(60, 0)); });
  EXPECT_LT(m_graph.xmin(), xmin);
  EXPECT_EQ(m_stack->count(), 2);
}

TEST_F(ZoomWindow, CtrlAndADragZoomToARectangle) {
  with_key("ctrl", [this] { drag("1", {150, 100}, {350, 250}); });
  EXPECT_LT(m_graph.xmax(), m_before[1]);
  EXPECT_GT(m_graph.xmin(), m_before[0]);
  EXPECT_EQ(m_stack->undoText(), "Zoom");
  EXPECT_EQ(m_graph.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ZoomWindow, PlusAndMinusZoom) {
  tool({"key", "plus"});
  EXPECT_LT(m_graph.xmax(), m_before[1]);
  tool({"key", "minus"});
  tool({"key", "minus"});
  EXPECT_GT(m_graph.xmax(), m_before[1]);
  tool({"key", "ctrl+Left"});
  EXPECT_LT(m_graph.xmin(), m_before[0]);
}

}  // namespace
}  // namespace kurv::test
