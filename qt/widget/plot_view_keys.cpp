// The keyboard on the plot: Tab walks its places, and what the mouse does there the keys do too.
#include <QAccessible>
#include <QKeyEvent>
#include <algorithm>

#include "control/control_state.h"
#include "qt/widget/plot_accessible.h"
#include "qt/widget/plot_view.h"

namespace kurv {

namespace {

// Twips.
constexpr Single kStep = 75;
constexpr Single kSmallStep = 15;

Qt::KeyboardModifiers modifiers_of(const QKeyEvent& event) {
  return event.modifiers() & ~Qt::KeypadModifier;
}

bool is_enter(const QKeyEvent& event) {
  const bool is_it = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  return is_it && !modifiers_of(event);
}

bool is_escape(const QKeyEvent& event) {
  return event.key() == Qt::Key_Escape && !modifiers_of(event);
}

}  // namespace

std::optional<Place> PlotView::focused() const {
  return m_place && is_there(state(), *m_place) ? m_place : std::nullopt;
}

void PlotView::focus_on(const Place& place) {
  setFocus(Qt::OtherFocusReason);
  reach(place);
}

void PlotView::reach(const std::optional<Place>& place) {
  m_place = place;
  update();
  tell_focus(*this);
}

bool PlotView::focusNextPrevChild(bool next) {
  std::vector<Place> places = places_of(state());
  if (!next) std::reverse(places.begin(), places.end());
  const auto here = m_place ? std::find(places.begin(), places.end(), *m_place) : places.end();
  // From the plot as a whole the way forward leads into it, and the way back out of it.
  const auto there = here != places.end() ? here + 1 : next ? places.begin() : places.end();
  if (there == places.end()) return QWidget::focusNextPrevChild(next);
  reach(*there);
  return true;
}

void PlotView::focusInEvent(QFocusEvent* event) {
  const std::vector<Place> places = places_of(state());
  if (event->reason() == Qt::TabFocusReason) reach(places.front());
  if (event->reason() == Qt::BacktabFocusReason) reach(places.back());
  QWidget::focusInEvent(event);
}

// A menu, a dialog or another program has the focus for a while only.
void PlotView::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  const bool for_a_while = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (!for_a_while) m_place.reset();
  QWidget::focusOutEvent(event);
}

bool PlotView::wants(const QKeyEvent& event) const {
  if (is_escape(event)) return m_drag || focused();
  return (is_enter(event) && focused()) || step_of(event);
}

void PlotView::keyPressEvent(QKeyEvent* event) {
  const std::optional<Place> place = focused();
  if (!wants(*event)) return QWidget::keyPressEvent(event);
  if (is_escape(*event)) {
    m_drag ? end_drag() : reach(std::nullopt);
  } else if (is_enter(*event)) {
    edit(*place);
  } else {
    move_focused(*step_of(*event));
  }
}

std::optional<SurfacePoint> PlotView::step_of(const QKeyEvent& event) const {
  const std::optional<Place> place = focused();
  if (!place || !std::holds_alternative<Item>(*place)) return std::nullopt;
  const Qt::KeyboardModifiers modifiers = modifiers_of(event);
  if (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier)) return std::nullopt;
  const Single step = modifiers ? kSmallStep : kStep;
  switch (event.key()) {
    case Qt::Key_Left:
      return SurfacePoint{-step, 0};
    case Qt::Key_Right:
      return SurfacePoint{step, 0};
    case Qt::Key_Up:
      return SurfacePoint{0, -step};
    case Qt::Key_Down:
      return SurfacePoint{0, step};
    default:
      return std::nullopt;
  }
}

void PlotView::move_focused(SurfacePoint step) {
  const Item item = std::get<Item>(*m_place);
  m_client.handle([&](Control& control) {
    const Rect& rect = rect_of(state(), item);
    control.drag(item, {0, 0}, {rect.left + step.x, rect.top + step.y});
  });
}

QPoint PlotView::menu_point() const {
  const std::optional<Place> place = focused();
  if (!place || !hasFocus()) return mapToGlobal(rect().center());
  const QRect bounds = bounds_of(*place) & rect();
  return mapToGlobal(bounds.isEmpty() ? rect().center() : bounds.center());
}

}  // namespace kurv
