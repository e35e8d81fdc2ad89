// An evaluator that is created at its first use.
#pragma once

#include <KurvGraph/class_registry.h>
#include <KurvGraph/expr_evaluator.h>

#include <memory>

namespace kurv {

// The class is the one that is registered at the first use. Where it cannot be created, its fault
// reaches the caller, and the next use tries again.
class LazyEvaluator {
 public:
  ExprEvaluator& get() {
    if (!m_evaluator) m_evaluator = create<ExprEvaluator>(kExprEvaluatorClass);
    return *m_evaluator;
  }

 private:
  std::unique_ptr<ExprEvaluator> m_evaluator;
};

}  // namespace kurv
