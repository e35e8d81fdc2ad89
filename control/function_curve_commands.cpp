#include "control/function_curve_commands.h"

#include <algorithm>
#include <memory>

#include <KurvGraph/limits.h>
#include <KurvGraph/text.h>

#include "control/control_state.h"
#include "control/redraw.h"
#include "control/undo.h"

namespace kurv {

namespace {

constexpr const char* kMessageTitle = "KURV Guide";
constexpr const char* kFunctionPromptTitle = "KURV";
static_assert(kMaxFunctions == 30);
// Two blanks before the number: hosts may compare the message with this text.
constexpr const char* kTooMany =
    "You can not use more than  30 user function curves. Selection aborted.";
constexpr const char* kOnlyX = "Only 'x' variable is allowed in the algebric expression.";
constexpr const char* kAddText =
    "Enter new y function curve.\r"
    "Numeric expression as function of x,\r"
    "For example: x*(sin(x)+2)\r"
    "\r"
    "Change the y scale if the curve cannot be seen.";
constexpr const char* kEditText =
    "Edit y function curve\r"
    "(Numeric expression as function of x).";

bool is_full(const GraphDocument& document) {
  return document.NumYFunc >= kMaxFunctions;
}

bool is_x(const String& name) {
  return equals_ignoring_case(name, "x");
}

std::optional<String> check_function(ExprEvaluator& evaluator, const String& text) {
  const ParsedExpression parsed = evaluator.ParseExpression(text);
  if (!parsed.ok) return parsed.message;
  const std::vector<String>& names = parsed.variables;
  // Both letter cases in one expression are two variables.
  if (names.size() > 1 || !std::all_of(names.begin(), names.end(), is_x)) return kOnlyX;
  return std::nullopt;
}

void set_function(FunctionCurve& slot, const String& expression) {
  slot.expression = expression;
  slot.label = expression;
  slot.visible = true;
}

// The first of slots 1 to 30 with this very text; null where there is none.
FunctionCurve* find_function(GraphDocument& document, const String& text) {
  for (int k = 1; k <= kMaxFunctions; ++k) {
    if (document.y_func(k).expression == text) return &document.y_func(k);
  }
  return nullptr;
}

bool has_functions(const GraphDocument& document) {
  for (int k = 1; k <= kMaxFunctions; ++k) {
    if (!document.y_func(k).expression.empty()) return true;
  }
  return false;
}

}  // namespace

void add_function(ControlState& state) {
  if (is_full(state.document)) {
    state.shell.message_box(kTooMany, kCriticalStop, kMessageTitle);
    return;
  }
  const String answer = state.shell.input_prompt(kAddText, kFunctionPromptTitle, "");
  if (answer.empty()) return;
  const std::optional<String> refusal = add_function(state, answer);
  if (!refusal) return;
  // The last slot may have been taken while the prompt was open.
  const int flags = *refusal == kTooMany ? kCriticalStop : kExclamation;
  state.shell.message_box(*refusal, flags, kMessageTitle);
}

std::optional<String> add_function(ControlState& state, const String& expression) {
  GraphDocument& document = state.document;
  if (is_full(document)) return kTooMany;
  const std::optional<String> refusal = check_function(expression);
  if (refusal) return refusal;
  const StepRecorder step(state, {"Add Function"});
  ++document.NumYFunc;
  set_function(document.y_func(document.NumYFunc), expression);
  build_the_graph(state);
  return std::nullopt;
}

std::optional<String> check_function(const String& expression) {
  const auto evaluator = create<ExprEvaluator>(kExprEvaluatorClass);
  return check_function(*evaluator, expression);
}

void edit_function(ControlState& state, const String& selected) {
  GraphDocument& document = state.document;
  if (!has_functions(document)) return;
  FunctionCurve* const slot = find_function(document, selected);
  if (!slot) return;
  const String answer = state.shell.input_prompt(kEditText, kFunctionPromptTitle, slot->expression);
  if (answer.empty()) return;
  const std::optional<String> refusal = check_function(*state.services.evaluator, answer);
  if (refusal) {
    state.shell.message_box(*refusal, kExclamation, kMessageTitle);
    return;
  }
  const StepRecorder step(state, {"Edit Function"});
  set_function(*slot, answer);
  build_the_graph(state);
}

}  // namespace kurv
