// The pen width of a surface, and the record of it.
#pragma once

#include <KurvGraph/plot_surface.h>

#include "model/layout.h"

namespace kurv {

// Sets the pen width of the surface that the layout belongs to. Every step of a redraw that leaves
// another width than it has found sets it here; the line samples of the legend do not, because they
// leave the width that the curves have left.
inline void set_pen_width(Layout& layout, PlotSurface& surface, Integer pixels) {
  layout.pen_width = pixels;
  surface.DrawWidth(pixels);
}

}  // namespace kurv
