#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "expr/evaluator.h"

namespace {

int g_allocations = 0;

void* counted(std::size_t size) {
  ++g_allocations;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return counted(size);
}
void* operator new[](std::size_t size) {
  return counted(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace kurv {
namespace {

template <class Action>
int allocations_in(Action action) {
  const int before = g_allocations;
  action();
  return g_allocations - before;
}

// Too long for the small-string optimisation.
constexpr std::string_view kLongName = "a name that is longer than any string keeps in place";
constexpr std::string_view kExpression =
    "max(x,[a name that is longer than any string keeps in place],1)*(sin(x)+2)^2-y/(1+x)";

TEST(Allocation, CountingWorks) {
  EXPECT_GT(allocations_in([] { make_evaluator(); }), 0);
}

TEST(Allocation, PerPointCallsTakeNoMemory) {
  const auto evaluator = make_evaluator();
  for (const std::string_view name : {std::string_view("x"), kLongName, std::string_view("y")}) {
    evaluator->SetVariable(name, 0);
  }
  evaluator->SetExpression(kExpression);
  Double sum = 0;
  const int count = allocations_in([&] {
    for (int i = 0; i < 1000; ++i) {
      evaluator->SetVariable("x", i);
      evaluator->SetVariable(kLongName, i % 7);
      evaluator->SetVariable(i % 2 == 0 ? "y" : " y ", i % 3);
      evaluator->SetExpression(kExpression);
      sum += evaluator->Evaluate();
      if (evaluator->GetEvalError()) sum = -1;
    }
  });
  EXPECT_EQ(count, 0);
  EXPECT_GT(sum, 0);
}

TEST(Allocation, KnownNamesInAnyOrderTakeNoMemory) {
  const auto evaluator = make_evaluator();
  const String names[] = {"a", String(kLongName), String(kLongName) + "2", "d"};
  for (const String& name : names) evaluator->SetVariable(name, 0);
  EXPECT_EQ(allocations_in([&] {
              for (int i = 0; i < 1000; ++i) evaluator->SetVariable(names[i * i % 7 % 4], i);
            }),
            0);
}

TEST(Allocation, FailingEvaluationTakesNoMemory) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("sqrt(x)+missing");
  evaluator->SetVariable("x", -1);
  EXPECT_EQ(allocations_in([&] { evaluator->Evaluate(); }), 0);
  EXPECT_TRUE(evaluator->GetEvalError());
}

TEST(Allocation, CurrentTextThatIsNoExpressionIsNotReadAgain) {
  const auto evaluator = make_evaluator();
  const String text = "(" + String(kLongName);
  evaluator->SetExpression(text);
  EXPECT_EQ(allocations_in([&] { evaluator->SetExpression(text); }), 0);
}

}  // namespace
}  // namespace kurv
