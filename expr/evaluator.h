// The evaluator that comes with the control.
#pragma once

#include <memory>

#include <KurvGraph/expr_evaluator.h>

namespace kurv {

// A new one, without variables or expression. docs/expressions.md describes what it understands.
//
// An evaluation that fails returns NaN, the missing value of this system, and one that succeeds
// never does. Blanks around a variable's name are no part of the name. Where a name in brackets can
// be read in two ways, the variables that are set decide, those that are set after the expression
// too. Neither SetVariable() of a known name, nor SetExpression() with the current text, nor
// Evaluate() allocates memory, but for the first Evaluate() after a new variable.
std::unique_ptr<ExprEvaluator> make_evaluator();

}  // namespace kurv
