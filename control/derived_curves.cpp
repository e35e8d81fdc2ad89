#include "control/derived_curves.h"

#include "control/control_state.h"
#include "control/growing_data.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/data_set.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

// Point i of x and of curves 1 to `curves`, under their names as they are stored.
void set_variables(const GraphDocument& document, int curves, int i, ExprEvaluator& evaluator) {
  for (int c = 1; c <= curves + 1; ++c) {
    evaluator.SetVariable(document.yVarName(c), document.xyArr(c, i));
  }
}

}  // namespace

void append_derived_curve(ControlState& state, const String& name, const String& expression) {
  const StepRecorder step(state, {"Add Derived Curve"});
  GraphDocument& document = state.document;
  add_derivation(state, expression);
  const int curves = document.NumY;
  document.NumY = to_integer(Double(curves) + 1);
  document.y_visible.resize_keeping(document.NumY);
  document.yVarName.resize_keeping(document.NumY + 1);
  document.yVarName(document.NumY + 1) = name;
  document.y_visible(document.NumY) = true;

  issue_vzeroupper();
  ExprEvaluator& evaluator = state.derived_evaluator.get();
  for (int i = 1; i <= document.NumData; ++i) {
    set_variables(document, curves, i, evaluator);
    evaluator.SetExpression(expression);
    const Double value = evaluator.Evaluate();
    document.xyArr(document.NumY + 1, i) = value;
  }

  basKurvGraph01::compute_axis_range(document, *state.services.numeric);
  store_both_orders(document, *state.services.swap);
  build_the_graph(state);
}

}  // namespace kurv
