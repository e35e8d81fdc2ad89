#include "tests/expr/random_expression.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <numbers>

namespace kurv::test {

namespace {

using Values = const double*;

constexpr Operation kOperators[] = {{"+", 2, [](Values v, int) { return v[0] + v[1]; }},
                                    {"-", 2, [](Values v, int) { return v[0] - v[1]; }},
                                    {"*", 2, [](Values v, int) { return v[0] * v[1]; }},
                                    {"/", 2, [](Values v, int) { return v[0] / v[1]; }},
                                    {"^", 2, [](Values v, int) { return std::pow(v[0], v[1]); }},
                                    {"-", 1, [](Values v, int) { return -v[0]; }},
                                    {"+", 1, [](Values v, int) { return v[0]; }}};

constexpr Operation kFunctions[] = {
    {"sin", 1, [](Values v, int) { return std::sin(v[0]); }},
    {"cos", 1, [](Values v, int) { return std::cos(v[0]); }},
    {"tan", 1, [](Values v, int) { return std::tan(v[0]); }},
    {"asin", 1, [](Values v, int) { return std::asin(v[0]); }},
    {"acos", 1, [](Values v, int) { return std::acos(v[0]); }},
    {"atan", 1, [](Values v, int) { return std::atan(v[0]); }},
    {"atan2", 2, [](Values v, int) { return std::atan2(v[0], v[1]); }},
    {"sinh", 1, [](Values v, int) { return std::sinh(v[0]); }},
    {"cosh", 1, [](Values v, int) { return std::cosh(v[0]); }},
    {"tanh", 1, [](Values v, int) { return std::tanh(v[0]); }},
    {"asinh", 1, [](Values v, int) { return std::asinh(v[0]); }},
    {"acosh", 1, [](Values v, int) { return std::acosh(v[0]); }},
    {"atanh", 1, [](Values v, int) { return std::atanh(v[0]); }},
    {"exp", 1, [](Values v, int) { return std::exp(v[0]); }},
    {"ln", 1, [](Values v, int) { return std::log(v[0]); }},
    {"log", 1, [](Values v, int) { return std::log(v[0]); }},
    {"log10", 1, [](Values v, int) { return std::log10(v[0]); }},
    {"log2", 1, [](Values v, int) { return std::log2(v[0]); }},
    {"sqrt", 1, [](Values v, int) { return std::sqrt(v[0]); }},
    {"abs", 1, [](Values v, int) { return std::abs(v[0]); }},
    {"sign", 1, [](Values v, int) { return v[0] == 0 ? 0 : std::copysign(1, v[0]); }},
    {"min", 0, [](Values v, int n) { return *std::min_element(v, v + n); }},
    {"max", 0, [](Values v, int n) { return *std::max_element(v, v + n); }}};

// std::mt19937 gives the same numbers everywhere; the distributions of the library need not.
int below(std::mt19937& random, int bound) {
  return static_cast<int>(random() % static_cast<unsigned>(bound));
}

Node random_number(std::mt19937& random) {
  Node node;
  node.leaf = std::to_string(below(random, below(random, 3) == 0 ? 1000 : 10));
  switch (below(random, 6)) {
    case 0:
      node.leaf += ".";
      break;
    case 1:
      node.leaf = "." + node.leaf;
      break;
    case 2:
      node.leaf += "." + std::to_string(below(random, 1000));
      break;
    case 3: {
      constexpr std::array kExponents = {"e-3", "E2", "e+1", "e0", "E-05"};
      node.leaf += kExponents[static_cast<std::size_t>(below(random, 5))];
      break;
    }
    default:
      break;
  }
  std::from_chars(node.leaf.data(), node.leaf.data() + node.leaf.size(), node.value);
  return node;
}

Node random_leaf(std::mt19937& random) {
  struct Variable {
    const char* name;
    double value;
  };
  constexpr Variable kVariables[] = {{"x", 0.75},  {"y", -2.5},     {"Z_1", 12},
                                     {"_zero", 0}, {"sine", -1e-3}, {"pi", std::numbers::pi}};
  if (below(random, 2) == 0) return random_number(random);
  const Variable& variable = kVariables[below(random, static_cast<int>(std::size(kVariables)))];
  return {variable.name, variable.value, nullptr, {}};
}

// The precedence of what a node is written as: higher binds tighter, and parentheses bind tightest.
int precedence(const Node& node) {
  if (!node.leaf.empty()) return 5;
  const bool is_operator = node.operation >= kOperators && node.operation < std::end(kOperators);
  if (!is_operator) return 5;
  if (node.operands.size() == 1) return 3;
  switch (node.operation->name[0]) {
    case '^':
      return 4;
    case '*':
    case '/':
      return 2;
    default:
      return 1;
  }
}

std::string blank(std::mt19937& random) {
  return below(random, 8) == 0 ? " " : "";
}

std::string operand_text(const Node& node, int wanted, std::mt19937& random) {
  const std::string text = text_of(node, random);
  const bool needed = precedence(node) < wanted;
  return needed || below(random, 20) == 0 ? "(" + text + ")" : text;
}

// A sign is written before a factor or an exponent, but never before another sign, which only one
// of the two evaluators accepts.
std::string operator_text(const Node& node, std::mt19937& random) {
  const std::string sign = blank(random) + node.operation->name + blank(random);
  const int own = precedence(node);
  if (node.operands.size() == 1)
    return node.operation->name + operand_text(node.operands[0], 4, random);
  const bool power = own == 4;
  const int left = power ? 5 : own;
  const int right = power ? 3 : own + 1;
  std::string text = operand_text(node.operands[0], left, random);
  return text + sign + operand_text(node.operands[1], right, random);
}

double evaluate(const Node& node, Intermediates& intermediates) {
  double value = node.value;
  if (node.leaf.empty()) {
    std::vector<double> values;
    for (const Node& operand : node.operands) values.push_back(evaluate(operand, intermediates));
    value = node.operation->formula(values.data(), static_cast<int>(values.size()));
  }
  intermediates.finite = intermediates.finite && std::isfinite(value);
  intermediates.largest = std::max(intermediates.largest, std::abs(value));
  return value;
}

}  // namespace

Node random_expression(std::mt19937& random, int depth) {
  if (depth == 0 || below(random, 8) == 0) return random_leaf(random);
  Node node;
  node.operation = below(random, 3) == 0
                       ? &kFunctions[below(random, static_cast<int>(std::size(kFunctions)))]
                       : &kOperators[below(random, static_cast<int>(std::size(kOperators)))];
  const int count =
      node.operation->arguments > 0 ? node.operation->arguments : 1 + below(random, 4);
  for (int i = 0; i < count; ++i) node.operands.push_back(random_expression(random, depth - 1));
  return node;
}

std::string text_of(const Node& node, std::mt19937& random) {
  if (!node.leaf.empty()) return node.leaf;
  if (precedence(node) < 5) return operator_text(node, random);
  std::string text = node.operation->name + std::string("(");
  for (std::size_t i = 0; i < node.operands.size(); ++i) {
    if (i > 0) text += "," + blank(random);
    text += operand_text(node.operands[i], 0, random);
  }
  return text + ")";
}

Intermediates intermediates_of(const Node& node) {
  Intermediates intermediates;
  evaluate(node, intermediates);
  return intermediates;
}

}  // namespace kurv::test
