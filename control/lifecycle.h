// The control's life.
#pragma once

namespace kurv {

struct ControlState;

// Once per control, before any host call: counts the instance (kOverflow past 32767), sets the
// defaults, takes the fonts from the surface's current one, puts title, subtitle and legend in
// their home places, loads the demonstration graph and becomes the client of the three windows.
void initialise(ControlState& state);

// When a host places a control for which it has no saved properties: visible is what has a name or
// an expression; ticks and grids get their defaults; then resize().
void first_placement(ControlState& state);

// Each time the host shows the control. In run mode the titles go home and the graph is redrawn.
void show(ControlState& state);

// Each time the surface has changed its size. The plot is at least 500 twips wide and high until
// the next redraw. Redraws in design mode and when the host has handed over data.
void resize(ControlState& state);

// Once, before the control is destroyed: releases the windows that serve it, so that nobody edits a
// graph that is about to go; then, where the host has asked for it and the graph is not saved,
// offers the user to save it. No loses the graph without another word.
void terminate(ControlState& state);

}  // namespace kurv
