// The scatter curves: lines of all of them first, then markers on top of every line.
#pragma once

#include <KurvGraph/plot_surface.h>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// Curve k has colour k mod 14 and marker kind k mod kMarkerKinds. Leaves a pen width of 1. Throws
// kDivisionByZero when a visible point has to be mapped into a range of zero width.
void DrawScatterCurves(const GraphDocument& document, Layout& layout, PlotSurface& surface);

// White and yellow are never a curve's colour.
int curve_colour(int curve);

}  // namespace kurv
