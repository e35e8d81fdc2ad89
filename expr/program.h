// The compiled form of an expression: code for a stack machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <KurvGraph/values.h>

namespace kurv::expr {

enum class Opcode : std::uint32_t {
  kPush,  // pushes an operand onto the stack
  kNegate,
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kPower,
  // The same with an operand on the right: a kPush and one of the above in one instruction.
  kAddOperand,
  kSubtractOperand,
  kMultiplyOperand,
  kDivideOperand,
  kCallUnary,
  kCallBinary
};

// A number, or a variable whose value is known only when the program runs.
struct Operand {
  String name;  // empty for a number
  Double number = 0;
};

class Program {
 public:
  // Returns its position in operands().
  std::size_t add_operand(Operand operand);
  // Pushes the operand at this position.
  void add_push(std::size_t operand);
  // kNegate to kPower.
  void add_operation(Opcode opcode);
  // Calls the function at this position in functions() with one or two values from the stack.
  void add_call(std::size_t function, int arguments);

  const std::vector<Operand>& operands() const { return m_operands; }

  // Runs the program with a value for each operand, none of them infinite. Returns its value, or
  // NaN as soon as an instruction gives no finite number, because a later one could hide an
  // infinity. An empty program returns NaN. Not const, because it works on its own stack, which
  // grows to the depth that the code needs while code is added: running allocates nothing.
  Double run(const Double* const* operands);

 private:
  struct Instruction {
    Opcode opcode;
    std::uint32_t index;  // of the operand or the function
  };

  void append(Opcode opcode, std::size_t index, int stack_effect);
  bool fuse_with_last_push(Opcode opcode);

  std::vector<Instruction> m_code;
  std::vector<Operand> m_operands;
  std::vector<Double> m_stack;
  int m_depth = 0;  // of the stack after the last instruction
};

}  // namespace kurv::expr
