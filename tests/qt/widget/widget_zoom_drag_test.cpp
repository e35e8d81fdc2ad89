// Drags that pan or draw a rectangle: what the read-out says meanwhile, and what ends them.
#include <gmock/gmock.h>

#include "tests/qt/widget/zoom_test.h"

namespace kurv::test {
namespace {

constexpr QPoint kEnd = kPlain + QPoint(80, 40);

class ZoomDrag : public WidgetZoom {
 protected:
  void SetUp() override {
    WidgetZoom::SetUp();
    m_graph.set_readout_enabled(true);
    QObject::connect(&m_graph, &KurvGraph::pointed, &m_context,
                     [this](const ReadOut& read_out) { m_said = read_out; });
    m_mouse.move(kPlain, false);
    process_all();
  }

  void press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(&m_plot, button, modifiers, kPlain);
  }
  void release(Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseRelease(&m_plot, button, modifiers, kEnd);
    process_all();
  }
  void expect_read_out_at(QPoint at) {
    const QPointF under = data_under(at);
    ASSERT_TRUE(m_said.place);
    EXPECT_NEAR(m_said.place->x(), under.x(), 1e-3);
    EXPECT_NEAR(m_said.place->y(), under.y(), 1e-3);
  }

  ReadOut m_said;
};

TEST_F(ZoomDrag, TheReadOutIsEmptyDuringAPanAndThenAtThePointer) {
  expect_read_out_at(kPlain);
  press(Qt::MiddleButton);
  for (const QPoint at : {(kPlain + kEnd) / 2, kEnd}) {
    move(Qt::MiddleButton, at);
    process_all();
    EXPECT_EQ(m_said, ReadOut());
  }
  release(Qt::MiddleButton);
  EXPECT_NE(limits(), m_before);
  expect_read_out_at(kEnd);
}

TEST_F(ZoomDrag, TheReadOutIsEmptyWhileARectangleIsDrawnAndThenAtThePointer) {
  press(Qt::LeftButton, Qt::ControlModifier);
  move(Qt::LeftButton, (kPlain + kEnd) / 2, Qt::ControlModifier);
  move(Qt::LeftButton, kEnd, Qt::ControlModifier);
  process_all();
  EXPECT_EQ(m_said, ReadOut());
  release(Qt::LeftButton, Qt::ControlModifier);
  EXPECT_NE(limits(), m_before);
  expect_read_out_at(kEnd);
}

TEST_F(ZoomDrag, TheReadOutIsAtThePointerAfterAClickAndAfterEscape) {
  QTest::mouseClick(&m_plot, Qt::MiddleButton, {}, kPlain);
  process_all();
  expect_read_out_at(kPlain);
  press(Qt::MiddleButton);
  move(Qt::MiddleButton, kEnd);
  key(Qt::Key_Escape);
  release(Qt::MiddleButton);
  expect_read_out_at(kEnd);
}

TEST_F(ZoomDrag, APanLeavesTheCurvesThatTheKeyboardIsOn) {
  QApplication::setActiveWindow(&m_graph);
  m_plot.focus_on(Region::kFrame);
  key(Qt::Key_Tab);
  ASSERT_TRUE(m_plot.focused_point());
  press(Qt::MiddleButton);
  EXPECT_FALSE(m_plot.focused_point());
  release(Qt::MiddleButton);
}

TEST_F(ZoomDrag, ZoomThatIsTurnedOffEndsIt) {
  press(Qt::LeftButton, Qt::ControlModifier);
  move(Qt::LeftButton, kEnd, Qt::ControlModifier);
  ASSERT_NE(outline(), nullptr);
  m_graph.set_zoom_enabled(false);
  EXPECT_EQ(outline(), nullptr);
  release(Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(limits(), m_before);
  expect_read_out_at(kEnd);
}

TEST_F(ZoomDrag, TheHandOfSpaceIsGoneWithTheFocus) {
  QApplication::setActiveWindow(&m_graph);
  m_plot.setFocus();
  QTest::keyPress(&m_plot, Qt::Key_Space);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
  m_plot.clearFocus();
  EXPECT_NE(m_plot.cursor().shape(), Qt::OpenHandCursor);
  drag(Qt::LeftButton, kPlain, kEnd);
  process_all();
  EXPECT_EQ(limits(), m_before);
}

}  // namespace
}  // namespace kurv::test
