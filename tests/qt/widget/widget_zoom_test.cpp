// Zooming and panning by events, without a window system.
#include <gmock/gmock.h>

#include <QAction>
#include <QMenu>
#include <QPinchGesture>
#include <QPointingDevice>

#include "tests/qt/widget/zoom_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

TEST_F(WidgetZoom, IsOffByDefault) {
  EXPECT_FALSE(KurvGraph().zoom_enabled());
  EXPECT_TRUE(m_graph.zoom_enabled());
}

TEST_F(WidgetZoom, OffEverythingIsAsWithoutIt) {
  m_graph.set_zoom_enabled(false);
  EXPECT_FALSE(wheel(120));
  drag(Qt::MiddleButton, kPlain, kPlain + QPoint(60, 40));
  drag(Qt::LeftButton, kPlain, kPlain + QPoint(60, 40), Qt::ControlModifier);
  for (const Qt::Key pressed : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Space}) key(pressed);
  key(Qt::Key_Left, Qt::ControlModifier);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(limits(), m_before);
  EXPECT_THAT(m_mouse_ups, ElementsAre(40, 12));
  EXPECT_EQ(outline(), nullptr);
  QTest::mouseClick(&m_plot, Qt::RightButton, {}, kPlain);
  const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->findChild<QAction*>("mnuShowAll"), nullptr);
  QApplication::activePopupWidget()->close();
}

TEST_F(WidgetZoom, APlainDragDoesWhatItDid) {
  drag(Qt::LeftButton, kPlain, kPlain + QPoint(60, 40));
  EXPECT_EQ(outline(), nullptr);
  EXPECT_EQ(limits(), m_before);
  EXPECT_THAT(m_mouse_ups, ElementsAre(10));
  const Rect legend = m_graph.layout().picLegend;
  drag(Qt::LeftButton, middle(legend), middle(legend) + QPoint(20, 20));
  EXPECT_FLOAT_EQ(m_graph.layout().picLegend.left, legend.left + 300);
}

TEST_F(WidgetZoom, TheWheelZoomsAtThePointer) {
  const QPointF value = data_under(kPlain);
  EXPECT_TRUE(wheel(240));
  process_all();
  const double span = m_before[1] - m_before[0];
  EXPECT_NEAR(m_graph.xmax() - m_graph.xmin(), span * 0.64, span * 0.005);
  const QPointF place = place_of(value);
  EXPECT_NEAR(place.x(), kPlain.x(), 1);
  EXPECT_NEAR(place.y(), kPlain.y(), 1);
  wheel(-240);
  process_all();
  EXPECT_NEAR(m_graph.xmax() - m_graph.xmin(), span, span * 0.01);
}

TEST_F(WidgetZoom, ShiftZoomsXAndCtrlY) {
  wheel(120, Qt::ShiftModifier);
  process_all();
  EXPECT_NE(m_graph.xmax(), m_before[1]);
  EXPECT_EQ(m_graph.ymax(), m_before[3]);
  m_graph.ChartOptions("undo");
  EXPECT_EQ(limits(), m_before);
  wheel(120, Qt::ControlModifier);
  process_all();
  EXPECT_EQ(m_graph.xmax(), m_before[1]);
  EXPECT_NE(m_graph.ymax(), m_before[3]);
}

TEST_F(WidgetZoom, AWheelThatTurnsFasterThanItIsDrawnIsDrawnOnce) {
  for (int i = 0; i < 50; ++i) wheel(i < 30 ? 120 : -120);
  EXPECT_EQ(m_listener.redraws_since(), 1);
  EXPECT_EQ(m_stack->count(), 1);
  const QPoint from = kPlain;
  QTest::mousePress(&m_plot, Qt::MiddleButton, {}, from);
  for (int i = 1; i < 50; ++i) move(Qt::MiddleButton, from + QPoint(i, i));
  EXPECT_EQ(m_listener.redraws_since(), 1);
}

TEST_F(WidgetZoom, AFineWheelAddsUp) {
  for (int i = 0; i < 40; ++i) {
    wheel(3);
    process_all();
  }
  const double span = m_before[1] - m_before[0];
  EXPECT_NEAR(m_graph.xmax() - m_graph.xmin(), span * 0.8, span * 0.03);
}

