#include <gtest/gtest.h>

#include "expr/parser.h"
#include "tests/expr/evaluate.h"

namespace kurv {
namespace {

String repeated(std::string_view part, std::size_t count) {
  String text;
  for (std::size_t i = 0; i < count; ++i) text += part;
  return text;
}

String message_of(std::string_view text) {
  return make_evaluator()->ParseExpression(text).message;
}

TEST(Limits, LengthIsLimitedToTheByte) {
  const String longest = String(expr::kMaxLength - 1, ' ') + "7";
  EXPECT_EQ(evaluate(longest).value, 7);
  EXPECT_EQ(message_of(longest + " "),
            "The expression is 32768 bytes long, but at most 32767 are allowed.");
  EXPECT_TRUE(evaluate(longest + " ").failed);
}

TEST(Limits, LengthOfANameIsThatOfAnExpression) {
  const auto evaluator = make_evaluator();
  EXPECT_TRUE(evaluator->IsValidVariableName(String(expr::kMaxLength, 'n')));
  EXPECT_FALSE(evaluator->IsValidVariableName(String(expr::kMaxLength + 1, 'n')));
}

TEST(Limits, ParenthesesAreNestedUpToTheLimit) {
  EXPECT_EQ(evaluate(repeated("(", 256) + "1" + repeated(")", 256)).value, 1);
  EXPECT_EQ(message_of(repeated("(", 257) + "1" + repeated(")", 257)),
            "The expression is nested more than 256 deep at character 257.");
}

TEST(Limits, ArgumentsAreNestedUpToTheLimit) {
  EXPECT_EQ(evaluate(repeated("max(2,", 256) + "3" + repeated(")", 256)).value, 3);
  EXPECT_EQ(message_of(repeated("abs(", 257) + "1" + repeated(")", 257)),
            "The expression is nested more than 256 deep at character 1028.");
}

TEST(Limits, ExponentsAreNestedUpToTheLimit) {
  EXPECT_EQ(evaluate("1" + repeated("^1", 256)).value, 1);
  EXPECT_EQ(message_of("1" + repeated("^1", 257)),
            "The expression is nested more than 256 deep at character 514.");
}

TEST(Limits, KindsOfNestingAddUp) {
  EXPECT_EQ(message_of(repeated("1+2*2^(", 128) + "0" + repeated(")", 128)), "");
  EXPECT_EQ(evaluate(repeated("1*2^(0*", 128) + "0" + repeated(")", 128)).value, 1);
  EXPECT_NE(message_of(repeated("1*2^(0*", 129) + "0" + repeated(")", 129)), "");
}

TEST(Limits, NeighboursDoNotNest) {
  EXPECT_EQ(evaluate("0" + repeated("+(1)", 8000)).value, 8000);
  EXPECT_EQ(evaluate("max(0" + repeated(",1", 16000) + ")").value, 1);
  EXPECT_EQ(evaluate(repeated("-", 32766) + "1").value, 1);
}

TEST(Limits, AsManyVariablesAsFit) {
  String text = "[0]";
  std::size_t count = 1;
  for (; text.size() < expr::kMaxLength - 10; ++count) text += "+[" + std::to_string(count) + "]";
  EXPECT_EQ(make_evaluator()->ParseExpression(text).variables.size(), count);
}

TEST(Limits, HostileTextsAreRefused) {
  for (const std::string_view part :
       {"(", "-",  "[",  "sin(", "max(1,",   "1^",  "x ",     "\xFF",      "((1)", ")",
        ",", "1e", "[]", "é",    "[a [b]]+", "[[]", "atan2(", "max(1,1),", ".",    "^"}) {
    for (const std::size_t count : {1U, 300U, 3000U, 3'000'000U}) {
      const String text = repeated(part, count) + "+";
      const String message = message_of(text);
      EXPECT_TRUE(message.ends_with(".")) << part << " " << count;
      EXPECT_LT(message.size(), 300U);
      EXPECT_TRUE(evaluate(text).failed) << part << " " << count;
    }
  }
}

}  // namespace
}  // namespace kurv
