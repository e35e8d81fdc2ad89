#include "control/function_curve_commands.h"

#include <gmock/gmock.h>

#include "tests/control/counting_evaluator.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;
using testing::IsEmpty;

constexpr const char* kTooMany =
    "You can not use more than  30 user function curves. Selection aborted.";
constexpr const char* kOnlyX = "Only 'x' variable is allowed in the algebric expression.";

class FunctionCommands : public testing::Test {
 protected:
  FunctionCommands() { host.load({0, 1, 2}, {1, 3, 2}); }

  void fill(int count) {
    for (int k = 1; k <= count; ++k) {
      ASSERT_EQ(host.control.add_function("x+" + std::to_string(k)), std::nullopt);
    }
    host.surface.clear_log();
  }
  void add(const char* answer) {
    host.surface.clear_log();
    host.shell.inputs = {answer};
    host.control.add_function();
  }
  void edit(const char* selected, const char* answer) {
    host.surface.clear_log();
    host.shell.inputs = {answer};
    host.control.edit_function(selected);
  }
  const String& expression(int k) { return host.document().y_func(k).expression; }
  bool redrawn() const { return host.surface.log().find("cls\n") != std::string::npos; }

  void expect_refused(const String& text, int flags = kExclamation) {
    ASSERT_EQ(host.shell.messages.size(), 1u);
    EXPECT_EQ(host.shell.messages[0].text, text);
    EXPECT_EQ(host.shell.messages[0].flags, flags);
    EXPECT_EQ(host.shell.messages[0].title, "KURV Guide");
    EXPECT_FALSE(redrawn());
    host.shell.messages.clear();
  }

  TestHost host;
};

TEST_F(FunctionCommands, AddAsksInFiveLines) {
  add("x^2");
  ASSERT_EQ(host.shell.prompts.size(), 1u);
  EXPECT_EQ(host.shell.prompts[0].text,
            "Enter new y function curve.\rNumeric expression as function of x,\r"
            "For example: x*(sin(x)+2)\r\rChange the y scale if the curve cannot be seen.");
  EXPECT_EQ(host.shell.prompts[0].title, "KURV");
  EXPECT_EQ(host.shell.prompts[0].default_text, "");
}

TEST_F(FunctionCommands, WhatIsAddedIsCountedVisibleAndDrawn) {
  add("x^2");
  EXPECT_EQ(host.document().NumYFunc, 1);
  EXPECT_EQ(expression(1), "x^2");
  EXPECT_TRUE(host.document().y_func(1).visible.is_exactly_true());
  EXPECT_TRUE(redrawn());
  EXPECT_THAT(host.shell.messages, IsEmpty());
}

TEST_F(FunctionCommands, TheAnswerIsStoredAsTypedWithItsBlanks) {
  add("  x * 2 ");
  EXPECT_EQ(expression(1), "  x * 2 ");
}

TEST_F(FunctionCommands, BothLetterCasesAndAConstantAreAccepted) {
  for (const char* answer : {"X*2", "x*2", "X*X", "3"}) add(answer);
  EXPECT_EQ(host.document().NumYFunc, 4);
  EXPECT_THAT(host.shell.messages, IsEmpty());
}

TEST_F(FunctionCommands, AnEmptyAnswerEndsSilently) {
  add("");
  EXPECT_EQ(host.document().NumYFunc, 0);
  EXPECT_THAT(host.shell.messages, IsEmpty());
  EXPECT_FALSE(redrawn());
}

TEST_F(FunctionCommands, ASyntaxErrorIsReportedInTheEvaluatorsWords) {
  add("x+");
  expect_refused(make_evaluator()->ParseExpression("x+").message);
  add(" ");
  expect_refused(make_evaluator()->ParseExpression(" ").message);
  EXPECT_EQ(host.document().NumYFunc, 0);
  EXPECT_EQ(expression(1), "");
}

TEST_F(FunctionCommands, OtherVariablesAreRefused) {
  for (const char* answer : {"x+y", "y", "x+X", "[x y]", "xx", "x+y+z"}) {
    add(answer);
    expect_refused(kOnlyX);
  }
  EXPECT_EQ(host.document().NumYFunc, 0);
}

TEST_F(FunctionCommands, AfterTwentyNineOneMoreCanBeAdded) {
  fill(29);
  add("x^2");
  EXPECT_EQ(host.document().NumYFunc, 30);
  EXPECT_EQ(expression(30), "x^2");
}

TEST_F(FunctionCommands, AtThirtyTheLimitIsReportedWithTwoBlanksBeforeAnyPrompt) {
  fill(30);
  add("x^2");
  EXPECT_THAT(host.shell.prompts, IsEmpty());
  expect_refused(kTooMany, kCriticalStop);
  EXPECT_EQ(host.document().NumYFunc, 30);
}

TEST_F(FunctionCommands, WithoutAPromptTheSentenceComesBack) {
  EXPECT_EQ(host.control.add_function("x+y"), kOnlyX);
  EXPECT_EQ(host.control.add_function(""), make_evaluator()->ParseExpression("").message);
  EXPECT_EQ(host.control.add_function("x)"), make_evaluator()->ParseExpression("x)").message);
  EXPECT_EQ(host.control.add_function("x"), std::nullopt);
  fill(29);
  EXPECT_EQ(host.control.add_function("x"), kTooMany);
  EXPECT_EQ(host.document().NumYFunc, 30);
  EXPECT_THAT(host.shell.messages, IsEmpty());
  EXPECT_THAT(host.shell.prompts, IsEmpty());
}

