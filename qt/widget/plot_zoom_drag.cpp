// Drags that pan or draw a rectangle.
#include <QCoreApplication>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "control/control_state.h"
#include "qt/widget/plot_outlines.h"
#include "qt/widget/plot_zoom.h"

namespace kurv {

namespace {

constexpr double kLeastDistance = 4;  // logical pixels, of a drag and of both sides of a rectangle

// The rectangle that follows the pointer. A widget of its own, so that the picture is not painted
// anew below the whole of it.
class ZoomRect final : public QWidget {
 public:
  explicit ZoomRect(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    outline_dragged(painter, QRectF(rect().adjusted(0, 0, -1, -1)));
  }
};

}  // namespace

bool PlotZoom::take_press(const QMouseEvent& event) {
  if (m_drag) {
    m_ignored_buttons |= event.button();
    return true;
  }
  m_ignored_buttons &= ~event.button();
  const bool is_left = event.button() == Qt::LeftButton;
  const bool draws_rect =
      is_left && !m_has_space && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
  const bool pans = event.button() == Qt::MiddleButton || (is_left && m_has_space);
  if ((!draws_rect && !pans) || state().mouse.drag || !can_zoom(state())) return false;
  if (m_pending.is_queued) draw();
  end_gesture();
  const QPointF at = event.position();
  m_drag = Drag{event.button(), draws_rect, at, at, std::unique_ptr<QMouseEvent>(event.clone())};
  update_cursor();
  m_view.note_mouse(event);
  return true;
}

bool PlotZoom::take_move(const QMouseEvent& event) {
  if (!m_drag) return false;
  if (!event.buttons().testFlag(m_drag->button)) {
    // The release went elsewhere, such as to a message box.
    end_drag();
    return false;
  }
  m_view.note_mouse(event);
  m_drag->to = event.position();
  const QPointF distance = m_drag->to - m_drag->from;
  const double longer = std::max(std::abs(distance.x()), std::abs(distance.y()));
  if (m_drag->press && longer >= kLeastDistance) begin_drag();
  if (m_drag->press) return true;
  if (!m_drag->draws_rect) {
    m_pending.drag_has_moved = true;
    draw_later();
    return true;
  }
  if (!m_outline) m_outline = std::make_unique<ZoomRect>(&m_view);
  m_outline->setGeometry(drawn_rect().toAlignedRect().adjusted(0, 0, 1, 1));
  m_outline->show();
  return true;
}

bool PlotZoom::take_release(const QMouseEvent& event) {
  if (m_ignored_buttons.testFlag(event.button())) {
    m_ignored_buttons &= ~event.button();
    m_view.note_mouse(event);
    return true;
  }
  if (!m_drag || event.button() != m_drag->button) return false;
  if (m_drag->press) {
    pass_press_on();
    return false;
  }
  m_drag->to = event.position();
  // What hears of the drawing may delete the widget.
  const QPointer<PlotZoom> alive(this);
  if (m_drag->draws_rect) {
    zoom_to_rect();
  } else {
    m_pending.drag_has_moved = true;
    draw();
  }
  if (!alive) return true;
  end_drag();
  end_gesture();
  m_view.note_mouse(event);
  return true;
}

void PlotZoom::begin_drag() {
  m_drag->press.reset();
  m_drag->limits = view_limits(state());
  m_drag->generation = state().history.generation();
}

void PlotZoom::end_drag_of_other_data() {
  if (!m_drag || m_drag->press || m_drag->generation == state().history.generation()) return;
  m_ignored_buttons |= m_drag->button;
  end_drag();
}

// The plot gets the press late, and then the release.
void PlotZoom::pass_press_on() {
  const std::unique_ptr<QMouseEvent> press = std::move(m_drag->press);
  end_drag();
  m_is_passing = true;
  QCoreApplication::sendEvent(&m_view, press.get());
  m_is_passing = false;
}

QRectF PlotZoom::drawn_rect() const {
  const PlotRect& plot = state().layout.plot;
  const double pixel = m_view.twips(QPointF(1, 0)).x;
  const QRectF inside(plot.PlotLeft / pixel, plot.PlotTop / pixel, plot.PlotWidth / pixel,
                      plot.PlotHeight / pixel);
  return QRectF(m_drag->from, m_drag->to).normalized() & inside;
}

void PlotZoom::zoom_to_rect() {
  const QRectF rect = drawn_rect();
  end_drag();
  if (rect.width() < kLeastDistance || rect.height() < kLeastDistance) return;
  const SurfacePoint corner = m_view.twips(rect.topLeft());
  const SurfacePoint opposite = m_view.twips(rect.bottomRight());
  m_client.handle([&](Control& control) { kurv::zoom_to(control.state(), corner, opposite); });
}

void PlotZoom::end_drag() {
  m_drag.reset();
  m_outline.reset();
  m_pending.drag_has_moved = false;
  update_cursor();
}

void PlotZoom::update_cursor() {
  std::optional<Qt::CursorShape> shape;
  if (m_has_space) shape = Qt::OpenHandCursor;
  if (m_drag) shape = m_drag->draws_rect ? Qt::CrossCursor : Qt::ClosedHandCursor;
  m_view.set_gesture_cursor(shape);
}

}  // namespace kurv
