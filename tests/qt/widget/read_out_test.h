// A plot with a read-out, and what it has said.
#pragma once

#include <QHelpEvent>
#include <QToolTip>
#include <string>
#include <vector>

#include "tests/qt/widget/plot_test.h"

namespace kurv::test {

// small_graph(): a is 1, 4, 2 and b is 3, 1, 5 at x 1, 2, 3.
class WidgetReadOut : public PlotTest {
 protected:
  static constexpr QRgb kRingColour = 0xFF003C8C;

  void SetUp() override {
    PlotTest::SetUp();
    QObject::connect(&m_graph, &KurvGraph::pointed, &m_graph,
                     [this](const ReadOut& read_out) { m_read_outs.push_back(read_out); });
  }
  void TearDown() override { QToolTip::hideText(); }

  QPointF at(double x, double y) const {
    return *m_graph.pixel_of(x, y) - m_graph.plot_rect().topLeft();
  }
  void point(QPointF pixel) {
    m_mouse.move(pixel, false);
    process_all();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&m_plot, key, modifiers);
    process_all();
  }
  // As a mouse that rests.
  QString tip_at(QPointF pixel) {
    QHelpEvent event(QEvent::ToolTip, pixel.toPoint(), m_plot.mapToGlobal(pixel.toPoint()));
    QApplication::sendEvent(&m_plot, &event);
    return QToolTip::text();
  }
  bool has_ring(QPointF centre) {
    const QImage image = m_plot.grab().toImage();
    // Its edge is blended where the centre is no whole pixel.
    const auto has_ink = [&](QPointF edge) {
      const QRect around(edge.toPoint() - QPoint(1, 1), QSize(3, 3));
      for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
          if (image.pixel(x, y) == kRingColour) return true;
        }
      }
      return false;
    };
    return has_ink(centre + QPointF(6, 0)) && has_ink(centre - QPointF(0, 6));
  }
  void go_to_curves() {
    QApplication::setActiveWindow(&m_graph);
    m_plot.focus_on(Region::kFrame);
    key(Qt::Key_Tab);
  }
  std::string said() {
    const auto& last = m_read_outs.back();
    return last.nearest
               ? last.nearest->name.toStdString() + ' ' + std::to_string(last.nearest->point) +
                     ": " + last.x_text.toStdString() + ' ' + last.y_text.toStdString()
               : last.x_text.toStdString() + ' ' + last.y_text.toStdString();
  }

  std::vector<ReadOut> m_read_outs;
};

}  // namespace kurv::test
