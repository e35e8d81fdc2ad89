// Title, subtitle and legend in places where they fit.
#pragma once

namespace kurv {

struct ControlState;

// Turning it off restores the settings that fitting has changed.
void set_fitted_items(ControlState& state, bool on);

// Moves the items, and changes margins and the size of the title where they need it; see Control.
void fit_items(ControlState& state);

// Whether nobody has moved an item or changed such a setting since.
bool has_items_in_fitted_places(const ControlState& state);

// The same once more where the items are still in fitted places, but one of them or the surface has
// another size since: a longer title, a curve with another name. Before the first time the legend
// gets no more rows than the surface has room for. The sizes of the titles are known.
void fit_items_again(ControlState& state);

}  // namespace kurv
