// The events of the mouse, translated for the router in control/mouse.h.
#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <optional>

#include "control/control_state.h"
#include "qt/widget/plot_view.h"

namespace kurv {

namespace {

std::optional<MouseButton> routed(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MouseButton::kLeft;
    case Qt::RightButton:
      return MouseButton::kRight;
    case Qt::MiddleButton:
      return MouseButton::kMiddle;
    default:
      return std::nullopt;
  }
}

Integer button_bit(MouseButton button) {
  switch (button) {
    case MouseButton::kRight:
      return 2;
    case MouseButton::kMiddle:
      return 4;
    default:
      return 1;
  }
}

Integer shift_bits(Qt::KeyboardModifiers modifiers) {
  const int shift = modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0;
  const int control = modifiers.testFlag(Qt::ControlModifier) ? 2 : 0;
  const int alt = modifiers.testFlag(Qt::AltModifier) ? 4 : 0;
  return static_cast<Integer>(shift + control + alt);
}

}  // namespace

void PlotView::mousePressEvent(QMouseEvent* event) {
  take_press(*event, press);
}

void PlotView::mouseDoubleClickEvent(QMouseEvent* event) {
  take_press(*event, double_press);
}

void PlotView::take_press(QMouseEvent& event, RoutePress route) {
  event.accept();
  const std::optional<MouseButton> button = routed(event.button());
  if (!button) return;
  if (route(control_state(), *button, twips(event.position()))) {
    m_mouse = m_pressed_at = event.position();
    m_focused.reset();
  }
  update_cursor();
  update();
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
  m_mouse = event->position();
  if (event->buttons().testFlag(Qt::LeftButton)) {
    const double distance = (event->position() - m_pressed_at).manhattanLength();
    const bool is_far = distance >= QApplication::startDragDistance();
    if (drag_to(control_state(), twips(event->position()), is_far)) update();
  } else if (state().mouse.drag) {
    // The release went elsewhere, such as to a message box.
    end_drag();
  }
  update_cursor();
}

void PlotView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const std::optional<MouseButton> button = routed(event->button());
  if (!button) return;
  const SurfacePoint at = twips(event->position());
  const Release release = end_press(control_state(), *button, at);
  if (release.kind == ReleaseKind::kIgnored) return;
  m_mouse = event->position();

  // The host hears of the click before its window or menu opens, and may delete the widget.
  const QPointer<PlotView> alive = this;
  const QPoint on_screen = event->globalPosition().toPoint();
  if (release.has_effect()) {
    const Integer shift = shift_bits(event->modifiers());
    m_client.handle([&](Control& control) {
      deliver(control.state(), release, button_bit(*button), shift, at);
    });
  }
  if (!alive) return;
  update_cursor();
  update();
  // Only now: a window that opened at the second press would take the release away from the plot.
  if (const std::optional<DoubleClick> click = release.double_click) {
    run_later([click](ControlState& state) { open_double_click(state, *click); });
  }
  if (button == MouseButton::kRight) Q_EMIT menu_wanted(on_screen);
}

void PlotView::end_drag() {
  cancel_drag(control_state());
  update_cursor();
  update();
}

void PlotView::leaveEvent(QEvent*) {
  m_mouse.reset();
  update_cursor();
}

void PlotView::hideEvent(QHideEvent*) {
  cancel_gestures(control_state());
  update_cursor();
  update();
}

}  // namespace kurv
