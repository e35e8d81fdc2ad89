#include "control/mouse.h"

#include <algorithm>
#include <utility>

#include "control/commands.h"
#include "control/control_state.h"
#include "control/events.h"
#include "control/property_pages.h"
#include "control/redraw.h"

namespace kurv {

namespace {

void grab(ControlState& state, SurfacePoint at) {
  state.mouse.GrabX = at.x;
  state.mouse.GrabY = at.y;
}

// Twips that no Single can hold are an overflow, not an infinite place that no file could keep.
Single moved(Double from, Double by) {
  return to_single(Variant(from + by));
}

}  // namespace

SurfacePoint within(const ControlState& state, Item item, SurfacePoint at) {
  const Rect& rect = rect_of(state, item);
  return {at.x - rect.left, at.y - rect.top};
}

void mouse_down(ControlState& state, SurfacePoint at) {
  grab(state, at);
  state.mouse.holder = MouseHolder::kSurface;
  const std::optional<Region> region = region_at(state, at);
  std::vector<Region>& marked = state.mouse.marked;
  if (region && std::find(marked.begin(), marked.end(), *region) == marked.end()) {
    marked.push_back(*region);
  }
}

void mouse_up(ControlState& state, Integer Button, Integer Shift, Single x, Single Y) {
  state.mouse.marked.clear();
  raise_MouseUp(state, Button, Shift, x, Y);
}

void double_click(ControlState& state) {
  const std::optional<Region> region = region_at(state, {state.mouse.GrabX, state.mouse.GrabY});
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

void item_mouse_down(ControlState& state, SurfacePoint within) {
  grab(state, within);
  state.mouse.holder = MouseHolder::kItem;
}

void drop(ControlState& state, Item item, SurfacePoint at) {
  state.mouse.holder = MouseHolder::kNobody;
  const Single left = moved(at.x, -state.mouse.GrabX);
  const Single top = moved(at.y, -state.mouse.GrabY);
  Rect& rect = rect_of(state, item);
  rect.left = left;
  rect.top = top;
  build_the_graph(state);
}

void press(ControlState& state, SurfacePoint at) {
  if (const std::optional<Item> item = item_at(state, at)) {
    item_mouse_down(state, within(state, *item, at));
  } else {
    mouse_down(state, at);
  }
}

void release(ControlState& state, Integer Button, Integer Shift, Single x, Single Y) {
  const MouseHolder holder = std::exchange(state.mouse.holder, MouseHolder::kNobody);
  const bool is_on_item = holder == MouseHolder::kNobody ? item_at(state, {x, Y}).has_value()
                                                         : holder == MouseHolder::kItem;
  if (!is_on_item) mouse_up(state, Button, Shift, x, Y);
}

void double_click(ControlState& state, SurfacePoint at) {
  if (const std::optional<Item> item = item_at(state, at)) {
    open_editor(state, *item);
  } else {
    double_click(state);
  }
}

void drag(ControlState& state, Item item, SurfacePoint grab, SurfacePoint at,
          std::optional<Item> on) {
  if (!is_shown(state, item)) return;
  item_mouse_down(state, grab);
  if (on) {
    const Rect& rect = rect_of(state, *on);
    at = {moved(at.x, rect.left), moved(at.y, rect.top)};
  }
  drop(state, item, at);
}

}  // namespace kurv
