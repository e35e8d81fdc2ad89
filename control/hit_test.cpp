#include "control/hit_test.h"

#include <algorithm>

#include "control/control_state.h"
#include "render/legend_titles.h"

namespace kurv {

namespace {

// From top to bottom: what is painted later covers what is painted before.
constexpr Item kItems[] = {Item::kSubTitle, Item::kTitle, Item::kLegend};
constexpr Region kRegions[] = {Region::kXCaption, Region::kXLabels, Region::kYLabels,
                               Region::kFrame};

bool contains(const Rect& rect, SurfacePoint at) {
  return rect.left <= at.x && at.x <= rect.left + rect.width && rect.top <= at.y &&
         at.y <= rect.top + rect.height;
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

bool has_picture(const ControlState& state) {
  return state.document.GraphValid || state.last_picture;
}

const Layout& visible_layout(const ControlState& state) {
  const bool is_stale = !state.document.GraphValid && state.last_picture;
  return is_stale ? state.last_picture->layout : state.layout;
}

bool shows_legend(const ControlState& state) {
  return state.document.GraphValid ? has_legend(state.document) : state.last_picture->has_legend;
}

}  // namespace

const Rect& rect_of(const ControlState& state, Item item) {
  return handle_of(visible_layout(state), item);
}

Rect& place_of(Layout& layout, Item item) {
  return handle_of(layout, item);
}

std::vector<Rect> rects_of(const ControlState& state, Region region) {
  const Layout& layout = visible_layout(state);
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

std::vector<Rect> rects_of(const ControlState& state, const HitTarget& target) {
  if (const Item* const item = std::get_if<Item>(&target)) return {rect_of(state, *item)};
  if (const Region* const region = std::get_if<Region>(&target)) return rects_of(state, *region);
  return {{0, 0, to_single(state.surface.ScaleWidth()), to_single(state.surface.ScaleHeight())}};
}

bool is_shown(const ControlState& state, Item item) {
  if (!has_picture(state)) return false;
  const Rect& rect = rect_of(state, item);
  const bool has_extent = rect.width > 0 && rect.height > 0;
  return has_extent && (item != Item::kLegend || shows_legend(state));
}

bool is_shown(const ControlState& state, const HitTarget& target) {
  if (const Item* const item = std::get_if<Item>(&target)) return is_shown(state, *item);
  return std::holds_alternative<Region>(target) == has_picture(state);
}

std::optional<Item> item_at(const ControlState& state, SurfacePoint at) {
  for (const Item item : kItems) {
    if (is_shown(state, item) && contains(rect_of(state, item), at)) return item;
  }
  return std::nullopt;
}

std::optional<Region> region_at(const ControlState& state, SurfacePoint at) {
  // Without a picture the layout may still have the regions of one that is gone.
  if (!has_picture(state)) return std::nullopt;
  for (const Region region : kRegions) {
    const std::vector<Rect> rects = rects_of(state, region);
    const auto contains_point = [at](const Rect& rect) { return contains(rect, at); };
    if (std::any_of(rects.begin(), rects.end(), contains_point)) return region;
  }
  return std::nullopt;
}

std::optional<HitTarget> hit_test(const ControlState& state, SurfacePoint at) {
  if (const std::optional<Item> item = item_at(state, at)) return *item;
  if (const std::optional<Region> region = region_at(state, at)) return *region;
  return std::nullopt;
}

}  // namespace kurv
