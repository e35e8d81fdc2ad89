// An evaluator that records its calls, and a class that makes the control create it.
#pragma once

#include <KurvGraph/class_registry.h>
#include <KurvGraph/expr_evaluator.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "expr/evaluator.h"

namespace kurv::test {

// The record of one instance, which outlives it.
struct EvaluatorCalls {
  std::string log;  // one word for each call
  std::vector<std::string> variables;
  bool is_alive = true;
};

class CountingEvaluator final : public ExprEvaluator {
 public:
  explicit CountingEvaluator(std::shared_ptr<EvaluatorCalls> calls) : m_calls(std::move(calls)) {}
  ~CountingEvaluator() override { m_calls->is_alive = false; }

  ParsedExpression ParseExpression(std::string_view text) override {
    m_calls->log += "Parse ";
    return m_evaluator->ParseExpression(text);
  }
  bool IsValidVariableName(std::string_view name) const override {
    m_calls->log += "IsValid(" + std::string(name) + ") ";
    return m_evaluator->IsValidVariableName(name);
  }
  void SetVariable(std::string_view name, Double value) override {
    m_calls->log += "Set ";
    m_calls->variables.emplace_back(name);
    m_evaluator->SetVariable(name, value);
  }
  bool GetEvalError() const override {
    m_calls->log += "Error ";
    return m_evaluator->GetEvalError();
  }
  Double Evaluate() override {
    m_calls->log += "Evaluate ";
    return m_evaluator->Evaluate();
  }
  void SetExpression(std::string_view text) override {
    m_calls->log += "Expression ";
    m_evaluator->SetExpression(text);
  }

 private:
  std::shared_ptr<EvaluatorCalls> m_calls;  // a control may outlive the counting
  std::unique_ptr<ExprEvaluator> m_evaluator = make_evaluator();
};

// While it lives, every evaluator that is created is a counting one.
class CountedEvaluators {
 public:
  CountedEvaluators() {
    register_class(kExprEvaluatorClass, [this] {
      m_instances.push_back(std::make_shared<EvaluatorCalls>());
      return std::make_unique<CountingEvaluator>(m_instances.back());
    });
  }
  ~CountedEvaluators() { register_class(kExprEvaluatorClass, nullptr); }
  CountedEvaluators(const CountedEvaluators&) = delete;
  CountedEvaluators& operator=(const CountedEvaluators&) = delete;

  int count() const { return static_cast<int>(m_instances.size()); }
  // Counted from 1 in the order of creation.
  const EvaluatorCalls& operator()(int instance) const {
    return *m_instances.at(static_cast<std::size_t>(instance - 1));
  }
  // The calls of an instance since the last take().
  std::string take(int instance) {
    return std::exchange(m_instances.at(static_cast<std::size_t>(instance - 1))->log, {});
  }

 private:
  std::vector<std::shared_ptr<EvaluatorCalls>> m_instances;
};

// While it lives, every evaluator that is created is one that a host has made.
struct HostsEvaluator {
  explicit HostsEvaluator(std::function<std::unique_ptr<Service>()> factory) {
    register_class(kExprEvaluatorClass, std::move(factory));
  }
  ~HostsEvaluator() { register_class(kExprEvaluatorClass, nullptr); }
  HostsEvaluator(const HostsEvaluator&) = delete;
  HostsEvaluator& operator=(const HostsEvaluator&) = delete;
};

}  // namespace kurv::test
