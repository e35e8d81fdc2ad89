// A plot under test, a mouse for it, and the windows that it opens.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QMouseEvent>
#include <QPointer>
#include <QStringList>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <utility>

#include "control/control_state.h"
#include "qt/widget/kurv_graph_state.h"
#include "tests/qt/widget/widget_support.h"

namespace kurv::test {

// A widget whose private parts are accessible.
class OpenGraph : public KurvGraph {
 public:
  ControlState& control() { return m_state->graph.state(); }
  GraphDocument& document() { return control().document; }
  Layout& layout() { return control().layout; }
  PlotView& view() { return *m_state->view; }
};

// The middle of a rectangle in twips, in pixels of a plot at 15 twips a pixel.
inline QPoint middle(const Rect& rect) {
  return QPointF((rect.left + rect.width / 2) / 15, (rect.top + rect.height / 2) / 15).toPoint();
}

// A mouse with one button, whose events go to the plot as the toolkit would send them.
class Mouse {
 public:
  explicit Mouse(QWidget& plot, Qt::MouseButton button = Qt::LeftButton)
      : m_plot(&plot), m_button(button) {}

  void press(QPointF at) { send(QEvent::MouseButtonPress, at, m_button, m_button); }
  void move(QPointF at, bool pressed = true) {
    send(QEvent::MouseMove, at, Qt::NoButton, pressed ? m_button : Qt::NoButton);
  }
  void release(QPointF at) { send(QEvent::MouseButtonRelease, at, m_button, Qt::NoButton); }
  void click(QPointF at) {
    press(at);
    release(at);
  }
  void double_click(QPointF at) {
    click(at);
    send(QEvent::MouseButtonDblClick, at, m_button, m_button);
    release(at);
  }
  void drag(QPointF from, QPointF to) {
    press(from);
    move((from + to) / 2);
    move(to);
    release(to);
  }

 private:
  void send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons pressed) {
    if (!m_plot) return;
    QMouseEvent event(type, at, m_plot->mapToGlobal(at), button, pressed, Qt::NoModifier);
    QApplication::sendEvent(m_plot, &event);
  }

  QPointer<QWidget> m_plot;
  Qt::MouseButton m_button;
};

// Notes which of the graph's windows open, and closes each of them.
class ShownWindows {
 public:
  ShownWindows() {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { close_shown(); });
    m_timer.start(1);
  }

  // The names since the last time, that of the properties with the tab that they showed.
  QStringList names() {
    process_all();
    QTest::qWait(20);
    return std::exchange(m_names, {});
  }

 private:
  void close_shown() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* const dialog = qobject_cast<QDialog*>(window);
      if (!dialog || !dialog->isVisible() || !dialog->objectName().startsWith("frm")) continue;
      const auto* const tabs = dialog->findChild<QTabWidget*>("tabCurves");
      const bool has_pages = tabs && dialog->objectName() == "frmPropert";
      m_names << dialog->objectName() +
                     (has_pages ? " " + tabs->tabText(tabs->currentIndex()) : "");
      dialog->reject();
    }
  }

  QTimer m_timer;
  QStringList m_names;
};

// A shown graph with title, subtitle and legend in their default positions.
class PlotTest : public testing::Test {
 protected:
  void SetUp() override {
    resize_plot(m_graph, {600, 400});
    m_graph.set_SubTitle("below");
    m_graph.plot(small_graph());
    m_graph.show();
    process_all();
    m_listener.redraws_since();
  }

  OpenGraph m_graph;
  PlotView& m_plot = m_graph.view();
  Listener m_listener{m_graph};
  Mouse m_mouse{m_plot};
};

}  // namespace kurv::test
