#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/expr/evaluate.h"

namespace kurv {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

void expect_failures(std::initializer_list<const char*> texts,
                     const std::map<String, Double>& variables = {}) {
  for (const char* text : texts) {
    EXPECT_TRUE(make_evaluator()->ParseExpression(text).ok) << text;
    const Outcome outcome = evaluate(text, variables);
    EXPECT_TRUE(outcome.failed) << text;
    EXPECT_TRUE(std::isnan(outcome.value)) << text;
  }
}

TEST(EvaluationErrors, DivisionByZeroFails) {
  expect_failures({"1/0", "0/0", "-1/0", "1/(0*-1)", "1/(2-2)", "mod(5,0)", "0^-1", "pow(0,-0.5)"});
}

TEST(EvaluationErrors, OutsideTheDomainFails) {
  expect_failures({"sqrt(-1)", "log(0)", "ln(-1)", "log10(0)", "log2(-2)", "asin(2)", "acos(-1.01)",
                   "acosh(0.5)", "atanh(1)", "atanh(-2)", "(-1)^0.5", "pow(-1,0.5)", "(-8)^(1/3)"});
}

TEST(EvaluationErrors, OverflowFails) {
  expect_failures({"exp(1000)", "1e308*10", "-1e308-1e308", "10^400", "sinh(1000)",
                   "hypot(1.5e308,1.5e308)", "1e308/1e-308", "x^2"},
                  {{"x", 1e200}});
}

TEST(EvaluationErrors, AnInfinityThatALaterStepHidesFails) {
  expect_failures({"1/(1/0)", "1/exp(1000)", "atan(1e308*10)", "tanh(1/0)", "exp(log(0))",
                   "min(1,1/0)", "max(1,log(0))", "0^(1/0)", "1^(1/0)", "(1/0)^0", "sign(1/0)",
                   "mod(1,1/0)", "1^sqrt(-1)", "sqrt(-1)^0", "min(1,sqrt(-1))", "0*(1/0)"});
}

TEST(EvaluationErrors, UndefinedVariableFails) {
  expect_failures({"y", "x+y", "0*y", "y^0", "1^y", "min(1,y)", "max(y,1)", "[body mass]", "X"},
                  {{"x", 1}});
}

TEST(EvaluationErrors, MissingOrInfiniteVariableFails) {
  for (const Double value : {kNaN, kInfinity, -kInfinity}) {
    expect_failures({"x", "x+1", "1/x", "x^0", "1^x", "0*x", "atan(x)", "min(x,1)", "max(1,x)",
                     "sign(x)", "min(x)", "hypot(x,1)", "-x"},
                    {{"x", value}});
  }
}

TEST(EvaluationErrors, VariableThatIsNotReadDoesNotFail) {
  EXPECT_FALSE(evaluate("x", {{"x", 1}, {"y", kNaN}}).failed);
}

TEST(EvaluationErrors, UnderflowIsZeroAndNoFailure) {
  const Outcome outcome = evaluate("exp(-1000)+1e-300*1e-300");
  EXPECT_FALSE(outcome.failed);
  EXPECT_EQ(outcome.value, 0);
}

TEST(EvaluationErrors, TextThatIsNoExpressionFails) {
  for (const char* text : {"", "1+", "sin", "2x", "(", "1e999"}) {
    const Outcome outcome = evaluate(text);
    EXPECT_TRUE(outcome.failed) << text;
    EXPECT_TRUE(std::isnan(outcome.value)) << text;
  }
}

TEST(EvaluationErrors, NoExpressionFails) {
  const auto evaluator = make_evaluator();
  EXPECT_FALSE(evaluator->GetEvalError());
  EXPECT_TRUE(std::isnan(evaluator->Evaluate()));
  EXPECT_TRUE(evaluator->GetEvalError());
}

TEST(EvaluationErrors, FlagIsThatOfTheLastEvaluation) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("sqrt(x)");
  for (const Double x : {-1.0, 4.0, -9.0}) {
    evaluator->SetVariable("x", x);
    evaluator->Evaluate();
    EXPECT_EQ(evaluator->GetEvalError(), x < 0);
  }
  // Neither a new expression nor parsing another one changes the flag.
  evaluator->SetExpression("1");
  evaluator->ParseExpression("1");
  EXPECT_TRUE(evaluator->GetEvalError());
}

TEST(EvaluationErrors, BrokenExpressionReplacesTheOneBefore) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("1");
  evaluator->SetExpression("1+");
  evaluator->Evaluate();
  EXPECT_TRUE(evaluator->GetEvalError());
  evaluator->SetExpression("1");
  EXPECT_EQ(evaluator->Evaluate(), 1);
}

}  // namespace
}  // namespace kurv
