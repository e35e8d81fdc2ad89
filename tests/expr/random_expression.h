// Random expression trees, with their text and an evaluation of their own.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace kurv::test {

// A function or operator as the test itself computes it, independently of both evaluators.
struct Operation {
  const char* name;
  int arguments;  // 0: one to four
  double (*formula)(const double* values, int count);
};

struct Node {
  std::string leaf;  // a number or a variable, or empty
  double value = 0;  // of a leaf
  const Operation* operation = nullptr;
  std::vector<Node> operands;
};

Node random_expression(std::mt19937& random, int depth);

// With the parentheses that are necessary, and here and there with others.
std::string text_of(const Node& node, std::mt19937& random);

// A summary of all intermediate values and the result.
struct Intermediates {
  bool finite = true;
  double largest = 0;  // magnitude
};

Intermediates intermediates_of(const Node& node);

}  // namespace kurv::test
