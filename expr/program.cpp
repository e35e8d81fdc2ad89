#include "expr/program.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "expr/functions.h"

namespace kurv::expr {

namespace {

constexpr Double kNoResult = std::numeric_limits<Double>::quiet_NaN();

Double quotient(Double dividend, Double divisor) {
  return divisor == 0 ? kNoResult : dividend / divisor;
}

}  // namespace

std::size_t Program::add_operand(Operand operand) {
  m_operands.push_back(std::move(operand));
  return m_operands.size() - 1;
}

void Program::add_push(std::size_t operand) {
  append(Opcode::kPush, operand, 1);
}

void Program::add_operation(Opcode opcode) {
  if (fuse_with_last_push(opcode)) return;
  append(opcode, 0, opcode == Opcode::kNegate ? 0 : -1);
}

void Program::add_call(std::size_t function, int arguments) {
  const bool unary = arguments == 1;
  append(unary ? Opcode::kCallUnary : Opcode::kCallBinary, function, unary ? 0 : -1);
}

void Program::append(Opcode opcode, std::size_t index, int stack_effect) {
  m_code.push_back({opcode, static_cast<std::uint32_t>(index)});
  m_depth += stack_effect;
  m_stack.resize(std::max(m_stack.size(), static_cast<std::size_t>(m_depth)));
}

// A peephole optimisation: the number of instructions is most of the cost of a program. A push
// directly before a binary operation is its right operand.
bool Program::fuse_with_last_push(Opcode opcode) {
  const auto fused = [opcode] {
    switch (opcode) {
      case Opcode::kAdd:
        return Opcode::kAddOperand;
      case Opcode::kSubtract:
        return Opcode::kSubtractOperand;
      case Opcode::kMultiply:
        return Opcode::kMultiplyOperand;
      case Opcode::kDivide:
        return Opcode::kDivideOperand;
      default:
        return opcode;
    }
  }();
  if (fused == opcode || m_code.back().opcode != Opcode::kPush) return false;
  m_code.back().opcode = fused;
  --m_depth;
  return true;
}

// The top of the stack is kept in `top`, which is most often a register. The first push spills the
// initial NaN, which no instruction reads; only an empty program returns it.
Double Program::run(const Double* const* operands) {
  const Function* const table = functions();
  Double* below = m_stack.data();
  Double top = kNoResult;
  for (const Instruction instruction : m_code) {
    switch (instruction.opcode) {
      case Opcode::kPush:
        *below++ = top;
        top = *operands[instruction.index];
        break;
      case Opcode::kNegate:
        top = -top;
        break;
      case Opcode::kAdd:
        top = *--below + top;
        break;
      case Opcode::kSubtract:
        top = *--below - top;
        break;
      case Opcode::kMultiply:
        top = *--below * top;
        break;
      case Opcode::kDivide:
        top = quotient(*--below, top);
        break;
      case Opcode::kPower:
        top = power(*--below, top);
        break;
      case Opcode::kAddOperand:
        top += *operands[instruction.index];
        break;
      case Opcode::kSubtractOperand:
        top -= *operands[instruction.index];
        break;
      case Opcode::kMultiplyOperand:
        top *= *operands[instruction.index];
        break;
      case Opcode::kDivideOperand:
        top = quotient(top, *operands[instruction.index]);
        break;
      case Opcode::kCallUnary:
        top = table[instruction.index].unary(top);
        break;
      case Opcode::kCallBinary:
        top = table[instruction.index].binary(*--below, top);
        break;
    }
    if (!std::isfinite(top)) return kNoResult;
  }
  return top;
}

}  // namespace kurv::expr
