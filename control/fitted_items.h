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

}  // namespace kurv