TEST_F(WidgetZoom, ARunOfTheWheelIsOneStepThatRestoresAutoscale) {
  for (int i = 0; i < 5; ++i) {
    wheel(120);
    process_all();
  }
  EXPECT_EQ(m_stack->count(), 1);
  EXPECT_EQ(m_stack->undoText(), "Zoom");
  EXPECT_FALSE(m_graph.Autoscale());
  EXPECT_TRUE(m_graph.is_zoomed());
  m_stack->undo();
  EXPECT_EQ(limits(), m_before);
  EXPECT_TRUE(m_graph.Autoscale());
  EXPECT_FALSE(m_graph.is_zoomed());
}

TEST_F(WidgetZoom, APauseBeginsAnotherStep) {
  wheel(120);
  process_all();
  QTest::qWait(900);
  wheel(120);
  process_all();
  EXPECT_EQ(m_stack->count(), 2);
}

TEST_F(WidgetZoom, TheMiddleButtonPans) {
  const QPointF value = data_under(kPlain);
  QTest::mousePress(&m_plot, Qt::MiddleButton, {}, kPlain);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  for (const int step : {10, 30, 60}) {
    move(Qt::MiddleButton, kPlain + QPoint(step, step / 2));
    process_all();
    EXPECT_EQ(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  }
  QTest::mouseRelease(&m_plot, Qt::MiddleButton, {}, kPlain + QPoint(60, 30));
  process_all();
  EXPECT_NE(m_plot.cursor().shape(), Qt::ClosedHandCursor);
  EXPECT_NEAR(place_of(value).x(), kPlain.x() + 60, 1);
  EXPECT_NEAR(place_of(value).y(), kPlain.y() + 30, 1);
  EXPECT_EQ(m_stack->count(), 1);
  EXPECT_EQ(m_stack->undoText(), "Pan");
  EXPECT_THAT(m_mouse_ups, ElementsAre());
}

TEST_F(WidgetZoom, SpaceAndTheLeftButtonPan) {
  m_plot.setFocus();
  QTest::keyPress(&m_plot, Qt::Key_Space);
  EXPECT_EQ(m_plot.cursor().shape(), Qt::OpenHandCursor);
  drag(Qt::LeftButton, kPlain, kPlain + QPoint(50, 0));
  QTest::keyRelease(&m_plot, Qt::Key_Space);
  process_all();
  EXPECT_LT(m_graph.xmin(), m_before[0]);
  EXPECT_EQ(m_graph.ymin(), m_before[2]);
  EXPECT_NE(m_plot.cursor().shape(), Qt::OpenHandCursor);
  const std::vector<double> panned = limits();
  drag(Qt::LeftButton, kPlain, kPlain + QPoint(50, 0));
  EXPECT_EQ(limits(), panned);
}

TEST_F(WidgetZoom, AClickThatIsNotDraggedIsAClick) {
  drag(Qt::MiddleButton, kPlain, kPlain + QPoint(2, 2));
  QTest::mouseClick(&m_plot, Qt::LeftButton, Qt::ControlModifier, kPlain);
  process_all();
  EXPECT_EQ(limits(), m_before);
  EXPECT_EQ(m_stack->count(), 0);
  EXPECT_THAT(m_mouse_ups, ElementsAre(40, 12));
}

TEST_F(WidgetZoom, CtrlAndADragZoomToARectangle) {
  const QPointF from = data_under({150, 100}), to = data_under({350, 250});
  m_listener.redraws_since();
  QTest::mousePress(&m_plot, Qt::LeftButton, Qt::ControlModifier, {350, 250});
  EXPECT_EQ(m_plot.cursor().shape(), Qt::CrossCursor);
  move(Qt::LeftButton, {200, 150}, Qt::ControlModifier);
  move(Qt::LeftButton, {150, 100}, Qt::ControlModifier);
  ASSERT_NE(outline(), nullptr);
  EXPECT_EQ(outline()->geometry(), QRect(150, 100, 201, 151));
  EXPECT_EQ(m_listener.redraws_since(), 0);
  QTest::mouseRelease(&m_plot, Qt::LeftButton, Qt::ControlModifier, {150, 100});
  process_all();
  EXPECT_EQ(outline(), nullptr);
  const double pixel = (m_before[1] - m_before[0]) / 400;
  EXPECT_NEAR(m_graph.xmin(), from.x(), pixel);
  EXPECT_NEAR(m_graph.xmax(), to.x(), pixel);
  EXPECT_GT(m_graph.ymax(), to.y());
  EXPECT_EQ(m_stack->count(), 1);
  EXPECT_THAT(m_mouse_ups, ElementsAre());
}

TEST_F(WidgetZoom, EscapeAndSmallRectanglesZoomNothing) {
  QTest::mousePress(&m_plot, Qt::LeftButton, Qt::ControlModifier, {150, 100});
  move(Qt::LeftButton, {350, 250}, Qt::ControlModifier);
  key(Qt::Key_Escape);
  EXPECT_EQ(outline(), nullptr);
  QTest::mouseRelease(&m_plot, Qt::LeftButton, Qt::ControlModifier, {350, 250});
  drag(Qt::LeftButton, {150, 100}, {350, 102}, Qt::ControlModifier);
  drag(Qt::LeftButton, {150, 100}, {151, 250}, Qt::ControlModifier);
  process_all();
  EXPECT_THAT(m_mouse_ups, ElementsAre());
  EXPECT_EQ(limits(), m_before);
  EXPECT_EQ(m_stack->count(), 0);
}

TEST_F(WidgetZoom, OtherButtonsDoNothingDuringADrag) {
  QTest::mousePress(&m_plot, Qt::MiddleButton, {}, kPlain);
  move(Qt::MiddleButton, kPlain + QPoint(30, 0));
  QTest::mousePress(&m_plot, Qt::RightButton, {}, kPlain);
  QTest::mouseRelease(&m_plot, Qt::MiddleButton, {}, kPlain);
  QTest::mouseRelease(&m_plot, Qt::RightButton, {}, kPlain);
  process_all();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_THAT(m_mouse_ups, ElementsAre());
}

TEST_F(WidgetZoom, KeysZoomPanAndShowAll) {
  m_plot.setFocus();
  key(Qt::Key_Plus);
  EXPECT_GT(m_graph.xmin(), m_before[0]);
  EXPECT_LT(m_graph.xmax(), m_before[1]);
  const double xmin = m_graph.xmin(), ymin = m_graph.ymin();
  key(Qt::Key_Right, Qt::ControlModifier);
  key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_GT(m_graph.xmin(), xmin);
  EXPECT_GT(m_graph.ymin(), ymin);
  key(Qt::Key_Minus);
  key(Qt::Key_Minus);
  EXPECT_LT(m_graph.xmin(), m_before[0]);
  key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(limits(), m_before);
  EXPECT_TRUE(m_graph.Autoscale());
  EXPECT_EQ(m_stack->undoText(), "Show All");
}

TEST_F(WidgetZoom, AFocusedItemIsMovedByItsKeys) {
  m_plot.focus_on(Item::kLegend);
  const Single left = m_graph.layout().picLegend.left;
  key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(m_graph.layout().picLegend.left, left + 15);
  EXPECT_EQ(limits(), m_before);
}

TEST_F(WidgetZoom, APinchOfATouchpadZooms) {
  const double span = m_before[1] - m_before[0];
  const auto pinch = [this](Qt::NativeGestureType type, double value) {
    QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, kPlain, kPlain,
                              m_plot.mapToGlobal(kPlain), value, {});
    QApplication::sendEvent(&m_plot, &event);
  };
  pinch(Qt::BeginNativeGesture, 0);
  pinch(Qt::ZoomNativeGesture, 0.6);
  pinch(Qt::ZoomNativeGesture, 0.25);
  pinch(Qt::ZoomNativeGesture, -1);
  pinch(Qt::EndNativeGesture, 0);
  process_all();
  EXPECT_NEAR(m_graph.xmax() - m_graph.xmin(), span / 2, span * 0.005);
}

