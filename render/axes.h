// The axis pass: the first layer of every redraw.
#pragma once

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/services.h>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// Computes the plot rectangle; draws the x caption, the ticks or grid lines and the labels of both
// axes and the border; lays out the hit areas. The axis font is current on the surface. Throws
// kDivisionByZero when NumTicks is zero.
void DrawAxes(const GraphDocument& document, const NumericService& numeric, Layout& layout,
              PlotSurface& surface);

// What the labels of both axes need of the margins, twips: the widest of y with a gap on both
// sides, and what the last of x has right of the plot. The axis font is current on the surface.
struct LabelMargins {
  Double left = 0;
  Double right = 0;
};
LabelMargins label_margins(const GraphDocument& document, const PlotSurface& surface);

}  // namespace kurv