TEST_F(FunctionCommands, ACountBelowZeroFindsNoSlot) {
  host.document().NumYFunc = -5;
  EXPECT_THROW(host.control.add_function("x"), Fault);
}

TEST_F(FunctionCommands, EditProposesTheTextAndReplacesIt) {
  fill(3);
  host.document().y_func(2).visible = false;
  edit("x+2", "x*5");
  ASSERT_EQ(host.shell.prompts.size(), 1u);
  EXPECT_EQ(host.shell.prompts[0].text,
            "Edit y function curve\r(Numeric expression as function of x).");
  EXPECT_EQ(host.shell.prompts[0].title, "KURV");
  EXPECT_EQ(host.shell.prompts[0].default_text, "x+2");
  EXPECT_EQ(expression(2), "x*5");
  EXPECT_TRUE(host.document().y_func(2).visible.is_exactly_true());
  EXPECT_EQ(host.document().NumYFunc, 3);
  EXPECT_TRUE(redrawn());
}

TEST_F(FunctionCommands, EditTakesTheFirstOfEqualTextsInTheSameLetterCase) {
  for (const char* text : {"X", "x", "x"}) host.control.add_function(text);
  edit("x", "x*9");
  EXPECT_EQ(expression(1), "X");
  EXPECT_EQ(expression(2), "x*9");
  EXPECT_EQ(expression(3), "x");
}

TEST_F(FunctionCommands, EditDoesNothingForAnUnknownTextOrWithoutFunctions) {
  edit("", "x");
  edit("x", "x");
  EXPECT_THAT(host.shell.prompts, IsEmpty()) << "no functions";
  fill(2);
  edit("X+1", "x");
  EXPECT_THAT(host.shell.prompts, IsEmpty()) << "the letter case counts";
  EXPECT_FALSE(redrawn());
}

TEST_F(FunctionCommands, EditRefusesLikeAdd) {
  fill(1);
  edit("x+1", "x+");
  expect_refused(make_evaluator()->ParseExpression("x+").message);
  edit("x+1", "x+y");
  expect_refused(kOnlyX);
  edit("x+1", "");
  EXPECT_THAT(host.shell.messages, IsEmpty());
  EXPECT_FALSE(redrawn());
  EXPECT_EQ(expression(1), "x+1");
}

TEST_F(FunctionCommands, EditOfNoSelectionFillsTheFirstFreeSlotWithoutCountingIt) {
  fill(2);
  const std::string two = host.redrawn();
  edit("", "x*7");
  EXPECT_EQ(host.shell.prompts[0].default_text, "");
  EXPECT_EQ(expression(3), "x*7");
  EXPECT_TRUE(host.document().y_func(3).visible);
  EXPECT_EQ(host.document().NumYFunc, 2);
  EXPECT_EQ(host.redrawn(), two) << "not drawn";
  add("x*8");
  EXPECT_EQ(host.document().NumYFunc, 3);
  EXPECT_EQ(expression(3), "x*8") << "the next one takes its place";
}

TEST_F(FunctionCommands, EditOfNoSelectionWithAllSlotsFilledDoesNothing) {
  fill(30);
  edit("", "x*7");
  EXPECT_THAT(host.shell.prompts, IsEmpty());
}

TEST_F(FunctionCommands, AFailedRedrawLeavesTheFunctionAdded) {
  host.control.set_NumTicks(0);
  EXPECT_THROW(add("x"), Fault);
  EXPECT_EQ(host.document().NumYFunc, 1);
}

TEST(FunctionCommandEvaluators, AddHasAFreshOneAndEditTheLibrarys) {
  test::CountedEvaluators evaluators;
  TestHost host;
  host.shell.inputs = {"x", "x+y", "x*2", "x*3"};
  host.control.add_function();
  ASSERT_EQ(evaluators.count(), 2) << "nothing is drawn before an intake";
  EXPECT_EQ(evaluators.take(2), "Parse ");
  EXPECT_FALSE(evaluators(2).is_alive) << "it lives no longer than the command";
  host.control.add_function();
  ASSERT_EQ(evaluators.count(), 3);
  EXPECT_FALSE(evaluators(3).is_alive);
  EXPECT_EQ(evaluators.take(1), "");
  host.control.edit_function("x");
  host.control.edit_function("x*2");
  EXPECT_EQ(evaluators.take(1), "Parse Parse ");
  EXPECT_EQ(evaluators.count(), 3);
}

TEST(FunctionCommandEvaluators, OneThatCannotBeCreatedEndsTheCommand) {
  TestHost host;
  const test::HostsEvaluator refusing(
      []() -> std::unique_ptr<Service> { throw Fault(FaultKind::kCannotCreateObject); });
  host.shell.inputs = {"x"};
  EXPECT_THROW(host.control.add_function(), Fault);
  EXPECT_EQ(host.document().NumYFunc, 0);
}

}  // namespace
}  // namespace kurv
