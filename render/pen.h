// The pen width of a surface, and the record of it.
#pragma once

#include <KurvGraph/plot_surface.h>

#include "model/layout.h"

namespace kurv {

// Sets the pen width of the surface that the layout belongs to. A change of the width that outlasts
// a step of a redraw is made here, so that `pen_width` is always the width of the surface. Two
// places are exceptions: PlotSurface::Polylines() leaves one pixel, which its caller records, and
// the line samples of the legend leave the width of one pixel that the curves have left.
inline void set_pen_width(Layout& layout, PlotSurface& surface, Integer pixels) {
  layout.pen_width = pixels;
  surface.DrawWidth(pixels);
}

}  // namespace kurv
