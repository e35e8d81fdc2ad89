#include "control/mouse.h"

#include <algorithm>
#include <utility>

#include "control/commands.h"
#include "control/control_state.h"
#include "control/events.h"
#include "control/property_pages.h"
#include "control/redraw.h"
#include "render/legend_titles.h"

namespace kurv {

namespace {

// From the uppermost down: the later painted lies above.
constexpr Item kItems[] = {Item::kSubTitle, Item::kTitle, Item::kLegend};
constexpr Region kRegions[] = {Region::kXCaption, Region::kXLabels, Region::kYLabels,
                               Region::kFrame};

bool contains(const Rect& rect, SurfacePoint at) {
  return rect.left <= at.x && at.x <= rect.left + rect.width && rect.top <= at.y &&
         at.y <= rect.top + rect.height;
}

void grab(ControlState& state, SurfacePoint at) {
  state.mouse.GrabX = at.x;
  state.mouse.GrabY = at.y;
}

template <class AnyLayout>
auto& handle_of(AnyLayout& layout, Item item) {
  switch (item) {
    case Item::kTitle:
      return layout.imgTitle;
    case Item::kSubTitle:
      return layout.imgSubTitle;
    case Item::kLegend:
      break;
  }
  return layout.picLegend;
}

// Twips that no Single can hold are an overflow, not an infinite place that no file could keep.
Single moved(Double from, Double by) {
  return to_single(Variant(from + by));
}

}  // namespace

const Rect& rect_of(const ControlState& state, Item item) {
  return handle_of(state.layout, item);
}

std::vector<Rect> rects_of(const ControlState& state, Region region) {
  const Layout& layout = state.layout;
  switch (region) {
    case Region::kXCaption:
      return {layout.shpXcaption};
    case Region::kXLabels:
      return {layout.shpXlabels};
    case Region::kYLabels:
      return {layout.shpYlabels};
    case Region::kFrame:
      break;
  }
  return {layout.shpGraphBorder.begin(), layout.shpGraphBorder.end()};
}

bool is_shown(const ControlState& state, Item item) {
  if (!state.document.GraphValid) return false;
  const Rect& rect = rect_of(state, item);
  const bool has_room = rect.width > 0 && rect.height > 0;
  return has_room && (item != Item::kLegend || has_legend(state.document));
}

std::optional<Item> item_at(const ControlState& state, SurfacePoint at) {
  for (const Item item : kItems) {
    if (is_shown(state, item) && contains(rect_of(state, item), at)) return item;
  }
  return std::nullopt;
}

std::optional<Region> region_at(const ControlState& state, SurfacePoint at) {
  // Without a graph the regions lie where the last one had them, and nothing is to be seen there.
  if (!state.document.GraphValid) return std::nullopt;
  for (const Region region : kRegions) {
    const std::vector<Rect> rects = rects_of(state, region);
    const auto holds = [at](const Rect& rect) { return contains(rect, at); };
    if (std::any_of(rects.begin(), rects.end(), holds)) return region;
  }
  return std::nullopt;
}

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
  open_window_of(state, region_at(state, {state.mouse.GrabX, state.mouse.GrabY}));
}

void open_window_of(ControlState& state, std::optional<Region> region) {
  if (region == Region::kXLabels || region == Region::kYLabels) {
    state.shell.show_window(Window::kProperties, kAxesPage);
  } else if (region == Region::kFrame) {
    state.shell.show_window(Window::kProperties, kLinesPage);
  } else {
    state.shell.show_window(Window::kCurves, 0);
  }
}

void item_mouse_down(ControlState& state, SurfacePoint within) {
  grab(state, within);
  state.mouse.holder = MouseHolder::kItem;
}

void item_double_click(ControlState& state, Item item) {
  ChartOptions(state, item == Item::kLegend ? "curves" : "titles");
}

void drop(ControlState& state, Item item, SurfacePoint at) {
  state.mouse.holder = MouseHolder::kNobody;
  const Single left = moved(at.x, -state.mouse.GrabX);
  const Single top = moved(at.y, -state.mouse.GrabY);
  Rect& handle = handle_of(state.layout, item);
  handle.left = left;
  handle.top = top;
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
    item_double_click(state, *item);
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
