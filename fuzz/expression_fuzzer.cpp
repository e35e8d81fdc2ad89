// Gives any bytes to the evaluator and stops the program where it breaks a promise. tools/fuzz
// builds and runs it.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

#include "expr/evaluator.h"
#include "expr/parser.h"

namespace kurv {
namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

// Both the answer of the flag and that of the value.
Double evaluated(ExprEvaluator& evaluator, std::string_view text) {
  evaluator.SetExpression(text);
  const Double value = evaluator.Evaluate();
  require(std::isnan(value) ? evaluator.GetEvalError() : std::isfinite(value));
  require(std::isnan(value) || !evaluator.GetEvalError());
  return value;
}

bool same(Double left, Double right) {
  return left == right || (std::isnan(left) && std::isnan(right));
}

void check_refusal(const ParsedExpression& parsed, std::string_view text) {
  require(parsed.variables.empty());
  require(parsed.message.size() > 2 && parsed.message.size() < 300);
  require(parsed.message.back() == '.');
  require(parsed.message.find('\n') == String::npos);
  require(parsed.place >= 0 && static_cast<std::size_t>(parsed.place) <= text.size());
  require(std::isnan(evaluated(*make_evaluator(), text)));
}

void check_expression(const ParsedExpression& parsed, std::string_view text) {
  require(parsed.message.empty() && parsed.place == 0);
  const auto evaluator = make_evaluator();
  const Double undefined = evaluated(*evaluator, text);
  std::set<String> names;
  Double value = 0.5;
  for (const String& name : parsed.variables) {
    require(names.insert(name).second);
    evaluator->SetVariable(name, value);
    value = 1.5 - 2 * value;
  }
  const Double defined = evaluated(*evaluator, text);
  if (parsed.variables.empty()) require(same(undefined, defined));
  require(same(defined, evaluated(*evaluator, "(" + String(text) + ")")) ||
          text.size() + 2 > expr::kMaxLength ||
          !evaluator->ParseExpression("(" + String(text) + ")").ok);
}

void check(std::string_view text) {
  const auto evaluator = make_evaluator();
  const ParsedExpression parsed = evaluator->ParseExpression(text);
  if (parsed.ok) {
    check_expression(parsed, text);
  } else {
    check_refusal(parsed, text);
  }
  if (evaluator->IsValidVariableName(text)) {
    require(parsed.ok && parsed.variables.size() == 1);
    evaluator->SetVariable(text, 42);
    require(evaluated(*evaluator, text) == 42);
  }
}

}  // namespace
}  // namespace kurv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kurv::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
