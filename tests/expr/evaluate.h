// Shorthand for tests that compute one expression.
#pragma once

#include <map>
#include <string>

#include "expr/evaluator.h"

namespace kurv {

struct Outcome {
  Double value = 0;
  bool failed = false;
};

inline Outcome evaluate(std::string_view text, const std::map<String, Double>& variables = {}) {
  const auto evaluator = make_evaluator();
  for (const auto& [name, value] : variables) evaluator->SetVariable(name, value);
  evaluator->SetExpression(text);
  const Double value = evaluator->Evaluate();
  return {value, evaluator->GetEvalError()};
}

}  // namespace kurv
