// Zooming and panning. They set the limits of the axes, as a user could by typing them, and turn
// Autoscale off, so that the limits stay. Each draws the graph and is a step that can be undone.
//
// Points are in twips of the surface. Nothing happens where there is no graph, where the plot has
// no area, or where moved_limits() leaves both axes as they are.
//
// A label format that cannot show the zoomed ticks apart is replaced until "Show All", or until it
// can; one that is set meanwhile stays.
#pragma once

#include <KurvGraph/plot_surface.h>

#include "model/round_limits.h"

namespace kurv {

struct ControlState;

struct ViewLimits {
  AxisLimits x;
  AxisLimits y;
};
ViewLimits view_limits(const ControlState& state);

// Of the spans of the axes; below 1 is closer.
struct ZoomFactors {
  Double x = 1;
  Double y = 1;
};

bool can_zoom(const ControlState& state);

// Zooms about a point, whose values stay there. Below the plot is the x axis alone, left of it the
// y axis alone. Zooms that follow each other are one step until History::end_merging().
void zoom_at(ControlState& state, SurfacePoint at, ZoomFactors factors);
// Moves what these limits show by a distance. The steps of a drag are computed from the limits at
// its beginning, and are one step as above.
void pan_from(ControlState& state, const ViewLimits& limits, SurfacePoint distance);
// Makes the rectangle with these corners the whole plot; what is outside the plot is cut off. With
// round limits the axes are as much longer as round ticks need.
void zoom_to(ControlState& state, SurfacePoint corner, SurfacePoint opposite);

// Whether show_all() does something.
bool is_zoomed(const ControlState& state);
// Returns to the limits of before the first zoom, Autoscale included.
void show_all(ControlState& state);

// When other data have been stored: Autoscale is again what it was before the first zoom. Draws and
// computes nothing.
void forget_zoom(ControlState& state);
// The same, and the label formats too.
void end_zoom(ControlState& state);

}  // namespace kurv