// As the toolkit reports two fingers on a screen.
TEST_F(WidgetZoom, APinchOfTwoFingersZooms) {
  const double span = m_before[1] - m_before[0];
  const QPointF value = data_under(kPlain);
  QPinchGesture gesture;
  gesture.setCenterPoint(m_plot.mapToGlobal(QPointF(kPlain)));
  const auto pinch = [&](double factor) {
    gesture.setScaleFactor(factor);
    QGestureEvent event({&gesture});
    QApplication::sendEvent(&m_plot, &event);
    EXPECT_TRUE(event.isAccepted(&gesture));
  };
  pinch(1.6);
  pinch(1.25);
  pinch(0);
  process_all();
  EXPECT_NEAR(m_graph.xmax() - m_graph.xmin(), span / 2, span * 0.005);
  EXPECT_NEAR(place_of(value).x(), kPlain.x(), 1);
  EXPECT_NEAR(place_of(value).y(), kPlain.y(), 1);
}

TEST_F(WidgetZoom, TheWheelBesideThePlotZoomsOneAxis) {
  const PlotRect& plot = m_graph.layout().plot;
  const QPoint below(kPlain.x(), static_cast<int>((plot.PlotTop + plot.PlotHeight) / 15) + 10);
  EXPECT_TRUE(wheel(120, {}, below));
  process_all();
  EXPECT_NE(m_graph.xmax(), m_before[1]);
  EXPECT_EQ(m_graph.ymax(), m_before[3]);
  m_stack->undo();
  const QPoint left(static_cast<int>(plot.PlotLeft / 15) - 10, kPlain.y());
  EXPECT_TRUE(wheel(120, {}, left));
  process_all();
  EXPECT_EQ(m_graph.xmax(), m_before[1]);
  EXPECT_NE(m_graph.ymax(), m_before[3]);
}

