#include "control/mouse.h"

#include <algorithm>
#include <utility>

#include "control/commands.h"
#include "control/control_state.h"
#include "control/events.h"
#include "control/property_pages.h"
#include "control/redraw.h"
#include "control/undo.h"

namespace kurv {

namespace {

void set_press_position(MouseState& mouse, SurfacePoint at) {
  mouse.press_x = at.x;
  mouse.press_y = at.y;
}

void outline_region(ControlState& state, SurfacePoint at) {
  const std::optional<Region> region = region_at(state, at);
  std::vector<Region>& outlined = state.mouse.outlined;
  if (region && std::find(outlined.begin(), outlined.end(), *region) == outlined.end()) {
    outlined.push_back(*region);
  }
}

// A graph file is read with places of 16 bits, so an item is dropped nowhere beyond them. The
// largest place rounds to one of 16 bits and is still beyond the edge of the widest surface, so
// that the redraw brings the item back from there as well.
constexpr Single kLeastPlace = -32768;
constexpr Single kLargestPlace = 32767.25F;

Single kept_in_16_bits(Single place) {
  return std::clamp(place, kLeastPlace, kLargestPlace);
}

// A position that no Single holds is an overflow: an infinite one could not be saved in a file.
Single moved(Double from, Double by) {
  return to_single(Variant(from + by));
}

}  // namespace

// -- Press ----------------------------------------------------------------------------------------

bool press(ControlState& state, MouseButton button, SurfacePoint at) {
  MouseState& mouse = state.mouse;
  mouse.double_click.reset();
  if (mouse.drag) {
    mouse.owner(button) = PressOwner::kIgnored;
    return false;
  }
  if (const std::optional<Item> item = item_at(state, at)) {
    const Rect& rect = rect_of(state, *item);
    const SurfacePoint grab{at.x - rect.left, at.y - rect.top};
    set_press_position(mouse, grab);
    mouse.owner(button) = PressOwner::kItem;
    if (button == MouseButton::kLeft) mouse.drag = ItemDrag{*item, grab, at};
  } else {
    set_press_position(mouse, at);
    mouse.owner(button) = PressOwner::kSurface;
    outline_region(state, at);
  }
  return true;
}

bool double_press(ControlState& state, MouseButton button, SurfacePoint at) {
  const bool is_taken = press(state, button, at);
  if (button == MouseButton::kLeft) {
    state.mouse.drag.reset();
    state.mouse.double_click = DoubleClick{item_at(state, at)};
  }
  return is_taken;
}

// -- Drag -----------------------------------------------------------------------------------------

bool drag_to(ControlState& state, SurfacePoint at, bool is_beyond_threshold) {
  std::optional<ItemDrag>& drag = state.mouse.drag;
  if (!drag) return false;
  drag->at = at;
  if (is_beyond_threshold) drag->has_begun = true;
  return drag->has_begun;
}

void cancel_drag(ControlState& state) {
  state.mouse.drag.reset();
}

void cancel_gestures(ControlState& state) {
  cancel_drag(state);
  state.mouse.double_click.reset();
}

std::optional<Rect> dragged_rect(const ControlState& state) {
  const std::optional<ItemDrag>& drag = state.mouse.drag;
  if (!drag || !drag->has_begun) return std::nullopt;
  Rect rect = rect_of(state, drag->item);
  rect.left = drag->at.x - drag->grab.x;
  rect.top = drag->at.y - drag->grab.y;
  return rect;
}

// -- Release --------------------------------------------------------------------------------------

Release end_press(ControlState& state, MouseButton button, SurfacePoint at) {
  MouseState& mouse = state.mouse;
  // It stays ignored until it is pressed again.
  if (mouse.owner(button) == PressOwner::kIgnored) return {};
  PressOwner owner = std::exchange(mouse.owner(button), PressOwner::kNobody);
  // A button that was pressed before the left one ends the drag, too.
  const std::optional<ItemDrag> drag = std::exchange(mouse.drag, std::nullopt);
  const std::optional<DoubleClick> click = std::exchange(mouse.double_click, std::nullopt);
  if (owner == PressOwner::kNobody && button == MouseButton::kAny && item_at(state, at)) {
    owner = PressOwner::kItem;
  }

  Release release{ReleaseKind::kMouseUp, {}, {}};
  if (owner == PressOwner::kItem) {
    const bool is_drop = drag && drag->has_begun;
    release.kind = is_drop ? ReleaseKind::kDrop : ReleaseKind::kClick;
    if (is_drop) release.drag = *drag;
  }
  if (button == MouseButton::kLeft) release.double_click = click;
  return release;
}

void deliver(ControlState& state, const Release& release, Integer Button, Integer Shift,
             SurfacePoint at) {
  if (release.kind == ReleaseKind::kMouseUp) {
    state.mouse.outlined.clear();
    raise_MouseUp(state, Button, Shift, at.x, at.y);
  } else if (release.kind == ReleaseKind::kDrop) {
    drag(state, release.drag.item, release.drag.grab, at);
  }
}

// -- Double click ---------------------------------------------------------------------------------

void open_double_click(ControlState& state, const DoubleClick& click) {
  if (click.item) return open_editor(state, *click.item);
  const std::optional<Region> region = region_at(state, {state.mouse.press_x, state.mouse.press_y});
  open_editor(state, region ? HitTarget(*region) : HitTarget(EmptyPlot::kPlot));
}

void open_editor(ControlState& state, const HitTarget& target) {
  if (const Item* const item = std::get_if<Item>(&target)) {
    ChartOptions(state, *item == Item::kLegend ? "curves" : "titles");
  } else if (target == HitTarget(Region::kXLabels) || target == HitTarget(Region::kYLabels)) {
    state.shell.show_window(Window::kProperties, kAxesPage);
  } else if (target == HitTarget(Region::kFrame)) {
    state.shell.show_window(Window::kProperties, kLinesPage);
  } else {
    state.shell.show_window(Window::kCurves, 0);
  }
}

// -- Pointer --------------------------------------------------------------------------------------

PointerKind pointer_at(const ControlState& state, std::optional<SurfacePoint> at) {
  if (state.mouse.drag) return PointerKind::kGrabbing;
  const std::optional<HitTarget> target = at ? hit_test(state, *at) : std::nullopt;
  if (!target) return PointerKind::kPlain;
  return std::holds_alternative<Item>(*target) ? PointerKind::kCanGrab : PointerKind::kCanEdit;
}

// -- Members of Control ---------------------------------------------------------------------------

void press_mouse(ControlState& state, SurfacePoint at) {
  press(state, MouseButton::kAny, at);
}

void release_mouse(ControlState& state, Integer Button, Integer Shift, SurfacePoint at) {
  deliver(state, end_press(state, MouseButton::kAny, at), Button, Shift, at);
}

void double_click(ControlState& state, SurfacePoint at) {
  open_double_click(state, {item_at(state, at)});
}

void drag(ControlState& state, Item item, SurfacePoint grab, SurfacePoint at,
          std::optional<Item> on) {
  if (!is_shown(state, item)) return;
  set_press_position(state.mouse, grab);
  if (on) {
    const Rect& rect = rect_of(state, *on);
    at = {moved(at.x, rect.left), moved(at.y, rect.top)};
  }
  drop(state, item, at);
}

const char* drop_name(Item item) {
  switch (item) {
    case Item::kTitle:
      return "Move Title";
    case Item::kSubTitle:
      return "Move Subtitle";
    case Item::kLegend:
      break;
  }
  return "Move Legend";
}

void drop(ControlState& state, Item item, SurfacePoint at) {
  const StepRecorder step(state, {drop_name(item)});
  state.mouse.owner(MouseButton::kAny) = PressOwner::kNobody;
  const Single left = kept_in_16_bits(moved(at.x, -state.mouse.press_x));
  const Single top = kept_in_16_bits(moved(at.y, -state.mouse.press_y));
  Rect& rect = place_of(state.layout, item);
  rect.left = left;
  rect.top = top;
  build_the_graph(state);
}

}  // namespace kurv
