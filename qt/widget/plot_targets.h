// What the user can get hold of on the plot, by the mouse, the keyboard or a screen reader: its
// items and regions, or the whole of it while nothing is drawn.
#pragma once

#include <QString>
#include <optional>
#include <variant>
#include <vector>

#include "control/mouse.h"

namespace kurv {

enum class Whole { kPlot };
using Place = std::variant<Item, Region, Whole>;

// Every place, in the order in which Tab walks them.
const std::vector<Place>& all_places();
// Those of them that there are now, at least one.
std::vector<Place> places_of(const ControlState& state);
bool is_there(const ControlState& state, const Place& place);

// The uppermost item or region at a point of the surface.
std::optional<Place> place_at(const ControlState& state, SurfacePoint at);
// Twips of the surface.
std::vector<Rect> rects_of(const ControlState& state, const Place& place);

// "Title", "Labels of the x axis".
QString name_of(const Place& place);
// What the mouse does there, and what it does on the plain plot.
QString hint_of(const std::optional<Place>& place);

// What a double click there does. It may open a window and return when that is closed.
void edit_place(ControlState& state, const Place& place);

}  // namespace kurv
