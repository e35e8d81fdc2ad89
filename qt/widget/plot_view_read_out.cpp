// The read-out of the plot: what is under the mouse, and what the keyboard points at.
#include <KurvGraph/fault.h>

#include <QMouseEvent>
#include <QToolTip>
#include <new>
#include <utility>

#include "control/control_state.h"
#include "qt/widget/plot_accessible.h"
#include "qt/widget/plot_outlines.h"
#include "qt/widget/plot_view.h"

namespace kurv {

void PlotView::set_readout_enabled(bool on) {
  if (!on) {
    leave_curves();
    show_read_out(std::nullopt, std::nullopt);
  }
  m_read_out.is_on = on;
  m_read_out.is_pressed = false;
  read_out_again();
}

void PlotView::set_x_text(AxisText text) {
  m_read_out.x_text = std::move(text);
  read_out_again();
}

std::optional<ReadOut> PlotView::focused_point() const {
  return is_on_curves() ? std::optional(m_read_out.shown) : std::nullopt;
}

QRect PlotView::ring() const {
  return m_read_out.ring ? ring_around(*m_read_out.ring) : QRect();
}

void PlotView::paint_ring(QPainter& painter) const {
  if (m_read_out.ring) ring_point(painter, *m_read_out.ring);
}

template <class Search>
std::optional<FoundPoint> PlotView::found(Search search) {
  try {
    return search(m_read_out.finder);
  } catch (const Fault&) {
    // A redraw has reported it. No exception may reach the event loop.
    return std::nullopt;
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

// -- Mouse ----------------------------------------------------------------------------------------

void PlotView::follow_mouse(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      m_read_out.is_pressed = true;
      leave_curves();
      break;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
      const auto& mouse = static_cast<const QMouseEvent&>(event);
      m_read_out.is_pressed = mouse.buttons() != Qt::NoButton;
      // The toolkit also reports moves of a mouse that is not moved, such as under a new window.
      if (mouse.globalPosition() != std::exchange(m_read_out.mouse, mouse.globalPosition()))
        leave_curves();
      break;
    }
    case QEvent::Hide:
    case QEvent::Leave:
      m_read_out.is_pressed = false;
      break;
    default:
      return;
  }
  read_out_again();
}

void PlotView::note_mouse(const QMouseEvent& event) {
  m_mouse = event.position();
  update_cursor();
  if (m_read_out.is_on) follow_mouse(event);
}

// A redraw, an edit or other limits may have moved the point.
void PlotView::read_out_again() {
  if (!m_read_out.is_on) return;
  if (!is_on_curves()) return read_out_at_mouse();
  const std::optional<FoundPoint> point =
      found([this](PointFinder& finder) { return finder.renewed(state(), *m_read_out.point); });
  if (!point) return leave_curves();
  const QRect ring_before = ring();
  const ReadOut said_before = m_read_out.shown;
  show_read_out(point, std::nullopt);
  const bool has_changed = m_read_out.shown != said_before;
  if (QToolTip::isVisible() && (has_changed || ring() != ring_before)) show_point_tip();
  if (has_changed) notify_focus(*this);
}

void PlotView::read_out_at_mouse() {
  if (!m_mouse || m_read_out.is_pressed || state().mouse.drag || !isVisible())
    return show_read_out(std::nullopt, std::nullopt);
  const SurfacePlace at{m_mouse->x() * scale(), m_mouse->y() * scale()};
  // What is over the points hides them.
  const std::optional<HitTarget> target = target_under(*m_mouse);
  const bool is_on_item = target && std::holds_alternative<Item>(*target);
  const std::optional<FoundPoint> point = found([&](PointFinder& finder) {
    return is_on_item ? std::nullopt : finder.nearest(state(), at, kReach * scale());
  });
  show_read_out(point, data_at(state(), at));
}

// -- What is shown --------------------------------------------------------------------------------

void PlotView::show_read_out(const std::optional<FoundPoint>& point,
                             const std::optional<DataPoint>& place) {
  const QRect before = ring();
  const bool is_same_point = m_read_out.point == point;
  m_read_out.point = point;
  m_read_out.ring.reset();
  const std::optional<SurfacePlace> centre = point ? place_of(state(), point->value) : std::nullopt;
  if (centre) m_read_out.ring = QPointF(centre->x, centre->y) / scale();
  if (ring() != before) {
    update(before);
    update(ring());
  }
  ReadOut read_out = read_out_of(state(), m_read_out.x_text, point, place, scale());
  if (read_out == m_read_out.shown) return;
  m_read_out.shown = std::move(read_out);
  if (!is_same_point && !is_on_curves() && QToolTip::isVisible())
    point ? show_point_tip() : QToolTip::hideText();
  Q_EMIT pointed(m_read_out.shown);
}

void PlotView::show_point_tip() {
  if (!m_read_out.shown.nearest) return;
  const QRect around = ring();
  // Beside the ring, also where the keyboard is the pointer.
  const QPoint at = mapToGlobal(around.bottomRight());
  const QString text = tip_text(*m_read_out.shown.nearest, m_read_out.shown);
  if (!is_on_curves()) return QToolTip::showText(at, text, this, around);
  // Without a rectangle the toolkit moves a tip only where its text changes.
  if (QToolTip::isVisible()) QToolTip::showText(at, QStringLiteral(" "), this);
  QToolTip::showText(at, text, this);
}

// -- Keyboard -------------------------------------------------------------------------------------

bool PlotView::go_to_curves() {
  if (!m_read_out.is_on) return false;
  const std::optional<FoundPoint> point =
      found([this](PointFinder& finder) { return finder.first(state()); });
  if (!point) return false;
  control_state().history.end_merging();
  m_focused.reset();
  update();
  m_read_out.is_by_keyboard = true;
  show_read_out(point, std::nullopt);
  show_point_tip();
  notify_focus(*this);
  return true;
}

void PlotView::leave_curves() {
  if (!std::exchange(m_read_out.is_by_keyboard, false)) return;
  show_read_out(std::nullopt, std::nullopt);
  QToolTip::hideText();
}

void PlotView::move_point(PointMove move) {
  const std::optional<FoundPoint> point =
      found([&](PointFinder& finder) { return finder.moved(state(), *m_read_out.point, move); });
  if (!point) return leave_curves();
  show_read_out(point, std::nullopt);
  show_point_tip();
  notify_focus(*this);
}

}  // namespace kurv
