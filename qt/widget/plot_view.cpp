#include "qt/widget/plot_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "control/control_state.h"
#include "control/curve_at.h"
#include "qt/widget/plot_accessible.h"
#include "qt/widget/plot_description.h"
#include "qt/widget/plot_outlines.h"

namespace kurv {

PlotView::PlotView(Client& client, const Picture& picture, QWidget* parent)
    : QWidget(parent), m_client(client), m_picture(picture) {
  setObjectName(QStringLiteral("PicGraph"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  make_plots_accessible();
}

// -- Picture --------------------------------------------------------------------------------------

double PlotView::scale() const {
  return m_picture.twips_per_device_pixel() * m_picture.image().devicePixelRatio();
}

SurfacePoint PlotView::twips(QPointF pixel) const {
  return {to_single(pixel.x() * scale()), to_single(pixel.y() * scale())};
}

QRectF PlotView::pixels(const Rect& rect) const {
  // Far positions must not overflow the integers of a QRect.
  const auto edge = [twips_per_pixel = scale()](double twips) {
    constexpr double kMaxCoordinate = 1e6;
    return std::isnan(twips) ? kMaxCoordinate
                             : std::clamp(twips / twips_per_pixel, -kMaxCoordinate, kMaxCoordinate);
  };
  return {QPointF(edge(rect.left), edge(rect.top)),
          QPointF(edge(rect.left + rect.width), edge(rect.top + rect.height))};
}

std::vector<QRectF> PlotView::pixels(const std::vector<Rect>& rects) const {
  std::vector<QRectF> result;
  for (const Rect& rect : rects) result.push_back(pixels(rect));
  return result;
}

QRect PlotView::bounds_of(const HitTarget& target) const {
  QRectF bounds;
  for (const QRectF& rect : pixels(rects_of(state(), target))) bounds |= rect;
  return bounds.toAlignedRect();
}

std::optional<HitTarget> PlotView::target_under(QPointF at) const {
  return hit_test(state(), twips(at));
}

Clicked PlotView::clicked_at(QPoint on_screen) const {
  const SurfacePoint at = twips(mapFromGlobal(on_screen));
  return {curve_at(state(), at, kReach * scale()), hit_test(state(), at)};
}

void PlotView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // At some ratios the picture does not cover the last device pixel.
  painter.fillRect(rect(), Qt::white);
  painter.drawImage(QPointF(0, 0), m_picture.image());
  for (const Region region : state().mouse.outlined) {
    outline_pressed(painter, pixels(rects_of(state(), region)));
  }
  if (const std::optional<HitTarget> target = focused(); target && hasFocus()) {
    outline_focused(painter, pixels(rects_of(state(), *target)), rect());
  }
  if (const std::optional<Rect> dragged = dragged_rect(state())) {
    outline_dragged(painter, pixels(*dragged));
  }
  paint_ring(painter);
}

void PlotView::picture_changed() {
  update();
  update_cursor();
}

void PlotView::describe() {
  setAccessibleName(name_of(state().document));
  setAccessibleDescription(description_of(state().document));
  read_out_again();
}

// -- Events ---------------------------------------------------------------------------------------

bool PlotView::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip: {
      const auto* const help = static_cast<QHelpEvent*>(event);
      show_tip(help->pos(), help->globalPos());
      return true;
    }
    case QEvent::ShortcutOverride: {
      // What the plot does with a key at this moment takes precedence over the host's shortcuts.
      auto* const key = static_cast<QKeyEvent*>(event);
      if (!handles(*key)) break;
      key->accept();
      return true;
    }
    default:
      break;
  }
  // A click may delete the widget.
  const QPointer<PlotView> alive = this;
  const bool is_taken = QWidget::event(event);
  if (alive && m_read_out.is_on) follow_mouse(*event);
  return is_taken;
}

void PlotView::show_tip(const QPoint& at, const QPoint& on_screen) {
  if (m_read_out.point) return show_point_tip();
  const std::optional<HitTarget> target = target_under(at);
  // The tip stays while the mouse is over this rectangle.
  const QRect around = target && std::holds_alternative<Item>(*target)
                           ? bounds_of(*target)
                           : QRect(at, QSize(1, 1)).adjusted(-4, -4, 4, 4);
  QToolTip::showText(on_screen, hint_of(target), this, around);
}

void PlotView::run_later(const std::function<void(ControlState&)>& work) {
  // A window may run an event loop of its own, which must not be nested in an event handler.
  QMetaObject::invokeMethod(
      this, [this, work] { m_client.handle([&](Control& control) { work(control.state()); }); },
      Qt::QueuedConnection);
}

void PlotView::edit(const HitTarget& target) {
  run_later([target](ControlState& state) { open_editor(state, target); });
}

void PlotView::set_busy(bool busy) {
  m_busy = busy;
  update_cursor();
}

void PlotView::set_gesture_cursor(std::optional<Qt::CursorShape> shape) {
  m_gesture_cursor = shape;
  update_cursor();
}

void PlotView::update_cursor() {
  const std::optional<Qt::CursorShape> shape = cursor_shape();
  if (shape) {
    setCursor(*shape);
  } else {
    unsetCursor();
  }
}

std::optional<Qt::CursorShape> PlotView::cursor_shape() const {
  if (m_busy) return std::nullopt;
  if (m_gesture_cursor) return m_gesture_cursor;
  switch (pointer_at(state(), m_mouse ? std::optional(twips(*m_mouse)) : std::nullopt)) {
    case PointerKind::kPlain:
      break;
    case PointerKind::kCanGrab:
      return Qt::OpenHandCursor;
    case PointerKind::kGrabbing:
      return Qt::ClosedHandCursor;
    case PointerKind::kCanEdit:
      return Qt::PointingHandCursor;
  }
  return std::nullopt;
}

}  // namespace kurv