TEST_F(WidgetZoom, WhatIsNotDrawnYetIsDroppedWhereItIsTurnedOff) {
  m_plot.setFocus();
  QTest::keyClick(&m_plot, Qt::Key_Right, Qt::ControlModifier);
  wheel(120);
  m_graph.set_zoom_enabled(false);
  process_all();
  EXPECT_EQ(limits(), m_before);
  m_graph.set_zoom_enabled(true);
  key(Qt::Key_Plus);
  EXPECT_NE(limits(), m_before);
}

TEST_F(WidgetZoom, TheMenuShowsAll) {
  const auto entry = [this] {
    QTest::mouseClick(&m_plot, Qt::RightButton, {}, kPlain);
    return QApplication::activePopupWidget()->findChild<QAction*>("mnuShowAll");
  };
  EXPECT_FALSE(entry()->isEnabled());
  QApplication::activePopupWidget()->close();
  process_all();
  wheel(120);
  process_all();
  QAction* const show_all = entry();
  EXPECT_TRUE(show_all->isEnabled());
  show_all->trigger();
  QApplication::activePopupWidget()->close();
  process_all();
  EXPECT_EQ(limits(), m_before);
}

TEST_F(WidgetZoom, WithoutAGraphTheWheelIsNotTaken) {
  KurvGraph empty;
  empty.set_zoom_enabled(true);
  QWheelEvent event(kPlain, kPlain, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(plot_of(empty), &event);
  EXPECT_FALSE(event.isAccepted());
}

TEST_F(WidgetZoom, TheWidgetMayGoDuringADrag) {
  auto* const graph = new OpenGraph;
  graph->plot(small_graph());
  graph->set_zoom_enabled(true);
  graph->show();
  QTest::mousePress(&graph->view(), Qt::LeftButton, Qt::ControlModifier, kPlain);
  QMouseEvent event(QEvent::MouseMove, kPlain * 2, kPlain * 2, Qt::NoButton, Qt::LeftButton,
                    Qt::ControlModifier);
  QApplication::sendEvent(&graph->view(), &event);
  delete graph;
  process_all();
}

}  // namespace
}  // namespace kurv::test
