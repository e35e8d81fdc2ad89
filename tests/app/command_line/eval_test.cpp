#include "app/command_line/eval_command.h"

#include <gtest/gtest.h>

#include <sstream>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

std::string refusal(const std::string& expression, const Assignments& values = {}) {
  try {
    return "no refusal but " + evaluate(expression, values);
  } catch (const UserError& error) {
    EXPECT_EQ(error.exit_status(), kFailure);
    return error.what();
  }
}

TEST(Eval, PrintsTheValueInItsShortestForm) {
  EXPECT_EQ(evaluate("2^3^2", {}), "512");
  EXPECT_EQ(evaluate("-x^2", {"x=3"}), "-9");
  EXPECT_EQ(evaluate("1/3", {}), "0.3333333333333333");
  EXPECT_EQ(evaluate("1e20*1.5", {}), "1.5E+20");
  EXPECT_EQ(evaluate("[a=b]", {"[a=b]=3"}), "3");
  EXPECT_EQ(evaluate("[body mass]/2 + [max]", {"body mass = 10", "[max]=1"}), "6");
  EXPECT_EQ(evaluate("[Temp [C]]+273", {"Temp [C]=20"}), "293");
  EXPECT_EQ(evaluate("[Temp [C]]]+273", {"[Temp [C]]]=20"}), "293");
  EXPECT_EQ(evaluate("[[C]]/[a]]b]", {"[[C]]]=6", "a]b=2"}), "3");
  EXPECT_EQ(evaluate("[[H] to [OH]]", {"[H] to [OH]=4"}), "4");
}

TEST(Eval, SaysWhatIsWrongInASentence) {
  EXPECT_EQ(refusal("(1+2"), "A closing parenthesis is missing after character 4.");
  EXPECT_EQ(refusal("x+y", {"x=1"}), "The variable \"y\" has no value; give it one as y=1.");
  EXPECT_EQ(refusal("[[C]]"), "The variable \"[C]\" has no value; give it one as [[C]]]=1.");
  EXPECT_EQ(refusal("x", {"[ ]=1"}), "A value is given as name=value, not as \"[ ]=1\".");
  EXPECT_EQ(refusal("x", {"x"}), "A value is given as name=value, not as \"x\".");
  EXPECT_EQ(refusal("x", {"x=two"}), "The value of \"x\" is not a number: \"two\".");
  EXPECT_EQ(refusal("x", {"x=NaN"}), "The value of \"x\" is not finite; give it a number.");
  EXPECT_EQ(refusal("x", {"x=-inf"}), "The value of \"x\" is not finite; give it a number.");
  EXPECT_NE(refusal("1/0").find("no finite value"), std::string::npos);
  EXPECT_NE(refusal("sqrt(x)", {"x=-1"}).find("no finite value"), std::string::npos);
  EXPECT_FALSE(refusal("").starts_with("no refusal"));
}

TEST(Eval, AnswersEachLineWithOne) {
  std::istringstream input("1+1\nx*y\tx=2;y=3\r\nx\nsqrt(-1)\t\n\tx=1\n2^10");
  std::ostringstream output;
  evaluate_lines(input, output);
  std::istringstream answers(output.str());
  std::vector<std::string> lines;
  for (std::string line; std::getline(answers, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[0], "2");
  EXPECT_EQ(lines[1], "6");
  EXPECT_TRUE(lines[2].starts_with("error: The variable \"x\" has no value"));
  EXPECT_TRUE(lines[3].starts_with("error: The expression has no finite value"));
  EXPECT_TRUE(lines[4].starts_with("error: "));
  EXPECT_EQ(lines[5], "1024");
}

}  // namespace
}  // namespace kurv::app
