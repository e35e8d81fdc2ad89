// The compiled form of an expression: a flat list of steps on a stack.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <KurvGraph/values.h>

namespace kurv::expr {

enum class Operation : std::uint32_t {
  kPush,  // puts an operand on the stack
  kNegate,
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kPower,
  // The same with an operand on the right, in place of a kPush and one of the above.
  kAddOperand,
  kSubtractOperand,
  kMultiplyOperand,
  kDivideOperand,
  kCallOfOne,
  kCallOfTwo
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
  void push(std::size_t operand);
  // kNegate to kPower.
  void apply(Operation operation);
  // The function's position in functions(), and how many values it takes from the stack.
  void call(std::size_t function, int arguments);

  const std::vector<Operand>& operands() const { return m_operands; }

  // Runs the program on a value for each operand, none of them infinite, and returns its value, or
  // NaN as soon as a step gives no finite number: an infinity that a later step would hide is a
  // failure too. A program without steps fails. It is not const because it works on its own stack,
  // which was made as deep as the steps need when they were added.
  Double run(const Double* const* operands);

 private:
  struct Step {
    Operation operation;
    std::uint32_t index;  // of the operand or the function
  };

  void add_step(Operation operation, std::size_t index, int growth);
  bool join_last_push(Operation operation);

  std::vector<Step> m_steps;
  std::vector<Operand> m_operands;
  std::vector<Double> m_stack;
  int m_depth = 0;  // of the stack after the last step
};

}  // namespace kurv::expr
