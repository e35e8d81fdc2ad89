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

// The only target while no graph is drawn.
enum class EmptyPlot { kPlot };

// What can be edited by mouse, keyboard or screen reader.
using HitTarget = std::variant<Item, Region, EmptyPlot>;

const Rect& rect_of(const ControlState& state, Item item);
Rect& rect_of(ControlState& state, Item item);
// One rectangle, but two for the frame: along the x axis and along the y axis.
std::vector<Rect> rects_of(const ControlState& state, Region region);
std::vector<Rect> rects_of(const ControlState& state, const HitTarget& target);

// Whether the item can be seen: there is a graph, and the item has a text or an entry. Items that
// are not shown cannot be grabbed.
bool is_shown(const ControlState& state, Item item);
// Items as above; regions while there is a graph, and the empty plot while there is none.
bool is_shown(const ControlState& state, const HitTarget& target);

// The topmost item at the point.
std::optional<Item> item_at(const ControlState& state, SurfacePoint at);
// The first region that contains the point.
std::optional<Region> region_at(const ControlState& state, SurfacePoint at);
// The topmost item, else the region; nothing on the plain plot, and nothing without a graph.
std::optional<HitTarget> hit_test(const ControlState& state, SurfacePoint at);

}  // namespace kurv
