// Two independent evaluators must agree on what both accept.
#include <gtest/gtest.h>
#include <muParser.h>

#include <cmath>
#include <numbers>
#include <optional>

#include "expr/evaluator.h"
#include "tests/expr/random_expression.h"

namespace kurv {
namespace {

// Both evaluators, with the variables of random_expression.cpp.
class Both {
 public:
  Both() : m_ours(make_evaluator()) {
    for (auto& [name, value] : m_variables) {
      m_ours->SetVariable(name, value);
      m_theirs.DefineVar(name, &value);
    }
    m_theirs.DefineConst("pi", std::numbers::pi);
    // Its own three use the formulas with logarithms, which lose all digits for large arguments or
    // for small ones.
    m_theirs.DefineFun("asinh", static_cast<double (*)(double)>(std::asinh));
    m_theirs.DefineFun("acosh", static_cast<double (*)(double)>(std::acosh));
    m_theirs.DefineFun("atanh", static_cast<double (*)(double)>(std::atanh));
  }

  // Nothing where the evaluation failed.
  std::optional<double> ours(const std::string& text) {
    m_ours->SetExpression(text);
    const double value = m_ours->Evaluate();
    if (m_ours->GetEvalError()) return std::nullopt;
    return value;
  }

  // Nothing where the text was rejected; several values count as rejected.
  std::optional<double> theirs(const std::string& text) {
    try {
      m_theirs.SetExpr(text);
      int count = 0;
      const double value = m_theirs.Eval(count)[0];
      if (count == 1) return value;
    } catch (const mu::Parser::exception_type&) {
    }
    return std::nullopt;
  }

  bool understood_by_us(const std::string& text) { return m_ours->ParseExpression(text).ok; }

 private:
  std::pair<const char*, double> m_variables[5] = {
      {"x", 0.75}, {"y", -2.5}, {"Z_1", 12}, {"_zero", 0}, {"sine", -1e-3}};
  std::unique_ptr<ExprEvaluator> m_ours;
  mu::Parser m_theirs;
};

TEST(Differential, RandomExpressionsHaveTheSameValue) {
  constexpr int kExpressions = 120000;
  Both both;
  std::mt19937 random(20240229);
  int compared = 0;
  int failed = 0;
  for (int i = 0; i < kExpressions && !testing::Test::HasFailure(); ++i) {
    const test::Node expression = test::random_expression(random, 1 + i % 5);
    const std::string text = test::text_of(expression, random);
    const test::Intermediates intermediates = test::intermediates_of(expression);
    const std::optional<double> theirs = both.theirs(text);
    const std::optional<double> ours = both.ours(text);
    ASSERT_TRUE(theirs) << text;
    ASSERT_TRUE(both.understood_by_us(text)) << text;
    EXPECT_TRUE(std::isfinite(*theirs) || !ours) << text;
    EXPECT_EQ(ours.has_value(), intermediates.finite) << text;
    if (!ours || !std::isfinite(*theirs)) {
      ++failed;
      continue;
    }
    ++compared;
    EXPECT_LE(std::abs(*ours - *theirs), 1e-12 * intermediates.largest)
        << text << " " << *ours << " " << *theirs;
  }
  EXPECT_GT(compared, kExpressions / 2);
  EXPECT_GT(failed, kExpressions / 20);
}

using Tokens = std::vector<std::string_view>;

bool is_sign(std::string_view token) {
  return token == "+" || token == "-";
}

// Whether an operand must follow the token.
bool awaits_operand(std::string_view token) {
  return std::string_view("+-*/^(,").find(token.back()) != std::string_view::npos;
}

// Only one of the two accepts more than one sign before an operand.
bool repeats_signs(const Tokens& tokens) {
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const bool unary = i == 1 || awaits_operand(tokens[i - 2]);
    if (unary && is_sign(tokens[i - 1]) && is_sign(tokens[i])) return true;
  }
  return false;
}

TEST(Differential, RandomTokensAreUnderstoodByBothOrNone) {
  constexpr std::string_view kTokens[] = {"x", "y", "1", ".5",   "(",    ")",      ")", "+",
                                          "-", "*", "/", "sin(", "max(", "atan2(", ",", "^"};
  Both both;
  std::mt19937 random(7);
  int understood = 0;
  for (int i = 0; i < 100000; ++i) {
    Tokens tokens;
    for (auto count = 1 + random() % 9; count > 0; --count) {
      tokens.push_back(kTokens[random() % std::size(kTokens)]);
    }
    if (repeats_signs(tokens)) continue;
    std::string text;
    for (const std::string_view token : tokens) text.append(token).append(" ");
    const bool ours = both.understood_by_us(text);
    EXPECT_EQ(ours, both.theirs(text).has_value()) << text;
    if (ours) ++understood;
  }
  EXPECT_GT(understood, 1000);
}

}  // namespace
}  // namespace kurv
