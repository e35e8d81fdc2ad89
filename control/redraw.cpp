#include "control/redraw.h"

#include "control/control_state.h"
#include "control/fitted_items.h"
#include "model/round_axis_range.h"
#include "model/vzeroupper.h"
#include "render/axes.h"
#include "render/curves.h"
#include "render/function_curves.h"
#include "render/legend_titles.h"
#include "render/pen.h"

namespace kurv {

namespace {

void update_document(GraphDocument& document) {
  document.xyArr = document.SortXY ? document.xyArrSorted : document.xyArrUnsorted;
  renew_exact_label_formats(document);
}

void paint(const GraphDocument& document, const NumericService& numeric, Layout& layout,
           LazyEvaluator& function_evaluator, PlotSurface& surface) {
  issue_vzeroupper();
  DrawAxes(document, numeric, layout, surface);
  issue_vzeroupper();  // the surface's toolkit has drawn the texts of the axes
  DrawScatterCurves(document, layout, surface);
  DrawFunctionCurves(
      document, layout, [&]() -> ExprEvaluator& { return function_evaluator.get(); }, surface);
  DrawLegendAndTitles(document, layout, surface);
}

}  // namespace

void build_the_graph(ControlState& state) {
  GraphDocument& document = state.document;
  Layout& layout = state.layout;
  PlotSurface& surface = state.surface;

  if (!document.GraphValid) return;
  SizeTitleHandles(document, layout, surface);
  fit_items_again(state);
  document.GraphSaved = false;
  surface.Cls();
  state.last_picture.reset();
  update_document(document);
  paint(document, *state.services.numeric, layout, state.function_evaluator, surface);
  state.last_picture = LastPicture{layout, has_legend(document)};
  state.container.redrawn();
}

void draw_on(const ControlState& state, PlotSurface& surface) {
  surface.Cls();
  if (!state.document.GraphValid) return;
  GraphDocument document = state.document;
  Layout layout = state.layout;
  LazyEvaluator function_evaluator;
  SizeTitleHandles(document, layout, surface);
  update_document(document);
  // The pen that the last redraw has left may be another one than it has drawn its ticks with.
  set_pen_width(layout, surface, layout.tick_pen_width);
  paint(document, *state.services.numeric, layout, function_evaluator, surface);
}

}  // namespace kurv
