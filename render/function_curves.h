// Function curves on the surface: y = f(x), laid over the scatter curves.
#pragma once

#include <functional>

#include <KurvGraph/expr_evaluator.h>
#include <KurvGraph/plot_surface.h>

#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// Returns the evaluator that computes the curves; called only where there is a curve to draw.
using EvaluatorSource = std::function<ExprEvaluator&()>;

// A curve is drawn by samples at equal distances from xmin to xmax, one more than these.
inline constexpr int kFunctionIntervals = 40;
// The x of sample k, counted from 0.
Double function_sample_x(const GraphDocument& document, int k);

// Draws every visible function curve over the x range of the axes. Throws kDivisionByZero when a
// sample has to be mapped into a range of zero width, and what the evaluator throws.
void DrawFunctionCurves(const GraphDocument& document, Layout& layout,
                        const EvaluatorSource& evaluator, PlotSurface& surface);

// Draws one by its samples. The curve ends at the first
// sample that cannot be evaluated. Neighbouring samples are joined where both are inside the plot;
// the first one inside is a dot. An empty expression means that of slot 1. Leaves a pen width of 1.
void DrawFunctionCurve(const GraphDocument& document, Layout& layout, const String& expression,
                       ExprEvaluator& evaluator, PlotSurface& surface);

}  // namespace kurv
