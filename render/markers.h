// The symbol of a curve: its marker, or a short piece of its line.
#pragma once

#include <KurvGraph/plot_surface.h>

#include "model/graph_document.h"

namespace kurv {

inline constexpr int kMarkerKinds = 40;

// How far a marker reaches from its centre in either direction, twips, without the pen width.
inline Double marker_reach(const GraphDocument& document) {
  constexpr Double kTips = 1.2;  // of the radius; those of the triangles are 1.18 away
  return kTips * document.MarkerSize;
}

// Erases the marker's square cell to white and paints the symbol of curve `number` centred on
// (x, y), twips: with `lineSample` a piece of its line in the curves' width, otherwise marker kind
// number mod 40 in the current pen width. The pen width is 1 after a line sample.
void DrawMarker(const GraphDocument& document, PlotSurface& surface, int number, Double x, Double y,
                bool lineSample);

}  // namespace kurv
