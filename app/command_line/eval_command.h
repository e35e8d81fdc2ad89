// kurv eval: the graph's evaluator as a calculator.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// "name=value" texts.
using Assignments = std::vector<std::string>;

// The value in its shortest form. Throws UserError with a sentence when the expression or a value
// cannot be understood, a variable has no value, or the result is not a finite number.
std::string evaluate(std::string_view expression, const Assignments& values);

// Answers each line EXPRESSION<tab>name=value;... with one line: the value, or "error: " and the
// sentence. What follows the tab, and the tab, may be missing.
void evaluate_lines(std::istream& input, std::ostream& output);

}  // namespace kurv::app
