// Drags that pan or draw a rectangle: what the read-out says meanwhile, and what ends them.
#include <gmock/gmock.h>

#include "tests/qt/widget/zoom_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

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
  void load_other_data() {
    m_graph.plot({.title = "Other", .x = {1000, 2000, 3000}, .y = {{"c", {1, 4, 5}}}});
    m_before = limits();
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

TEST_F(ZoomDrag, OtherDataEndAPan) {
  press(Qt::MiddleButton);
  move(Qt::MiddleButton, kPlain + QPoint(30, 0));
  process_all();
  load_other_data();
  move(Qt::MiddleButton, kPlain + QPoint(40, 0));
  process_all();
  EXPECT_EQ(limits(), m_before);
  EXPECT_TRUE(m_graph.Autoscale());
  EXPECT_NE(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  release(Qt::MiddleButton);
  EXPECT_EQ(limits(), m_before);
}

TEST_F(ZoomDrag, OtherDataEndAPanThatIsNotDrawnYet) {
  press(Qt::MiddleButton);
  move(Qt::MiddleButton, kPlain + QPoint(30, 0));
  load_other_data();
  process_all();
  EXPECT_EQ(limits(), m_before);
}

TEST_F(ZoomDrag, OtherDataEndARectangle) {
  press(Qt::LeftButton, Qt::ControlModifier);
  move(Qt::LeftButton, kEnd, Qt::ControlModifier);
  load_other_data();
  release(Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(outline(), nullptr);
  EXPECT_EQ(limits(), m_before);
  EXPECT_THAT(m_mouse_ups, ElementsAre());
}

TEST_F(ZoomDrag, OtherDataBeforeItBeginsArePanned) {
  press(Qt::MiddleButton);
  load_other_data();
  const QPointF value = data_under(kPlain);
  move(Qt::MiddleButton, kEnd);
  release(Qt::MiddleButton);
  EXPECT_NEAR(place_of(value).x(), kEnd.x(), 1);
  EXPECT_NEAR(place_of(value).y(), kEnd.y(), 1);
}

TEST_F(ZoomDrag, GoesOnWhilePointsAreAdded) {
  Matrix<Double> point(1, 3, 1, 1);
  point(1, 1) = 4;
  press(Qt::MiddleButton);
  move(Qt::MiddleButton, kPlain + QPoint(30, 0));
  process_all();
  const double xmin = m_graph.xmin();
  m_graph.append_points(point);
  move(Qt::MiddleButton, kEnd);
  process_all();
  EXPECT_LT(m_graph.xmin(), xmin);
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
