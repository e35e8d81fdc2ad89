#include <gtest/gtest.h>

#include "expr/evaluator.h"

namespace kurv {
namespace {

struct Case {
  std::string_view text;
  const char* message;
  int place;
};

void expect_messages(std::initializer_list<Case> cases) {
  for (const Case& row : cases) {
    const ParsedExpression parsed = make_evaluator()->ParseExpression(row.text);
    EXPECT_FALSE(parsed.ok) << row.text;
    EXPECT_EQ(parsed.message, row.message) << row.text;
    EXPECT_EQ(parsed.place, row.place) << row.text;
  }
}

TEST(Messages, EmptyText) {
  expect_messages({{"", "The expression is empty.", 0}, {" \t\n", "The expression is empty.", 0}});
}

TEST(Messages, MissingOperand) {
  expect_messages(
      {{"1+", "A number, a name or an opening parenthesis is missing after character 2.", 2},
       {"-", "A number, a name or an opening parenthesis is missing after character 1.", 1},
       {"2 * ( ", "A number, a name or an opening parenthesis is missing after character 5.", 5},
       {"sin(", "A number, a name or an opening parenthesis is missing after character 4.", 4},
       {"2^", "A number, a name or an opening parenthesis is missing after character 2.", 2},
       {"1**2", "A number, a name or an opening parenthesis is missing before '*' at character 3.",
        3},
       {"*2", "A number, a name or an opening parenthesis is missing before '*' at character 1.",
        1},
       {"()", "A number, a name or an opening parenthesis is missing before ')' at character 2.",
        2},
       {"max(1,)",
        "A number, a name or an opening parenthesis is missing before ')' at character 7.", 7},
       {"max(,1)",
        "A number, a name or an opening parenthesis is missing before ',' at character 5.", 5}});
}

TEST(Messages, MissingOperator) {
  expect_messages({{"2x", "An operator is missing before 'x' at character 2.", 2},
                   {"x y", "An operator is missing before 'y' at character 3.", 3},
                   {"x 2", "An operator is missing before '2' at character 3.", 3},
                   {"2(3)", "An operator is missing before '(' at character 2.", 2},
                   {"(2)(3)", "An operator is missing before '(' at character 4.", 4},
                   {"(2)x", "An operator is missing before 'x' at character 4.", 4},
                   {"1.2.3", "An operator is missing before '.3' at character 4.", 4},
                   {"2e", "An operator is missing before 'e' at character 2.", 2},
                   {"2e+", "An operator is missing before 'e' at character 2.", 2},
                   {"0x10", "An operator is missing before 'x10' at character 2.", 2},
                   {"x[y]", "An operator is missing before '[y]' at character 2.", 2},
                   {"sin(1 2)", "An operator is missing before '2' at character 7.", 7},
                   {"pi pi", "An operator is missing before 'pi' at character 4.", 4}});
}

TEST(Messages, ABracketInAName) {
  expect_messages(
      {{"[a]b]",
        "An operator is missing before 'b' at character 4; a ']' in a name is written twice, as in "
        "'[a]]b]'.",
        4},
       {"1+([H] to OH] )",
        "An operator is missing before 'to' at character 8; a ']' in a name is written twice, as "
        "in '[H]] to OH]'.",
        8},
       {"[a]]b]c]*2",
        "An operator is missing before 'c' at character 7; a ']' in a name is written twice, as in "
        "'[a]]b]]c]'.",
        7},
       {"[a]b", "An operator is missing before 'b' at character 4.", 4},
       {"[a]b[c]", "An operator is missing before 'b' at character 4.", 4},
       {"[a] [b]", "An operator is missing before '[b]' at character 5.", 5},
       {"[a]+b c]", "An operator is missing before 'c' at character 7.", 7}});
  const String hint = "[a]]b]";
  EXPECT_EQ(make_evaluator()->ParseExpression(hint).variables, std::vector<String>{"a]b"});
}

TEST(Messages, Parentheses) {
  expect_messages({{"2*(sin(x)+2", "A closing parenthesis is missing after character 11.", 11},
                   {"((1)  ", "A closing parenthesis is missing after character 4.", 4},
                   {"max(1,2", "A closing parenthesis is missing after character 7.", 7},
                   {"(x+1))", "The closing parenthesis at character 6 has no opening one.", 6},
                   {"1)", "The closing parenthesis at character 2 has no opening one.", 2}});
}

TEST(Messages, Commas) {
  expect_messages(
      {{"2,5", "The comma at character 2 is not between the arguments of a function.", 2},
       {"(1,2)", "The comma at character 3 is not between the arguments of a function.", 3},
       {"sin((1,2))", "The comma at character 7 is not between the arguments of a function.", 7}});
}

TEST(Messages, Functions) {
  expect_messages(
      {{"foo(1)", "'foo' is not a function that can be used here (character 1).", 1},
       {"1+x (2)", "'x' is not a function that can be used here (character 3).", 3},
       {"pi(2)", "'pi' is not a function that can be used here (character 1).", 1},
       {"2*Sin", "The function 'Sin' at character 3 needs its arguments in parentheses.", 3},
       {"sin x", "The function 'sin' at character 1 needs its arguments in parentheses.", 1},
       {"max + 1", "The function 'max' at character 1 needs its arguments in parentheses.", 1},
       {"sin()", "The function 'sin' at character 1 takes one argument, but it has none.", 1},
       {"1+sin(1,2)", "The function 'sin' at character 3 takes one argument, but it has 2.", 3},
       {"ATAN2(1)", "The function 'ATAN2' at character 1 takes two arguments, but it has 1.", 1},
       {"pow(1,2,3)", "The function 'pow' at character 1 takes two arguments, but it has 3.", 1},
       {"min()", "The function 'min' at character 1 takes one argument or more, but it has none.",
        1}});
}

TEST(Messages, Brackets) {
  expect_messages({{"[body mass", "The bracket at character 1 is not closed.", 1},
                   {"1+[", "The bracket at character 3 is not closed.", 3},
                   {"[a]]", "The bracket at character 1 is not closed.", 1},
                   {"[a]+[b [c]]]]", "The bracket at character 5 is not closed.", 5},
                   {"[a [b] c] ]", "The closing bracket at character 11 has no opening one.", 11},
                   {"x]", "The closing bracket at character 2 has no opening one.", 2},
                   {"[]", "The brackets at character 1 hold no name.", 1},
                   {"2*[  ]", "The brackets at character 3 hold no name.", 3}});
}

TEST(Messages, CharactersThatHaveNoMeaning) {
  expect_messages(
      {{"5%2", "'%' at character 2 cannot be used in an expression.", 2},
       {"x=3", "'=' at character 2 cannot be used in an expression.", 2},
       {"x²", "'²' at character 2 cannot be used in an expression.", 2},
       {"2×3", "'×' at character 2 cannot be used in an expression.", 2},
       {".", "'.' at character 1 cannot be used in an expression.", 1},
       {"1+😀", "'😀' at character 3 cannot be used in an expression.", 3},
       {"1\u00A0+2", "U+00A0 at character 2 cannot be used in an expression.", 2},
       {std::string_view("1\0", 2), "U+0000 at character 2 cannot be used in an expression.", 2}});
}

TEST(Messages, NumbersBeyondTheLargest) {
  expect_messages({{"1+1e999", "The number '1e999' at character 3 is too large.", 3},
                   {"2e308", "The number '2e308' at character 1 is too large.", 1}});
}

TEST(Messages, BrokenText) {
  expect_messages({{"1+\xFF", "The text is not valid UTF-8 at character 3.", 3},
                   {"\xC3", "The text is not valid UTF-8 at character 1.", 1},
                   {"x\xC3(", "The text is not valid UTF-8 at character 2.", 2},
                   {"[a [b] \x80]", "The text is not valid UTF-8 at character 8.", 8},
                   {"[a\x80]", "The text is not valid UTF-8 at character 3.", 3},
                   {"\xC0\xAF", "The text is not valid UTF-8 at character 1.", 1},
                   {"\xED\xA0\x80", "The text is not valid UTF-8 at character 1.", 1},
                   {"\xF4\x90\x80\x80", "The text is not valid UTF-8 at character 1.", 1},
                   {"\xE0\x80\xAF", "The text is not valid UTF-8 at character 1.", 1},
                   {"\xF0\x80\x80\xAF", "The text is not valid UTF-8 at character 1.", 1},
                   {"\xE2\x82", "The text is not valid UTF-8 at character 1.", 1}});
}

TEST(Messages, PlacesCountCharactersNotBytes) {
  expect_messages({{"größe+温度 2", "An operator is missing before '2' at character 10.", 10},
                   {"(größe", "A closing parenthesis is missing after character 6.", 6}});
}

TEST(Messages, FirstMistakeIsTold) {
  expect_messages({{"1+%)foo(", "'%' at character 3 cannot be used in an expression.", 3},
                   {"sin(1,2", "A closing parenthesis is missing after character 7.", 7}});
}

TEST(Messages, LongAndBrokenNamesAreShownShortAndOnOneLine) {
  const String name(1000, 'n');
  EXPECT_EQ(make_evaluator()->ParseExpression(name + "(1)").message,
            "'" + String(40, 'n') + "…' is not a function that can be used here (character 1).");
  EXPECT_EQ(make_evaluator()->ParseExpression("1 [a\nb]").message,
            "An operator is missing before '[a b]' at character 3.");
}

}  // namespace
}  // namespace kurv
