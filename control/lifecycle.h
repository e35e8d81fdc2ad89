// Creation, placement, resizing and termination of a control.
#pragma once

namespace kurv {

struct ControlState;

// Once per control, before any host call: counts the instance (kOverflow past 32767), sets the
// defaults, sets all fonts from the surface's current one, moves title, subtitle and legend to
// their home positions, loads the demonstration graph and becomes the client of the three windows.
void initialise(ControlState& state);

// When a host places a control for which it has no saved properties: visible is what has a name or
// an expression; ticks and grids get their defaults; then resize().
void first_placement(ControlState& state);

// Each time the host shows the control. In run mode the titles move to their home positions and the
// graph is redrawn.
void show(ControlState& state);

// Each time the surface has changed its size. The plot is at least 500 twips wide and high until
// the next redraw. Redraws in design mode and when the data are the host's.
void resize(ControlState& state);

// The part of resize() that only computes: the plot for the size of the surface, and fitted items
// in their places.
void lay_out(ControlState& state);

// Once, before the control is destroyed: releases the windows that serve it, so that the user
// cannot edit a graph that is being destroyed; then, where QueryForSave is set and the graph is not
// saved, asks the user whether to save it. After the answer No there is no further question.
void terminate(ControlState& state);

}  // namespace kurv
