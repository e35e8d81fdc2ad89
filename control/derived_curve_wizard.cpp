#include "control/derived_curve_wizard.h"

#include <algorithm>
#include <string_view>

#include <KurvGraph/text.h>

#include "control/control_state.h"
#include "control/derived_curves.h"

namespace kurv {

namespace {

constexpr const char* kCurvePromptTitle = "Add derived scatter curve";
constexpr const char* kNameText =
    "Step 1 of 2.\r\r"
    "Enter the name of derived function curve. This must be a valid and unique variable name.";
constexpr const char* kExpressionText =
    "Step 2 of 2.\r\r"
    "Enter the algebric expression as function of other scatter curve names.";

// Whether one of the names 1 to `last` equals this one, without the blanks around either.
bool is_known(const GraphDocument& document, std::string_view name, int last) {
  for (int k = 1; k <= last; ++k) {
    if (trim_blanks(document.yVarName(k)) == trim_blanks(name)) return true;
  }
  return false;
}

// The evaluator is given the name with the blanks around it, the list is searched without them.
std::optional<String> check_name(ControlState& state, const String& name) {
  const GraphDocument& document = state.document;
  if (!state.wizard_evaluator.get().IsValidVariableName(name)) {
    return "'" + name + "' is not a valid variable name";
  }
  if (is_known(document, name, document.yVarName.upper())) {
    return "'" + name + "' is not a unique variable name";
  }
  return std::nullopt;
}

// With several opening brackets, the names of the curves decide where a name in brackets ends, so
// the evaluator is given them; their values do not matter.
void set_names(const GraphDocument& document, const String& expression, ExprEvaluator& evaluator) {
  if (std::count(expression.begin(), expression.end(), '[') < 2) return;
  for (int c = 1; c <= document.NumY + 1; ++c) evaluator.SetVariable(document.yVarName(c), 0);
}

std::optional<String> check_expression(ControlState& state, const String& expression) {
  const GraphDocument& document = state.document;
  ExprEvaluator& evaluator = state.wizard_evaluator.get();
  set_names(document, expression, evaluator);
  const ParsedExpression parsed = evaluator.ParseExpression(expression);
  if (!parsed.ok) return parsed.message;
  for (const String& name : parsed.variables) {
    if (!is_known(document, name, document.NumY + 1)) {
      return "'" + name + "' is not a known scatter curve name";
    }
  }
  return std::nullopt;
}

// Returns the message for the user where the text is not accepted.
using Check = std::optional<String> (*)(ControlState&, const String&);

// Each prompt proposes the previous answer. Returns the first that is accepted, or the empty text.
String prompt_until_accepted(ControlState& state, const char* text, Check check) {
  String answer;
  while (true) {
    answer = state.shell.input_prompt(text, kCurvePromptTitle, answer);
    if (answer.empty()) return answer;
    const std::optional<String> refusal = check(state, answer);
    if (!refusal) return answer;
    state.shell.message_box(*refusal, kExclamation, "KURV Guide");
  }
}

void append(ControlState& state, const String& name, const String& expression) {
  append_derived_curve(state, String(trim_blanks(name)), expression);
}

}  // namespace

void add_derived_curve(ControlState& state) {
  const String name = prompt_until_accepted(state, kNameText, check_name);
  if (name.empty()) return;
  const String expression = prompt_until_accepted(state, kExpressionText, check_expression);
  if (!expression.empty()) append(state, name, expression);
}

std::optional<String> derive(ControlState& state, const String& name, const String& expression) {
  if (const std::optional<String> refusal = check_name(state, name)) return refusal;
  if (const std::optional<String> refusal = check_expression(state, expression)) {
    return refusal;
  }
  append(state, name, expression);
  return std::nullopt;
}

}  // namespace kurv
