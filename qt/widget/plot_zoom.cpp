#include "qt/widget/plot_zoom.h"

#include <QKeyEvent>
#include <QPinchGesture>
#include <cmath>
#include <utility>

#include "control/control_state.h"

namespace kurv {

namespace {

constexpr double kNotch = 120;        // the angle of a wheel's notch, in the toolkit's unit
constexpr double kNotchFactor = 0.8;  // of the span
constexpr double kLeastNotch = 0.1;   // less is kept until it is more
constexpr double kKeyPan = 0.1;       // of the plot
constexpr int kPause = 700;           // milliseconds

Qt::KeyboardModifiers relevant(Qt::KeyboardModifiers modifiers) {
  return modifiers & ~Qt::KeypadModifier;
}

double factor_of(double notches) {
  return std::pow(kNotchFactor, notches);
}

double notches_of(double scale) {
  return -std::log(scale) / std::log(kNotchFactor);
}

// Removes what is enough to be drawn.
double take_notches(double& notches) {
  return std::abs(notches) < kLeastNotch ? 0 : std::exchange(notches, 0);
}

}  // namespace

PlotZoom::PlotZoom(Client& client, PlotView& view)
    : QObject(&view), m_client(client), m_view(view) {
  m_pause.setSingleShot(true);
  m_pause.setInterval(kPause);
  connect(&m_pause, &QTimer::timeout, this, &PlotZoom::end_gesture);
}

void PlotZoom::turn(bool on) {
  if (std::exchange(m_is_on, on) == on) return;
  if (on) {
    m_view.installEventFilter(this);
    m_view.grabGesture(Qt::PinchGesture);
    return;
  }
  m_view.removeEventFilter(this);
  m_view.ungrabGesture(Qt::PinchGesture);
  end_drag();
  end_gesture();
  m_pending.key_pan = {};
  press_space(false);
}

ControlState& PlotZoom::state() const {
  return m_client.control().state();
}

// -- Events ---------------------------------------------------------------------------------------

bool PlotZoom::eventFilter(QObject*, QEvent* event) {
  if (m_is_passing) return false;
  if (event->isInputEvent()) end_drag_of_other_data();
  switch (event->type()) {
    case QEvent::Wheel:
      return take_wheel(*static_cast<QWheelEvent*>(event));
    case QEvent::NativeGesture:
      return take_native_gesture(*static_cast<QNativeGestureEvent*>(event));
    case QEvent::Gesture:
      return take_gesture(*static_cast<QGestureEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return take_press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
      return take_move(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return take_release(*static_cast<QMouseEvent*>(event));
    case QEvent::ShortcutOverride:
      // Escape takes precedence over the host's shortcuts during a drag; other keys do not.
      if (!m_drag || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) return false;
      event->accept();
      return true;
    case QEvent::KeyPress:
      return take_key(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (key.key() == Qt::Key_Space && !key.isAutoRepeat()) press_space(false);
      return false;
    }
    case QEvent::FocusOut:
      press_space(false);
      return false;
    case QEvent::Hide:
      end_drag();
      return false;
    default:
      return false;
  }
}

// -- Wheel and pinch ------------------------------------------------------------------------------

bool PlotZoom::take_wheel(QWheelEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  if (modifiers & (Qt::AltModifier | Qt::MetaModifier) || !can_zoom(state())) return false;
  event.accept();
  if (m_drag || state().mouse.drag) return true;
  // With Shift some platforms report the other direction.
  const QPoint angle = event.angleDelta();
  const bool has_shift = modifiers.testFlag(Qt::ShiftModifier);
  const double notches = (angle.y() == 0 && has_shift ? angle.x() : angle.y()) / kNotch;
  const bool is_one_axis = has_shift != modifiers.testFlag(Qt::ControlModifier);
  zoom(is_one_axis && !has_shift ? 0 : notches, is_one_axis && has_shift ? 0 : notches,
       event.position());
  return true;
}

bool PlotZoom::take_native_gesture(const QNativeGestureEvent& event) {
  if (!can_zoom(state())) return false;
  switch (event.gestureType()) {
    case Qt::BeginNativeGesture:
      m_has_native_pinch = true;
      return true;
    case Qt::EndNativeGesture:
      m_has_native_pinch = false;
      return true;
    case Qt::ZoomNativeGesture: {
      const double notches = event.value() > -1 ? notches_of(1 + event.value()) : 0;
      zoom(notches, notches, event.position());
      return true;
    }
    default:
      return false;
  }
}

bool PlotZoom::take_gesture(QGestureEvent& event) {
  auto* const pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (!pinch || !can_zoom(state())) return false;
  event.accept(pinch);
  const double scale = pinch->scaleFactor();
  if (m_has_native_pinch || !(scale > 0) || !std::isfinite(scale)) return true;
  // The fingers have pressed what is under the first of them.
  cancel_gestures(state());
  const QPointF at = m_view.mapFromGlobal(pinch->centerPoint());
  zoom(notches_of(scale), notches_of(scale), at);
  return true;
}

void PlotZoom::zoom(double x_notches, double y_notches, QPointF at) {
  m_pending.x_notches += x_notches;
  m_pending.y_notches += y_notches;
  m_pending.at = at;
  draw_later();
}

// -- Keys -----------------------------------------------------------------------------------------

bool PlotZoom::take_key(const QKeyEvent& event) {
  if (m_drag && event.key() == Qt::Key_Escape) {
    m_ignored_buttons |= m_drag->button;
    end_drag();
    return true;
  }
  if (!can_zoom(state())) return false;
  const Qt::KeyboardModifiers modifiers = relevant(event.modifiers());
  if (event.key() == Qt::Key_Space && !modifiers) {
    if (!event.isAutoRepeat()) press_space(true);
    return true;
  }
  if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_0) {
    m_client.handle([](Control& control) { show_all(control.state()); });
    return true;
  }
  if (modifiers == Qt::ControlModifier && pan_by_key(event)) return true;
  // Plus needs Shift on some keyboards, and is the key of the equals sign on others.
  if (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)) return false;
  const bool is_plus = event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal;
  if (!is_plus && event.key() != Qt::Key_Minus) return false;
  const PlotRect& plot = state().layout.plot;
  const double pixel = m_view.twips(QPointF(1, 0)).x;
  const QPointF middle(plot.PlotLeft + plot.PlotWidth / 2.0, plot.PlotTop + plot.PlotHeight / 2.0);
  zoom(is_plus ? 1 : -1, is_plus ? 1 : -1, middle / pixel);
  return true;
}

// An item that has the keyboard's focus is moved by these keys.
bool PlotZoom::pan_by_key(const QKeyEvent& event) {
  const std::optional<HitTarget> target = m_view.focused();
  if (target && std::holds_alternative<Item>(*target)) return false;
  const PlotRect& plot = state().layout.plot;
  const auto x = static_cast<Single>(plot.PlotWidth * kKeyPan);
  const auto y = static_cast<Single>(plot.PlotHeight * kKeyPan);
  switch (event.key()) {
    case Qt::Key_Left:
      m_pending.key_pan.x += x;
      break;
    case Qt::Key_Right:
      m_pending.key_pan.x -= x;
      break;
    case Qt::Key_Up:
      m_pending.key_pan.y += y;
      break;
    case Qt::Key_Down:
      m_pending.key_pan.y -= y;
      break;
    default:
      return false;
  }
  draw_later();
  return true;
}

void PlotZoom::press_space(bool is_pressed) {
  if (std::exchange(m_has_space, is_pressed) != is_pressed) update_cursor();
}

// -- Drawing --------------------------------------------------------------------------------------

void PlotZoom::draw_later() {
  m_pause.start();
  if (std::exchange(m_pending.is_queued, true)) return;
  QMetaObject::invokeMethod(this, &PlotZoom::draw, Qt::QueuedConnection);
}

void PlotZoom::draw() {
  m_pending.is_queued = false;
  end_drag_of_other_data();
  const ZoomFactors factors{factor_of(take_notches(m_pending.x_notches)),
                            factor_of(take_notches(m_pending.y_notches))};
  const SurfacePoint at = m_view.twips(m_pending.at);
  const SurfacePoint key_pan = std::exchange(m_pending.key_pan, {});
  std::optional<SurfacePoint> drag;
  ViewLimits from;
  if (std::exchange(m_pending.drag_has_moved, false) && m_drag) {
    drag = m_view.twips(m_drag->to - m_drag->from);
    from = m_drag->limits;
  }
  m_client.handle([&](Control& control) {
    ControlState& graph = control.state();
    if (factors.x != 1 || factors.y != 1) zoom_at(graph, at, factors);
    if (key_pan.x != 0 || key_pan.y != 0) pan_from(graph, view_limits(graph), key_pan);
    if (drag) pan_from(graph, from, *drag);
  });
}

void PlotZoom::end_gesture() {
  m_pause.stop();
  m_pending.x_notches = m_pending.y_notches = 0;
  state().history.end_merging();
}

}  // namespace kurv
