// The mouse on the plot: presses mark parts of the axes, double clicks open the window that edits
// what lies there, and title, subtitle and legend can be dragged.
//
// Points are in twips, of the surface unless said otherwise. Edges belong to a rectangle.
#pragma once

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

#include <optional>

#include "control/hit_test.h"

namespace kurv {

struct ControlState;

// The same point in the item's own coordinates.
SurfacePoint within(const ControlState& state, Item item, SurfacePoint at);

// A button went down on the surface: the first region there is marked.
void mouse_down(ControlState& state, SurfacePoint at);
// A button came up on the surface: the marks vanish, and the host hears of it.
void mouse_up(ControlState& state, Integer Button, Integer Shift, Single x, Single Y);
// Opens the window for the region in which the last button went down; where there is none, the
// curves. After a press on an item that point is the item's own, and is judged as it stands.
void double_click(ControlState& state);
// Opens the window in which the target is edited: the titles or the curves by their commands, else
// the axes, the lines, or the curves.
void open_editor(ControlState& state, const HitTarget& target);

// A button went down on an item, at a point of its own: from now on it can be dropped.
void item_mouse_down(ControlState& state, SurfacePoint within);
// Moves the item so that the point at which it was grabbed is at `at`, and redraws. Throws
// kOverflow, and moves nothing, for a position that no Single holds.
void drop(ControlState& state, Item item, SurfacePoint at);

// Where the pointer is decides who gets a press or a double click, the item or the surface; a
// release goes to whoever got the press before it, and without one again to what lies there. See
// the members of Control.
void press(ControlState& state, SurfacePoint at);
void release(ControlState& state, Integer Button, Integer Shift, Single x, Single Y);
void double_click(ControlState& state, SurfacePoint at);
// The two halves of a drag in one.
void drag(ControlState& state, Item item, SurfacePoint grab, SurfacePoint at,
          std::optional<Item> on = {});

}  // namespace kurv
