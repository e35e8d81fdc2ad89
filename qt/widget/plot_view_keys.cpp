// The keyboard on the plot: Tab visits the hit targets, and keys do there what the mouse does.
#include <QAccessible>
#include <QKeyEvent>
#include <algorithm>

#include "control/control_state.h"
#include "control/undo.h"
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

// On the curves.
std::optional<PointMove> point_move_of(const QKeyEvent& event) {
  if (modifiers_of(event)) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left:
      return PointMove::kPrevious;
    case Qt::Key_Right:
      return PointMove::kNext;
    case Qt::Key_PageUp:
      return PointMove::kPageBack;
    case Qt::Key_PageDown:
      return PointMove::kPageOn;
    case Qt::Key_Home:
      return PointMove::kFirst;
    case Qt::Key_End:
      return PointMove::kLast;
    case Qt::Key_Up:
      return PointMove::kPreviousCurve;
    case Qt::Key_Down:
      return PointMove::kNextCurve;
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<HitTarget> PlotView::focused() const {
  return m_focused && is_shown(state(), *m_focused) ? m_focused : std::nullopt;
}

void PlotView::focus_on(const HitTarget& target) {
  setFocus(Qt::OtherFocusReason);
  set_focused(target);
}

void PlotView::set_focused(const std::optional<HitTarget>& target) {
  control_state().history.end_merging();
  m_focused = target;
  leave_curves();
  update();
  notify_focus(*this);
}

bool PlotView::focusNextPrevChild(bool next) {
  std::vector<HitTarget> targets = targets_in_tab_order(state());
  if (is_on_curves()) {
    leave_curves();
    if (next) return QWidget::focusNextPrevChild(true);
    set_focused(targets.back());
    return true;
  }
  if (!next) std::reverse(targets.begin(), targets.end());
  const auto current =
      m_focused ? std::find(targets.begin(), targets.end(), *m_focused) : targets.end();
  // Without a focused target, Tab goes to the first one and Shift+Tab leaves the plot.
  const auto next_target = current != targets.end() ? current + 1
                           : next                   ? targets.begin()
                                                    : targets.end();
  if (next_target == targets.end())
    return (next && go_to_curves()) || QWidget::focusNextPrevChild(next);
  set_focused(*next_target);
  return true;
}

void PlotView::focusInEvent(QFocusEvent* event) {
  const std::vector<HitTarget> targets = targets_in_tab_order(state());
  if (event->reason() == Qt::TabFocusReason) set_focused(targets.front());
  if (event->reason() == Qt::BacktabFocusReason && !go_to_curves()) set_focused(targets.back());
  QWidget::focusInEvent(event);
}

// Menus, dialogs and other programs take the focus temporarily; the target then stays focused.
void PlotView::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  const bool is_temporary = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason;
  if (!is_temporary) {
    m_focused.reset();
    leave_curves();
  }
  QWidget::focusOutEvent(event);
}

bool PlotView::handles(const QKeyEvent& event) const {
  if (is_escape(event)) return state().mouse.drag || focused() || is_on_curves();
  if (is_on_curves()) return point_move_of(event).has_value();
  return (is_enter(event) && focused()) || step_of(event);
}

void PlotView::keyPressEvent(QKeyEvent* event) {
  const std::optional<HitTarget> target = focused();
  if (!handles(*event)) return QWidget::keyPressEvent(event);
  if (is_escape(*event)) {
    leave_curves();
    state().mouse.drag ? end_drag() : set_focused(std::nullopt);
  } else if (is_on_curves()) {
    move_point(*point_move_of(*event));
  } else if (is_enter(*event)) {
    edit(*target);
  } else {
    move_focused(*step_of(*event));
  }
}

std::optional<SurfacePoint> PlotView::step_of(const QKeyEvent& event) const {
  const std::optional<HitTarget> target = focused();
  if (!target || !std::holds_alternative<Item>(*target)) return std::nullopt;
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
  const Item item = std::get<Item>(*m_focused);
  m_client.handle([&](Control& control) {
    // The presses that move an item to its place are one step.
    const StepRecorder recorder(control.state(), {.name = drop_name(item), .key = drop_name(item)});
    const Rect& rect = rect_of(state(), item);
    control.drag(item, {0, 0}, {rect.left + step.x, rect.top + step.y});
  });
}

Clicked PlotView::clicked_by_key() const {
  if (!is_on_curves()) return {{}, focused()};
  const FoundPoint& point = *m_read_out.point;
  // A function curve is neither renamed nor hidden in the menu.
  if (point.is_function) return {};
  return {point.curve, {}};
}

QPoint PlotView::menu_point() const {
  if (is_on_curves() && hasFocus()) return mapToGlobal(ring().center());
  const std::optional<HitTarget> target = focused();
  if (!target || !hasFocus()) return mapToGlobal(rect().center());
  const QRect bounds = bounds_of(*target) & rect();
  return mapToGlobal(bounds.isEmpty() ? rect().center() : bounds.center());
}

}  // namespace kurv
