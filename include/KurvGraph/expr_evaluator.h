/// @file
/// What the control needs of an evaluator of algebraic expressions.
///
/// It is an interface because the control never computes an expression itself: a host may bring an
/// evaluator of its own, and tests count the calls. An evaluator keeps its variables, its current
/// expression and its error flag to itself and shares none of them with another one.
#pragma once

#include <string_view>
#include <vector>

#include <KurvGraph/service.h>
#include <KurvGraph/values.h>

namespace kurv {

/// The answer to whether a text is an expression, and over which variables.
struct ParsedExpression {
  bool ok = false;  ///< whether the text is an expression
  /// The distinct names, in the order in which they first appear, letter case kept and the quoting
  /// brackets left out. Empty unless ok.
  std::vector<String> variables;
  /// Empty when ok, otherwise one whole sentence that can be shown to the user unchanged.
  String message;
  /// The character, counted from 1, that the message is about; 0 where it is about none.
  Integer place = 0;
};

/// Parses and computes expressions.
class KURV_EXPORT ExprEvaluator : public Service {
 public:
  /// Parses a text without making it the current expression. Changes neither the current expression
  /// nor the variables. The variables that are set may decide how a name is read that could be read
  /// in two ways; nothing else depends on them.
  virtual ParsedExpression ParseExpression(std::string_view text) = 0;

  /// Whether the text, with or without blanks around it, can be used in an expression as a
  /// variable.
  virtual bool IsValidVariableName(std::string_view name) const = 0;

  /// Defines the variable or replaces its value. Any name is taken and any value, also one that
  /// makes each evaluation fail that reads it.
  virtual void SetVariable(std::string_view name, Double value) = 0;

  /// Whether the last Evaluate() failed; false before the first.
  virtual bool GetEvalError() const = 0;

  /// The value of the current expression with the variables as they are now. It always returns,
  /// and what it returns after a failure is not to be relied on.
  virtual Double Evaluate() = 0;

  /// Makes the text the current expression. It may be called before each Evaluate() with the same
  /// text. A text that is no expression is not refused here: each evaluation of it fails.
  virtual void SetExpression(std::string_view text) = 0;
};

}  // namespace kurv
