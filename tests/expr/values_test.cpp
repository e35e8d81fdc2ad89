#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/expr/evaluate.h"

namespace kurv {
namespace {

struct Case {
  const char* text;
  Double value;
};

void expect_values(std::initializer_list<Case> cases) {
  const std::map<String, Double> variables = {{"x", 5}, {"X", 7}, {"_a1", 11}};
  for (const Case& row : cases) {
    const auto parsed = make_evaluator()->ParseExpression(row.text);
    EXPECT_TRUE(parsed.ok) << row.text << ": " << parsed.message;
    EXPECT_EQ(parsed.message, "") << row.text;
    EXPECT_EQ(parsed.place, 0) << row.text;
    const Outcome outcome = evaluate(row.text, variables);
    EXPECT_FALSE(outcome.failed) << row.text;
    EXPECT_DOUBLE_EQ(outcome.value, row.value) << row.text;
  }
}

TEST(Values, NumbersHaveTheirUsualForms) {
  expect_values({{"3", 3},
                 {".5", 0.5},
                 {"5.", 5},
                 {"1e-3", 0.001},
                 {"1E3", 1000},
                 {"2.5e+1", 25},
                 {"5.e1", 50},
                 {".5E1", 5},
                 {"007", 7},
                 {"0", 0},
                 {"1.7976931348623157e308", 1.7976931348623157e308},
                 {"5e-324", 5e-324},
                 {"1e-999", 0},
                 {"0e999999999999", 0},
                 {"12345678901234567890123456789", 12345678901234567890123456789.0}});
}

TEST(Values, OperatorsFromLeftToRight) {
  expect_values({{"10-4-3", 3},
                 {"24/4/3", 2},
                 {"2+3*4", 14},
                 {"(2+3)*4", 20},
                 {"2*3+4*5", 26},
                 {"100/10*10", 100},
                 {"1-2+3", 2},
                 {"((((1))))", 1},
                 {"2*(3+(4-1))/3", 4}});
}

TEST(Values, PowersFromRightToLeft) {
  expect_values({{"2^3^2", 512},
                 {"(2^3)^2", 64},
                 {"2^-1", 0.5},
                 {"2^-2^2", 1.0 / 16},
                 {"2^+3", 8},
                 {"2^--3", 8},
                 {"2*3^2", 18},
                 {"2^2*3", 12},
                 {"0^0", 1},
                 {"(-8)^3", -512},
                 {"4^0.5", 2}});
}

TEST(Values, PowerBindsTighterThanTheMinusBeforeIt) {
  expect_values({{"-x^2", -25}, {"(-x)^2", 25}, {"0-x^2", -25}, {"-2^2", -4}, {"- -x^2", 25}});
}

TEST(Values, SignsRepeat) {
  expect_values({{"-x", -5},
                 {"+x", 5},
                 {"--x", 5},
                 {"-+-+x", 5},
                 {"3---x", -2},
                 {"2*-3", -6},
                 {"6/-+3", -2}});
}

TEST(Values, BlanksMeanNothingBetweenTokens) {
  expect_values({{" 1 +\t2 ", 3}, {"\r\n1\n+\n2", 3}, {"sin ( 0 )", 0}, {"- 2 ^ 2", -4}});
}

TEST(Values, VariablesAreCaseSensitive) {
  expect_values({{"x", 5}, {"X", 7}, {"x*X", 35}, {"_a1", 11}, {"[x]+[ X ]", 12}});
}

TEST(Values, FunctionsOfOneArgument) {
  expect_values({{"sin(1)", 0.8414709848078965},
                 {"cos(1)", 0.5403023058681398},
                 {"tan(1)", 1.5574077246549023},
                 {"asin(0.5)", 0.5235987755982989},
                 {"acos(0.5)", 1.0471975511965979},
                 {"atan(1)", 0.7853981633974483},
                 {"sinh(1)", 1.1752011936438014},
                 {"cosh(1)", 1.5430806348152437},
                 {"tanh(1)", 0.7615941559557649},
                 {"asinh(1)", 0.881373587019543},
                 {"acosh(2)", 1.3169578969248166},
                 {"atanh(0.5)", 0.5493061443340549},
                 {"exp(1)", 2.718281828459045},
                 {"ln(10)", 2.302585092994046},
                 {"log(10)", 2.302585092994046},
                 {"log10(1000)", 3},
                 {"log2(8)", 3},
                 {"sqrt(2)", 1.4142135623730951},
                 {"cbrt(-27)", -3},
                 {"abs(-3)", 3},
                 {"sign(-2.5)", -1},
                 {"sign(0)", 0},
                 {"sign(9)", 1},
                 {"floor(-1.5)", -2},
                 {"floor(1.5)", 1},
                 {"ceil(-1.5)", -1},
                 {"ceil(1.5)", 2},
                 {"int(1.9)", 1},
                 {"int(-1.9)", -1},
                 {"frac(1.75)", 0.75},
                 {"frac(-1.75)", -0.75}});
}

TEST(Values, RoundGoesAwayFromZeroAtHalves) {
  expect_values({{"round(0.5)", 1},
                 {"round(1.5)", 2},
                 {"round(2.5)", 3},
                 {"round(-0.5)", -1},
                 {"round(-2.5)", -3},
                 {"round(2.4)", 2},
                 {"round(0.49999999999999994)", 0}});
}

TEST(Values, FunctionsOfTwoArguments) {
  expect_values({{"atan2(1,-1)", 2.356194490192345},
                 {"atan2(-1,0)", -1.5707963267948966},
                 {"atan2(0,0)", 0},
                 {"pow(2,10)", 1024},
                 {"pow(-2,3)", -8},
                 {"pow(3,2)", 9},
                 {"hypot(3,-4)", 5}});
}

TEST(Values, RemainderHasTheSignOfTheDividend) {
  expect_values({{"mod(7,3)", 1},
                 {"mod(-7,3)", -1},
                 {"mod(7,-3)", 1},
                 {"mod(-7,-3)", -1},
                 {"mod(5.5,2)", 1.5},
                 {"mod(1,3)", 1}});
}

TEST(Values, MinAndMaxTakeOneArgumentOrMore) {
  expect_values({{"min(4)", 4},
                 {"max(4)", 4},
                 {"min(4,2)", 2},
                 {"max(4,2)", 4},
                 {"min(4,2,8,1,9)", 1},
                 {"max(4,2,8,1,9)", 9},
                 {"max(min(3,x),min(9,X))+1", 8},
                 {"min(x^2,x+1,-x)", -5}});
}

TEST(Values, FunctionsAndConstantsInAnyLetterCase) {
  expect_values({{"SIN(0)", 0},
                 {"Log10(100)", 2},
                 {"aTaN2(0,1)", 0},
                 {"pi", std::numbers::pi},
                 {"PI", std::numbers::pi},
                 {"2*Pi", 2 * std::numbers::pi}});
}

TEST(Values, ExampleOfTheInputPrompt) {
  EXPECT_DOUBLE_EQ(evaluate("x*(sin(x)+2)", {{"x", 2}}).value, 2 * (std::sin(2.0) + 2));
}

TEST(Values, SquareIsTheProductWithItself) {
  for (const Double x : {1.1, -3.7, 1e-160, 1e150}) {
    EXPECT_EQ(evaluate("x^2", {{"x", x}}).value, x * x);
  }
}

TEST(Values, LongSumsNeedNoDeepStack) {
  String sum = "0";
  for (int i = 1; i <= 5000; ++i) sum += "+x*1";
  EXPECT_EQ(evaluate(sum, {{"x", 2}}).value, 10000);
}

}  // namespace
}  // namespace kurv
