#include "app/command_line/eval_command.h"

#include <KurvGraph/class_registry.h>
#include <KurvGraph/expr_evaluator.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>
#include <KurvGraph/variable_text.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

#include "app/base/message_text.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

// A variable's name may be in brackets, as in an expression. A text that is more than one name in
// brackets is a name as it is, such as "[H] to [OH]".
std::string name_in(ExprEvaluator& evaluator, std::string_view text) {
  if (!text.starts_with('[') || !text.ends_with(']')) return std::string(text);
  if (trim_whitespace(text.substr(1, text.size() - 2)).empty()) return {};
  const ParsedExpression parsed = evaluator.ParseExpression(text);
  const bool is_name = parsed.ok && parsed.variables.size() == 1;
  return is_name ? parsed.variables.front() : std::string(text);
}

// The name as a value is given to it: in brackets where it would lose its own.
std::string as_given(const std::string& name) {
  return name.starts_with('[') ? variable_text(name) : name;
}

// Gives the evaluator the values and returns the names that have one.
std::vector<std::string> assign(ExprEvaluator& evaluator, const Assignments& values) {
  std::vector<std::string> names;
  for (const std::string& text : values) {
    const std::size_t sign = text.rfind('=');
    const std::string name =
        name_in(evaluator, trim_whitespace(std::string_view(text).substr(0, sign)));
    if (sign == std::string::npos || name.empty()) {
      throw UserError("A value is given as name=value, not as " + in_quotes(text) + ".");
    }
    const auto number = text_to_number(std::string_view(text).substr(sign + 1));
    if (!number) {
      throw UserError("The value of " + in_quotes(name) + " is not a number: " +
                      in_quotes(std::string_view(text).substr(sign + 1)) + ".");
    }
    if (!std::isfinite(*number)) {
      throw UserError("The value of " + in_quotes(name) + " is not finite; give it a number.");
    }
    evaluator.SetVariable(name, *number);
    names.push_back(name);
  }
  return names;
}

}  // namespace

std::string evaluate(std::string_view expression, const Assignments& values) {
  const auto evaluator = create<ExprEvaluator>(kExprEvaluatorClass);
  // Before the expression, because the names may decide where one of its brackets ends.
  const std::vector<std::string> known = assign(*evaluator, values);
  const ParsedExpression parsed = evaluator->ParseExpression(expression);
  if (!parsed.ok) throw UserError(parsed.message);
  for (const std::string& name : parsed.variables) {
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      throw UserError("The variable " + in_quotes(name) + " has no value; give it one as " +
                      as_given(name) + "=1.");
    }
  }
  evaluator->SetExpression(expression);
  const Double value = evaluator->Evaluate();
  if (evaluator->GetEvalError()) {
    throw UserError(
        "The expression has no finite value here: something is divided by zero, too large, or "
        "outside a function's domain.");
  }
  return number_to_text(value);
}

void evaluate_lines(std::istream& input, std::ostream& output) {
  for (std::string line; std::getline(input, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t tab = line.find('\t');
    Assignments values;
    for (std::size_t start = tab; start < line.size();) {
      const std::size_t end = std::min(line.find(';', start + 1), line.size());
      const std::string value(
          trim_whitespace(std::string_view(line).substr(start + 1, end - start - 1)));
      if (!value.empty()) values.push_back(value);
      start = end;
    }
    try {
      output << evaluate(std::string_view(line).substr(0, tab), values) << std::endl;
    } catch (const UserError& error) {
      output << "error: " << on_one_line(error.what()) << std::endl;
    }
  }
}

}  // namespace kurv::app
