#include "expr/program.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "expr/functions.h"

namespace kurv::expr {

namespace {

constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();

Double quotient(Double dividend, Double divisor) {
  return divisor == 0 ? kMissing : dividend / divisor;
}

}  // namespace

std::size_t Program::add_operand(Operand operand) {
  m_operands.push_back(std::move(operand));
  return m_operands.size() - 1;
}

void Program::push(std::size_t operand) {
  add_step(Operation::kPush, operand, 1);
}

void Program::apply(Operation operation) {
  if (join_last_push(operation)) return;
  add_step(operation, 0, operation == Operation::kNegate ? 0 : -1);
}

void Program::call(std::size_t function, int arguments) {
  const bool of_one = arguments == 1;
  add_step(of_one ? Operation::kCallOfOne : Operation::kCallOfTwo, function, of_one ? 0 : -1);
}

void Program::add_step(Operation operation, std::size_t index, int growth) {
  m_steps.push_back({operation, static_cast<std::uint32_t>(index)});
  m_depth += growth;
  m_stack.resize(std::max(m_stack.size(), static_cast<std::size_t>(m_depth)));
}

// Fewer steps are most of what makes a program quick. A push that comes last before an operation of
// two operands is its right one.
bool Program::join_last_push(Operation operation) {
  const auto joined = [operation] {
    switch (operation) {
      case Operation::kAdd:
        return Operation::kAddOperand;
      case Operation::kSubtract:
        return Operation::kSubtractOperand;
      case Operation::kMultiply:
        return Operation::kMultiplyOperand;
      case Operation::kDivide:
        return Operation::kDivideOperand;
      default:
        return operation;
    }
  }();
  if (joined == operation || m_steps.back().operation != Operation::kPush) return false;
  m_steps.back().operation = joined;
  --m_depth;
  return true;
}

// The uppermost value of the stack lives in `top`. What the first push moves down is no value, and
// so that NaN is never read, save at the end of a program without steps.
Double Program::run(const Double* const* operands) {
  const Function* const table = functions();
  Double* below = m_stack.data();
  Double top = kMissing;
  for (const Step step : m_steps) {
    switch (step.operation) {
      case Operation::kPush:
        *below++ = top;
        top = *operands[step.index];
        break;
      case Operation::kNegate:
        top = -top;
        break;
      case Operation::kAdd:
        top = *--below + top;
        break;
      case Operation::kSubtract:
        top = *--below - top;
        break;
      case Operation::kMultiply:
        top = *--below * top;
        break;
      case Operation::kDivide:
        top = quotient(*--below, top);
        break;
      case Operation::kPower:
        top = power(*--below, top);
        break;
      case Operation::kAddOperand:
        top += *operands[step.index];
        break;
      case Operation::kSubtractOperand:
        top -= *operands[step.index];
        break;
      case Operation::kMultiplyOperand:
        top *= *operands[step.index];
        break;
      case Operation::kDivideOperand:
        top = quotient(top, *operands[step.index]);
        break;
      case Operation::kCallOfOne:
        top = table[step.index].of_one(top);
        break;
      case Operation::kCallOfTwo:
        top = table[step.index].of_two(*--below, top);
        break;
    }
    if (!std::isfinite(top)) return kMissing;
  }
  return top;
}

}  // namespace kurv::expr
