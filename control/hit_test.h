// What is under a point of the plot.
//
// Points and rectangles are in twips of the surface. Edges belong to a rectangle.
#pragma once

#include <KurvGraph/item.h>
#include <KurvGraph/plot_surface.h>

#include <optional>
#include <variant>
#include <vector>

#include "model/layout.h"

namespace kurv {

struct ControlState;

// The parts of the axes, in the order in which a point is tested against them.
enum class Region { kXCaption, kXLabels, kYLabels, kFrame };

// The only target while no graph can be seen.
enum class EmptyPlot { kPlot };

// What can be edited by mouse, keyboard or screen reader.
using HitTarget = std::variant<Item, Region, EmptyPlot>;

// Where the item, or the part of the axes, can be seen. That is its place in the layout, except
// after refused data: the picture before them is still there, and so are its parts.
const Rect& rect_of(const ControlState& state, Item item);
// One rectangle, but two for the frame: along the x axis and along the y axis.
std::vector<Rect> rects_of(const ControlState& state, Region region);
std::vector<Rect> rects_of(const ControlState& state, const HitTarget& target);

// The item's place in the layout, which the next redraw draws it at.
Rect& place_of(Layout& layout, Item item);

// Whether the item can be seen: a graph is drawn, and the item has a text or an entry. Items that
// are not shown cannot be grabbed.
bool is_shown(const ControlState& state, Item item);
// Items as above; regions while a graph is drawn, and the empty plot while there is none.
bool is_shown(const ControlState& state, const HitTarget& target);

// The topmost item at the point.
std::optional<Item> item_at(const ControlState& state, SurfacePoint at);
// The first region that contains the point.
std::optional<Region> region_at(const ControlState& state, SurfacePoint at);
// The topmost item, else the region; nothing on the plain plot, and nothing without a graph.
std::optional<HitTarget> hit_test(const ControlState& state, SurfacePoint at);

}  // namespace kurv
