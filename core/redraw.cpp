#include "core/redraw.h"

#include "core/control_state.h"
#include "expr/function_curves.h"
#include "render/axes.h"
#include "render/curves.h"
#include "render/legend_titles.h"

namespace kurv {

void build_the_graph(ControlState& state) {
  GraphDocument& document = state.document;
  Layout& layout = state.layout;
  PlotSurface& surface = state.surface;

  if (!document.GraphValid) return;
  SizeTitleHandles(document, layout, surface);
  document.GraphSaved = false;
  surface.Cls();
  document.xyArr = document.SortXY ? document.xyArrSorted : document.xyArrUnsorted;
  DrawAxes(document, *state.services.numeric, layout, surface);
  DrawScatterCurves(document, layout, surface);
  DrawFunctionCurves(document, layout, state.function_evaluator, surface);
  DrawLegendAndTitles(document, layout, surface);
  state.container.redrawn();
}

}  // namespace kurv
