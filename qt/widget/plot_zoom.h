// Zooming and panning with mouse, touchpad and keyboard: events of the plot, translated for
// control/zoom.h. While it is off, it takes no event.
//
// Wheel and pinch zoom at the pointer, with Shift the x axis alone, with Ctrl the y axis alone. The
// middle button, and the left one with Space, pan; the left one with Ctrl draws a rectangle to zoom
// to. A press that does not become a drag is passed on to the plot. The keys are plus, minus, Ctrl
// with an arrow, and Ctrl+0 for "Show All".
//
// The graph is drawn once for all events that are waiting, after them.
#pragma once

#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <memory>
#include <optional>

#include "control/zoom.h"
#include "dialogs/client.h"
#include "qt/widget/plot_view.h"

namespace kurv {

class PlotZoom final : public QObject {
 public:
  // A child of the view; the client must outlive it.
  PlotZoom(Client& client, PlotView& view);

  bool is_on() const { return m_is_on; }
  void turn(bool on);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // A button that pans or draws a rectangle.
  struct Drag {
    Qt::MouseButton button;
    bool draws_rect;
    QPointF from;
    QPointF to;
    std::unique_ptr<QMouseEvent> press;  // for the plot, until the pointer has moved far enough
    ViewLimits limits = {};              // when it had moved so far
    unsigned generation = 0;             // of the data at that time
  };
  // What is done at the next drawing.
  struct Pending {
    bool is_queued = false;
    double x_notches = 0;  // of a wheel; above 0 is closer
    double y_notches = 0;
    QPointF at;
    SurfacePoint key_pan;
    bool drag_has_moved = false;
  };

  ControlState& state() const;
  bool take_wheel(QWheelEvent& event);
  bool take_native_gesture(const QNativeGestureEvent& event);
  bool take_gesture(QGestureEvent& event);
  void zoom(double x_notches, double y_notches, QPointF at);
  bool take_press(const QMouseEvent& event);
  bool take_move(const QMouseEvent& event);
  bool take_release(const QMouseEvent& event);
  bool take_key(const QKeyEvent& event);
  bool pan_by_key(const QKeyEvent& event);
  void press_space(bool is_pressed);
  void pass_press_on();
  void begin_drag();
  // Limits of other data mean nothing.
  void end_drag_of_other_data();
  // The rectangle that is being drawn, clipped to the plot.
  QRectF drawn_rect() const;
  void zoom_to_rect();
  void end_drag();
  void update_cursor();

  void draw_later();
  void draw();
  // The next gesture is a step of its own.
  void end_gesture();

  Client& m_client;
  PlotView& m_view;
  bool m_is_on = false;
  bool m_has_space = false;
  bool m_is_passing = false;           // a delayed press is being sent to the plot
  bool m_has_native_pinch = false;     // the toolkit may report the same pinch as a QPinchGesture
  Qt::MouseButtons m_ignored_buttons;  // that were pressed during a drag
  std::optional<Drag> m_drag;
  Pending m_pending;
  QTimer m_pause;  // after which a gesture without an end of its own has ended
  std::unique_ptr<QWidget> m_outline;
};

}  // namespace kurv
