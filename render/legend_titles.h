// The last layer: the legend box, the title and the subtitle, and where the user finds them.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <optional>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// The first step of every redraw: the handles of title and subtitle get the size of their texts.
// Leaves the axis font current.
void SizeTitleHandles(const GraphDocument& document, Layout& layout, PlotSurface& surface);

// The last step. Handles beyond the right or bottom edge are moved back; the legend gets one
// entry for each curve whose visibility flag is exactly True. Leaves the axis font current.
void DrawLegendAndTitles(const GraphDocument& document, Layout& layout, PlotSurface& surface);

// How large the legend will be. The axis font is current on the surface.
void size_legend(const GraphDocument& document, Layout& layout, const PlotSurface& surface);
// How many rows have room in this height, at least one.
int legend_rows(const GraphDocument& document, Double height, const PlotSurface& surface);
// How many letters the names may have for a legend of at most this width; 0 where even names of one
// letter are too wide.
int legend_letters(const GraphDocument& document, Double width, const PlotSurface& surface);
// How many visible curves have no row.
int unlisted_curves(const GraphDocument& document);

// The curve whose row is at this height, for a height inside the legend. Nothing for the row that
// counts the curves without one.
std::optional<int> legend_curve_at(const GraphDocument& document, const Rect& legend, Single y);

// Whether any curve is listed, and so a legend is visible.
bool has_legend(const GraphDocument& document);

// Home positions, for handles whose sizes are known: the title above the plot's top-left
// corner, the subtitle to its right; the legend inside the plot. A top margin smaller than a title
// puts it above the surface's edge, which is not corrected. Throws kOverflow where the legend's
// position leaves 16 bits.
void place_titles(const GraphDocument& document, Layout& layout);
void place_legend(const GraphDocument& document, Layout& layout);

}  // namespace kurv
