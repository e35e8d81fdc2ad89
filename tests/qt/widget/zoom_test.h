// A plot with zooming on, and what a user does there.
#pragma once

#include <QUndoStack>
#include <QWheelEvent>
#include <vector>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {

// In the plot, where neither an item nor a part of the axes is.
inline constexpr QPoint kPlain(250, 180);

class WidgetZoom : public PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    m_stack = m_graph.undo_stack();
    m_graph.set_zoom_enabled(true);
    m_before = limits();
    QObject::connect(&m_graph, &KurvGraph::MouseUp, &m_context,
                     [this](int button, int shift) { m_mouse_ups.push_back(button * 10 + shift); });
  }

  std::vector<double> limits() const {
    return {m_graph.xmin(), m_graph.xmax(), m_graph.ymin(), m_graph.ymax()};
  }
  bool wheel(int angle, Qt::KeyboardModifiers modifiers = {}, QPoint at = kPlain) {
    QWheelEvent event(at, m_plot.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_plot, &event);
    return event.isAccepted();
  }
  void drag(Qt::MouseButton button, QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mousePress(&m_plot, button, modifiers, from);
    move(button, (from + to) / 2, modifiers);
    move(button, to, modifiers);
    QTest::mouseRelease(&m_plot, button, modifiers, to);
  }
  void move(Qt::MouseButton button, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(QEvent::MouseMove, to, m_plot.mapToGlobal(to), Qt::NoButton, button,
                      modifiers);
    QApplication::sendEvent(&m_plot, &event);
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&m_plot, key, modifiers);
    process_all();
  }
  QPointF data_under(QPoint at) { return *m_graph.data_at(m_graph.plot_rect().topLeft() + at); }
  QPointF place_of(QPointF value) {
    return *m_graph.pixel_of(value.x(), value.y()) - m_graph.plot_rect().topLeft();
  }
  // The child that outlines the rectangle.
  QWidget* outline() { return m_plot.findChild<QWidget*>(); }

  QUndoStack* m_stack = nullptr;
  std::vector<double> m_before;
  std::vector<int> m_mouse_ups;
  QObject m_context;
};

}  // namespace kurv::test
