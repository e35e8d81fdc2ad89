#include "expr/evaluator.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <unordered_map>
#include <utility>

#include <KurvGraph/text.h>

#include "expr/characters.h"
#include "expr/parser.h"
#include "expr/program.h"
#include "model/vzeroupper.h"

namespace kurv {

namespace {

// The value of an undefined variable: each evaluation that reads it fails.
constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();

// Most names are a single letter, for which calling memcmp() costs more than all the rest.
bool equal_names(std::string_view left, std::string_view right) {
  if (left.size() != 1) return left == right;
  return right.size() == 1 && left[0] == right[0];
}

// Lets a table of Strings be searched for a string_view without a temporary String.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    return std::hash<std::string_view>()(name);
  }
};

// The variables by name. The addresses of their values are stable.
class Variables {
 public:
  // Predicts that this is the variable that was set next after the current one the last time, and
  // sets it without a lookup. Returns false where the prediction is wrong. Callers set the same
  // names in the same order for each point, so it mostly is right.
  bool set_predicted(std::string_view name, Double value);
  // Returns whether the variable is new.
  bool set(std::string_view name, Double value);
  // Null where no variable has that name.
  const Double* find(std::string_view name) const;

 private:
  struct Variable;
  using Entry = std::pair<const String, Variable>;
  struct Variable {
    Double value = 0;
    Entry* successor = nullptr;
  };

  std::unordered_map<String, Variable, NameHash, std::equal_to<>> m_table;
  Entry* m_last = nullptr;
};

bool Variables::set_predicted(std::string_view name, Double value) {
  Entry* const predicted = m_last ? m_last->second.successor : nullptr;
  if (!predicted || !equal_names(predicted->first, name)) return false;
  predicted->second.value = value;
  m_last = predicted;
  return true;
}

bool Variables::set(std::string_view name, Double value) {
  auto found = m_table.find(name);
  const bool is_new = found == m_table.end();
  if (is_new) found = m_table.try_emplace(String(name)).first;
  found->second.value = value;
  if (m_last) m_last->second.successor = &*found;
  m_last = &*found;
  return is_new;
}

const Double* Variables::find(std::string_view name) const {
  const auto found = m_table.find(name);
  return found == m_table.end() ? nullptr : &found->second.value;
}

class BuiltInEvaluator final : public ExprEvaluator {
 public:
  ParsedExpression ParseExpression(std::string_view text) override {
    const expr::Compilation compilation = compiled(text);
    ParsedExpression parsed{
        compilation.message.empty(), {}, compilation.message, compilation.place};
    for (const expr::Operand& operand : compilation.program.operands()) {
      if (!operand.name.empty()) parsed.variables.push_back(operand.name);
    }
    return parsed;
  }

  bool IsValidVariableName(std::string_view name) const override {
    return expr::is_variable_name(trim_blanks(name));
  }

  // A division by an infinity would hide it, so it counts as a missing value like NaN.
  void SetVariable(std::string_view name, Double value) override {
    if (!std::isfinite(value)) value = kMissing;
    if (m_variables.set_predicted(name, value)) return;
    if (m_variables.set(trim_blanks(name), value)) m_bound = false;
  }

  bool GetEvalError() const override { return m_failed; }

  Double Evaluate() override {
    // Hosts that evaluate expressions themselves call nothing else that clears the registers. Doing
    // it each time would take a tenth of the time of a short expression.
    constexpr unsigned kClearingInterval = 64;
    if (m_evaluations++ % kClearingInterval == 0) issue_vzeroupper();
    if (!m_bound) bind();
    const Double value = m_program.run(m_values.data());
    m_failed = std::isnan(value);
    return value;
  }

  void SetExpression(std::string_view text) override {
    if (text == m_text) return;
    // All that can throw comes first, so that the old expression stays valid then.
    expr::Compilation compilation = compiled(text);
    std::vector<const Double*> values(compilation.program.operands().size());
    m_text = text;
    use(std::move(compilation), std::move(values));
  }

 private:
  expr::Compilation compiled(std::string_view text) const {
    return expr::compile(text, [this](std::string_view name) { return m_variables.find(name); });
  }

  void use(expr::Compilation compilation, std::vector<const Double*> values) {
    m_program = std::move(compilation.program);
    m_depends_on_names = compilation.depends_on_names;
    m_values = std::move(values);
    m_bound = false;
  }

  // Looks up the addresses of the operands' values. A variable that is defined later clears
  // m_bound, and may be what a bracket of the expression means.
  void bind() {
    if (m_depends_on_names) {
      expr::Compilation compilation = compiled(m_text);
      std::vector<const Double*> values(compilation.program.operands().size());
      use(std::move(compilation), std::move(values));
    }
    const auto value_of = [this](const expr::Operand& operand) {
      if (operand.name.empty()) return &operand.number;
      const Double* const value = m_variables.find(operand.name);
      return value ? value : &kMissing;
    };
    const std::vector<expr::Operand>& operands = m_program.operands();
    std::transform(operands.begin(), operands.end(), m_values.begin(), value_of);
    m_bound = true;
  }

  Variables m_variables;
  String m_text;  // an empty text goes with an empty program
  expr::Program m_program;
  std::vector<const Double*> m_values;  // one for each of the program's operands
  unsigned m_evaluations = 0;
  bool m_depends_on_names = false;  // another definition may change the program
  bool m_bound = true;
  bool m_failed = false;
};

}  // namespace

std::unique_ptr<ExprEvaluator> make_evaluator() {
  return std::make_unique<BuiltInEvaluator>();
}

}  // namespace kurv
