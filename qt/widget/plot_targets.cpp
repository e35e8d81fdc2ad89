#include "qt/widget/plot_targets.h"

#include <algorithm>
#include <iterator>

#include "control/control_state.h"

namespace kurv {

namespace {

struct Texts {
  const char* name;
  const char* hint;
};

Texts texts_of(Item item) {
  switch (item) {
    case Item::kTitle:
      return {"Title", "Drag to move the title; double-click to edit titles and fonts"};
    case Item::kSubTitle:
      return {"Subtitle", "Drag to move the subtitle; double-click to edit titles and fonts"};
    case Item::kLegend:
      break;
  }
  return {"Legend", "Drag to move the legend; double-click to edit the curves"};
}

Texts texts_of(Region region) {
  switch (region) {
    case Region::kXCaption:
      return {"Name of the x axis", "Double-click to edit the names of the variables"};
    case Region::kXLabels:
      return {"Labels of the x axis", "Double-click to edit the axes"};
    case Region::kYLabels:
      return {"Labels of the y axis", "Double-click to edit the axes"};
    case Region::kFrame:
      break;
  }
  return {"Frame", "Double-click to edit lines and markers"};
}

Texts texts_of(Whole) {
  return {"Empty plot", "Double-click to edit the curves"};
}

Texts texts_of(const Place& place) {
  return std::visit([](const auto& kind) { return texts_of(kind); }, place);
}

}  // namespace

const std::vector<Place>& all_places() {
  static const std::vector<Place> all{Item::kTitle,      Item::kSubTitle,  Item::kLegend,
                                      Region::kXCaption, Region::kXLabels, Region::kYLabels,
                                      Region::kFrame,    Whole::kPlot};
  return all;
}

bool is_there(const ControlState& state, const Place& place) {
  if (const Item* const item = std::get_if<Item>(&place)) return is_shown(state, *item);
  return std::holds_alternative<Region>(place) == bool(state.document.GraphValid);
}

std::vector<Place> places_of(const ControlState& state) {
  std::vector<Place> found;
  std::copy_if(all_places().begin(), all_places().end(), std::back_inserter(found),
               [&](const Place& place) { return is_there(state, place); });
  return found;
}

std::optional<Place> place_at(const ControlState& state, SurfacePoint at) {
  if (!state.document.GraphValid) return std::nullopt;
  if (const std::optional<Item> item = item_at(state, at)) return *item;
  if (const std::optional<Region> region = region_at(state, at)) return *region;
  return std::nullopt;
}

std::vector<Rect> rects_of(const ControlState& state, const Place& place) {
  if (const Item* const item = std::get_if<Item>(&place)) return {rect_of(state, *item)};
  if (const Region* const region = std::get_if<Region>(&place)) return rects_of(state, *region);
  return {{0, 0, to_single(state.surface.ScaleWidth()), to_single(state.surface.ScaleHeight())}};
}

QString name_of(const Place& place) {
  return QLatin1String(texts_of(place).name);
}

QString hint_of(const std::optional<Place>& place) {
  if (!place) return QStringLiteral("Double-click to edit the curves; right-click for more");
  return QLatin1String(texts_of(*place).hint);
}

void edit_place(ControlState& state, const Place& place) {
  if (const Item* const item = std::get_if<Item>(&place)) {
    item_double_click(state, *item);
  } else {
    const Region* const region = std::get_if<Region>(&place);
    open_window_of(state, region ? std::optional(*region) : std::nullopt);
  }
}

}  // namespace kurv
