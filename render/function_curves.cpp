#include "render/function_curves.h"

#include <algorithm>
#include <optional>

#include "model/palette.h"
#include "render/mapping.h"
#include "render/pen.h"

namespace kurv {

Double function_sample_x(const GraphDocument& document, int k) {
  return (document.xmax - document.xmin) * (Double(k) / kFunctionIntervals) + document.xmin;
}

void DrawFunctionCurves(const GraphDocument& document, Layout& layout,
                        const EvaluatorSource& evaluator, PlotSurface& surface) {
  const int count = std::min<int>(document.NumYFunc, kMaxFunctions);
  for (int k = 1; k <= count; ++k) {
    const FunctionCurve& curve = document.y_func(k);
    if (curve.expression.empty() || !curve.visible) continue;
    DrawFunctionCurve(document, layout, curve.expression, evaluator(), surface);
  }
}

// Every curve is black, as the curves window says. One that leaves the plot is not clipped at its
// edge but ends at the last sample inside: the samples are all that is known of it, and a segment
// to a sample outside could cross the plot where the function does not.
void DrawFunctionCurve(const GraphDocument& document, Layout& layout, const String& expression,
                       ExprEvaluator& evaluator, PlotSurface& surface) {
  set_pen_width(layout, surface, document.CurvesWidth);
  evaluator.SetExpression(expression.empty() ? document.y_func(1).expression : expression);
  std::optional<SurfacePoint> previous;
  for (int k = 0; k <= kFunctionIntervals; ++k) {
    const Double x = function_sample_x(document, k);
    // The user may write the variable in either letter case.
    evaluator.SetVariable("x", x);
    evaluator.SetVariable("X", x);
    const DataPoint sample{x, evaluator.Evaluate()};
    if (evaluator.GetEvalError()) break;
    // Made anew for each sample, because an evaluator may be a host's own and move the limits.
    const Mapping mapping(document, layout.plot);
    if (!mapping.InPlot(sample)) {
      previous.reset();
      continue;
    }
    const SurfacePoint here = mapping.surface_point(sample);
    if (previous) {
      surface.Line(*previous, here, kBlack, LineKind::kSegment);
    } else {
      surface.PSet(here, kBlack);
    }
    previous = here;
  }
  set_pen_width(layout, surface, 1);
}

}  // namespace kurv
