// Expressions that are made from a seed, with their text and an evaluation that shows each step.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace kurv::test {

// What the test knows of a function or operator apart from both evaluators.
struct Meaning {
  const char* name;
  int arguments;  // 0: one to four
  double (*formula)(const double* values, int count);
};

struct Node {
  std::string leaf;  // a number or a variable, or empty
  double value = 0;  // of a leaf
  const Meaning* meaning = nullptr;
  std::vector<Node> operands;
};

Node random_expression(std::mt19937& random, int depth);

// With the fewest parentheses that keep the meaning, or here and there with some more.
std::string text_of(const Node& node, std::mt19937& random);

// Of all intermediate values and the last one.
struct Steps {
  bool finite = true;
  double largest = 0;  // magnitude
};

Steps steps_of(const Node& node);

}  // namespace kurv::test
