// The keyboard on the curves.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QLineEdit>
#include <QVBoxLayout>

#include "tests/qt/widget/read_out_test.h"

namespace kurv::test {
namespace {

// Where the toolkit shows it; null without one.
QPoint tip_position() {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->inherits("QTipLabel")) return window->pos();
  }
  return {};
}

TEST_F(WidgetReadOut, GoesFromPointToPointByTheKeyboard) {
  m_graph.set_readout_enabled(true);
  go_to_curves();
  EXPECT_EQ(said(), "a 1: 1.00 1.0");
  EXPECT_TRUE(has_ring(at(1, 1)));
  EXPECT_TRUE(QToolTip::text().contains("<b>a</b>"));
  key(Qt::Key_Right);
  EXPECT_EQ(said(), "a 2: 2.00 4.0");
  EXPECT_TRUE(has_ring(at(2, 4)));
  key(Qt::Key_Down);
  EXPECT_EQ(said(), "b 2: 2.00 1.0");
  key(Qt::Key_End);
  EXPECT_EQ(said(), "b 3: 3.00 5.0");
  key(Qt::Key_PageUp);
  EXPECT_EQ(said(), "b 2: 2.00 1.0");
  key(Qt::Key_Home);
  key(Qt::Key_Up);
  EXPECT_EQ(said(), "a 1: 1.00 1.0");
  key(Qt::Key_Escape);
  EXPECT_EQ(m_read_outs.back(), ReadOut());
  EXPECT_TRUE(m_plot.ring().isEmpty());
  EXPECT_TRUE(m_plot.hasFocus());
}

TEST_F(WidgetReadOut, IsLeftByTabAndByTheMouse) {
  m_graph.set_readout_enabled(true);
  go_to_curves();
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(m_plot.focused(), HitTarget(Region::kFrame));
  EXPECT_FALSE(m_plot.focused_point());
  key(Qt::Key_Tab);
  EXPECT_TRUE(m_plot.focused_point());
  key(Qt::Key_Tab);
  EXPECT_FALSE(m_plot.focused_point());
  go_to_curves();
  point(at(3, 5));
  EXPECT_FALSE(m_plot.focused_point());
  EXPECT_EQ(said(), "b 3: 3.00 5.0");
}

TEST_F(WidgetReadOut, SaysAgainWhereTheKeyboardIsWhenTheGraphHasChanged) {
  m_graph.set_readout_enabled(true);
  go_to_curves();
  key(Qt::Key_Right);
  EXPECT_TRUE(QToolTip::text().contains("y: 4.0"));
  m_graph.plot({.title = "t", .x = {1, 2, 3}, .y = {{"a", {1, 3.5, 2}}, {"b", {3, 1, 5}}}});
  process_all();
  EXPECT_EQ(said(), "a 2: 2.00 3.5");
  EXPECT_TRUE(QToolTip::text().contains("y: 3.5")) << QToolTip::text().toStdString();
}

TEST_F(WidgetReadOut, TheTipOfTheKeyboardMovesWithThePoint) {
  m_graph.set_readout_enabled(true);
  go_to_curves();
  key(Qt::Key_Right);
  ASSERT_TRUE(QToolTip::isVisible());
  const QPoint tip = tip_position(), ring = m_plot.ring().topLeft();
  m_graph.set_ymax(8);
  m_graph.build_the_graph();
  process_all();
  const QPoint moved = m_plot.ring().topLeft() - ring;
  EXPECT_GT(moved.y(), 20);
  EXPECT_EQ(tip_position() - tip, moved);
}

TEST_F(WidgetReadOut, LeavesAPointThatIsGone) {
  m_graph.set_readout_enabled(true);
  go_to_curves();
  m_graph.document().y_visible(1) = false;
  m_graph.build_the_graph();
  process_all();
  EXPECT_FALSE(m_plot.focused_point());
  EXPECT_EQ(m_read_outs.back(), ReadOut());
}

TEST_F(WidgetReadOut, IsSpokenPointByPoint) {
  QAccessible::setActive(true);
  m_graph.set_readout_enabled(true);
  QAccessibleInterface& plot = *QAccessible::queryAccessibleInterface(&m_plot);
  const int children = plot.childCount();
  go_to_curves();
  ASSERT_EQ(plot.childCount(), children + 1);
  QAccessibleInterface* const first = plot.focusChild();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(plot.child(children), first);
  EXPECT_EQ(plot.indexOfChild(first), children);
  EXPECT_EQ(first->text(QAccessible::Name), "a, x 1.00, y 1.0");
  EXPECT_TRUE(first->state().focused);
  const QAccessible::Id id = QAccessible::uniqueId(first);
  key(Qt::Key_Right);
  EXPECT_EQ(plot.focusChild()->text(QAccessible::Name), "a, x 2.00, y 4.0");
  EXPECT_NE(QAccessible::uniqueId(plot.focusChild()), id);
  key(Qt::Key_Escape);
  EXPECT_EQ(plot.childCount(), children);
  QAccessible::setActive(false);
}

TEST_F(WidgetReadOut, IsTheLastTabStop) {
  QWidget window;
  auto* const layout = new QVBoxLayout(&window);
  QLineEdit before, after;
  layout->addWidget(&before);
  layout->addWidget(&m_graph);
  layout->addWidget(&after);
  m_graph.set_readout_enabled(true);
  window.show();
  QApplication::setActiveWindow(&window);
  after.setFocus();
  process_all();
  QTest::keyClick(window.windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(m_plot.focused_point());
  QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
  EXPECT_TRUE(after.hasFocus());
  EXPECT_FALSE(m_plot.focused_point());
  for (QWidget* child : {static_cast<QWidget*>(&before), static_cast<QWidget*>(&m_graph),
                         static_cast<QWidget*>(&after)})
    child->setParent(nullptr);
}

}  // namespace
}  // namespace kurv::test
