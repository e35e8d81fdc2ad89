// The mouse on the plot.
#include <QApplication>
#include <QMouseEvent>
#include <QPointer>

#include "control/control_state.h"
#include "control/mouse.h"
#include "qt/widget/plot_view.h"

namespace kurv {

namespace {

Integer button_bit(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return 1;
    case Qt::RightButton:
      return 2;
    case Qt::MiddleButton:
      return 4;
    default:
      return 0;
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
  event->accept();
  press(event->button(), event->position());
}

// The second press marks what a first one does, and what it opens comes when the button is up: a
// window that opened below a pressed button would never hear of its release.
void PlotView::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  if (event->button() != Qt::LeftButton) return;
  m_drag.reset();
  show_pointer();
  m_double_click = item_at(state(), twips(event->position()));
}

void PlotView::press(Qt::MouseButton button, QPointF at) {
  // While an item is dragged the other buttons have no say, whenever they come up.
  m_ignored.setFlag(button, m_drag.has_value());
  m_double_click.reset();
  if (button_bit(button) == 0 || m_drag) return;
  m_mouse = at;
  m_focused.reset();
  ControlState& control = m_client.control().state();
  const SurfacePoint point = twips(at);
  const std::optional<Item> item = item_at(control, point);
  m_on_item.setFlag(button, item.has_value());
  if (item) {
    const SurfacePoint grab = within(control, *item, point);
    item_mouse_down(control, grab);
    if (button == Qt::LeftButton) m_drag = Drag{*item, grab, at, at};
  } else {
    mouse_down(control, point);
  }
  show_pointer();
  update();
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
  m_mouse = event->position();
  // The button may have come up where nobody has told, such as below a message box.
  if (m_drag && !event->buttons().testFlag(Qt::LeftButton)) end_drag();
  if (m_drag) {
    m_drag->at = event->position();
    const double far = (m_drag->at - m_drag->from).manhattanLength();
    if (far >= QApplication::startDragDistance()) m_drag->has_begun = true;
    if (m_drag->has_begun) update();
  }
  show_pointer();
}

void PlotView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const Integer button = button_bit(event->button());
  if (button == 0 || m_ignored.testFlag(event->button())) return;
  const std::optional<Drag> drag = std::exchange(m_drag, std::nullopt);
  const auto twice = std::exchange(m_double_click, std::nullopt);
  const bool on_item = m_on_item.testFlag(event->button());
  m_on_item.setFlag(event->button(), false);
  m_mouse = event->position();

  // The host hears of the click before anything comes of it, and may delete the widget.
  const QPointer<PlotView> alive = this;
  const QPoint on_screen = event->globalPosition().toPoint();
  if (!on_item) {
    const Integer shift = shift_bits(event->modifiers());
    const SurfacePoint at = twips(event->position());
    m_client.handle(
        [&](Control& control) { mouse_up(control.state(), button, shift, at.x, at.y); });
  } else if (drag && drag->has_begun) {
    drop(*drag, event->position());
  }
  if (!alive) return;
  show_pointer();
  update();
  if (twice && event->button() == Qt::LeftButton) double_click(*twice);
  if (event->button() == Qt::RightButton) Q_EMIT menu_wanted(on_screen);
}

void PlotView::drop(const Drag& drag, QPointF at) {
  m_client.handle([&](Control& control) { control.drag(drag.item, drag.grab, twips(at)); });
}

void PlotView::end_drag() {
  m_drag.reset();
  show_pointer();
  update();
}

void PlotView::double_click(std::optional<Item> item) {
  if (item) return edit(*item);
  later([](ControlState& state) { kurv::double_click(state); });
}

void PlotView::leaveEvent(QEvent*) {
  m_mouse.reset();
  show_pointer();
}

void PlotView::hideEvent(QHideEvent*) {
  m_double_click.reset();
  end_drag();
}

}  // namespace kurv
