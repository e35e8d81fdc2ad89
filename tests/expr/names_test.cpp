#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <KurvGraph/variable_text.h>

#include <random>

#include "tests/expr/evaluate.h"

namespace kurv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<String> variables_of(std::string_view text) {
  const ParsedExpression parsed = make_evaluator()->ParseExpression(text);
  EXPECT_TRUE(parsed.ok) << text << ": " << parsed.message;
  return parsed.variables;
}

TEST(Names, EachVariableIsReportedOnceAsWritten) {
  EXPECT_THAT(variables_of("X*2"), ElementsAre("X"));
  EXPECT_THAT(variables_of("x*2"), ElementsAre("x"));
  EXPECT_THAT(variables_of("x+y"), ElementsAre("x", "y"));
  EXPECT_THAT(variables_of("b*X+a-x/b+a^a"), ElementsAre("b", "X", "a", "x"));
  EXPECT_THAT(variables_of("[body mass]/[ body mass ]+x+[x]"), ElementsAre("body mass", "x"));
}

TEST(Names, ConstantExpressionHasNoVariables) {
  EXPECT_THAT(variables_of("3"), IsEmpty());
  EXPECT_THAT(variables_of("2*pi+Sin(1)"), IsEmpty());
}

TEST(Names, BrokenExpressionHasNoVariables) {
  const ParsedExpression parsed = make_evaluator()->ParseExpression("x+y+");
  EXPECT_FALSE(parsed.ok);
  EXPECT_THAT(parsed.variables, IsEmpty());
}

TEST(Names, ValidNames) {
  const auto evaluator = make_evaluator();
  for (const char* name : {"x",    "X",   "_",    "_1",      "a1b2", "body_mass", "e",   "E1",
                           "sine", "pie", "é",    "größe",   "Δt",   "温度",      "имя", "µ",
                           "Å",    "ℓ",   "sin_", "maximum", " x ",  "\tx",       "x  ", "𝛼"}) {
    EXPECT_TRUE(evaluator->IsValidVariableName(name)) << name;
  }
}

TEST(Names, InvalidNames) {
  const auto evaluator = make_evaluator();
  for (const char* name :
       {"",   " ",   "1",  "1a",   "a b",  "a-b",   "a.b",      "a+b",          "[a]",
        "a]", "a,b", "x²", "CO₂",  "a×b",  "a·b",   "“x”",      "a\u00A0b",     "x\u200B",
        "！", "€",   "½",  "a\nb", "\xC3", "a\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
        "😀",  "x(",  "#"}) {
    EXPECT_FALSE(evaluator->IsValidVariableName(name)) << name;
  }
  EXPECT_FALSE(evaluator->IsValidVariableName(std::string_view("x\0", 2)));
}

TEST(Names, NamesOfFunctionsAndConstantsAreTaken) {
  const auto evaluator = make_evaluator();
  for (const char* name :
       {"sin",  "cos",   "tan",   "asin",  "acos",  "atan", "atan2", "sinh",  "cosh",
        "tanh", "asinh", "acosh", "atanh", "exp",   "ln",   "log",   "log10", "log2",
        "sqrt", "cbrt",  "abs",   "sign",  "floor", "ceil", "round", "int",   "frac",
        "min",  "max",   "mod",   "pow",   "hypot", "pi",   "MAX",   "Pi",    " Log10 "}) {
    EXPECT_FALSE(evaluator->IsValidVariableName(name)) << name;
  }
}

TEST(Names, VariableNeverShadowsAFunctionOrConstant) {
  const std::map<String, Double> variables = {{"max", 100}, {"pi", 3}, {"MAX", 200}};
  EXPECT_EQ(evaluate("max(1,2)", variables).value, 2);
  EXPECT_GT(evaluate("pi", variables).value, 3.14);
  EXPECT_EQ(evaluate("[max]+max(1,2)", variables).value, 102);
  EXPECT_EQ(evaluate("[MAX]", variables).value, 200);
  EXPECT_EQ(evaluate("[pi]", variables).value, 3);
}

TEST(Names, BracketsQuoteAnyName) {
  for (const char* name :
       {"body mass", "max", "1st", "a+b", "x²", "(", "a,b", "a[b", "two\nlines", "100 %", "😀"}) {
    const String text = "2*[" + String(name) + "]";
    EXPECT_EQ(evaluate(text, {{name, 21}}).value, 42) << name;
    EXPECT_THAT(variables_of(text), ElementsAre(name));
  }
}

TEST(Names, DoubledClosingBracketIsOne) {
  EXPECT_THAT(variables_of("[a]]b]"), ElementsAre("a]b"));
  EXPECT_THAT(variables_of("[]]]"), ElementsAre("]"));
  EXPECT_THAT(variables_of("[a]]]+[]]b]"), ElementsAre("a]", "]b"));
  EXPECT_THAT(variables_of("[Temp [C]]]*[Temp [C]]]"), ElementsAre("Temp [C]"));
  EXPECT_EQ(evaluate("2*[a]]b]", {{"a]b", 21}}).value, 42);
}

TEST(Names, BracketsOfANameMayMatchInstead) {
  EXPECT_THAT(variables_of("[Temp [C]]"), ElementsAre("Temp [C]"));
  EXPECT_THAT(variables_of("[Temp [C]]+[Temp [C]]]"), ElementsAre("Temp [C]"));
  EXPECT_THAT(variables_of("[ time [s] total ]/[time [s]]"),
              ElementsAre("time [s] total", "time [s]"));
  EXPECT_THAT(variables_of("[time [s]]*[x]"), ElementsAre("time [s]", "x"));
  EXPECT_THAT(variables_of("[a [[b]] c]"), ElementsAre("a [[b]] c"));
  EXPECT_THAT(variables_of("[[s]]"), ElementsAre("[s]"));
  EXPECT_EQ(evaluate("[Temp [C]]+273.15", {{"Temp [C]", 20}}).value, 293.15);
}

TEST(Names, FirstClosingBracketEndsANameThatHasNoMatch) {
  EXPECT_THAT(variables_of("[a[b]"), ElementsAre("a[b"));
  EXPECT_THAT(variables_of("[a[b]+[c]"), ElementsAre("a[b", "c"));
  EXPECT_THAT(variables_of("[a[b]*[a[b]"), ElementsAre("a[b"));
  EXPECT_THAT(variables_of("[[]"), ElementsAre("["));
}

TEST(Names, DefinedVariablesDecideWhereABracketEnds) {
  constexpr const char* kText = "[time [s]]*[x]";
  EXPECT_EQ(evaluate(kText, {{"time [s]", 6}, {"x", 7}}).value, 42);
  EXPECT_EQ(evaluate(kText, {{"time [s]*[x", 5}}).value, 5);
  EXPECT_EQ(evaluate(kText, {{"time [s]", 6}, {"x", 7}, {"time [s]*[x", 5}}).value, 5);
  constexpr const char* kQuotient = "[ratio [A]]/[B]]]";
  EXPECT_EQ(evaluate(kQuotient, {{"ratio [A]/[B]", 5}}).value, 5);
  EXPECT_EQ(evaluate(kQuotient, {{"ratio [A]", 8}, {"B]", 2}}).value, 4);
  EXPECT_THAT(variables_of(kQuotient), ElementsAre("ratio [A]/[B]"));
}

TEST(Names, DefinitionAfterTheExpressionDecidesToo) {
  const auto evaluator = make_evaluator();
  evaluator->SetVariable("time [s]", 6);
  evaluator->SetVariable("x", 7);
  evaluator->SetExpression("[time [s]]*[x]");
  EXPECT_EQ(evaluator->Evaluate(), 42);
  evaluator->SetVariable("time [s]*[x", 5);
  EXPECT_EQ(evaluator->Evaluate(), 5);
  EXPECT_THAT(evaluator->ParseExpression("[time [s]]*[x]").variables, ElementsAre("time [s]*[x"));
}

TEST(Names, TextOfAVariableMeansIt) {
  EXPECT_EQ(variable_text("x"), "x");
  EXPECT_EQ(variable_text(" body mass "), "[body mass]");
  EXPECT_EQ(variable_text("max"), "[max]");
  EXPECT_EQ(variable_text("Temp [C]"), "[Temp [C]]]");
  EXPECT_EQ(variable_text("]"), "[]]]");
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    String name;
    for (int n = static_cast<int>(random() % 12); n >= 0; --n) name += "ab[[]]*+ "[random() % 9];
    if (name.find_first_not_of(' ') == String::npos) continue;
    const String text = variable_text(name);
    EXPECT_EQ(evaluate("1+" + text + "*2", {{name, 21}}).value, 43) << text;
  }
}

TEST(Names, BlanksAroundANameAreNoPartOfIt) {
  EXPECT_EQ(evaluate("a", {{"  a\t", 4}}).value, 4);
  EXPECT_EQ(evaluate("[ body mass]", {{"body mass ", 4}}).value, 4);

  const auto evaluator = make_evaluator();
  evaluator->SetExpression("a");
  for (const char* name : {"a", " a", "a ", "a"}) {
    evaluator->SetVariable(name, 1);
    evaluator->SetVariable("b", 2);
  }
  evaluator->SetVariable(" a ", 3);
  EXPECT_EQ(evaluator->Evaluate(), 3);
}

TEST(Names, AnyTextCanBeSet) {
  const auto evaluator = make_evaluator();
  for (const std::string_view name : {"", "]", "a]b", "\xFF", " "}) evaluator->SetVariable(name, 1);
  evaluator->SetVariable(String(1'000'000, 'n'), 1);
  evaluator->SetExpression("2");
  EXPECT_EQ(evaluator->Evaluate(), 2);
}

TEST(Names, VariableDefinedAfterTheExpressionIsFound) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("x+y");
  evaluator->SetVariable("x", 1);
  evaluator->Evaluate();
  EXPECT_TRUE(evaluator->GetEvalError());
  evaluator->SetVariable("y", 2);
  EXPECT_EQ(evaluator->Evaluate(), 3);
  EXPECT_FALSE(evaluator->GetEvalError());
}

TEST(Names, NewValueReplacesTheOldOneInAnyOrder) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("a+10*b+100*c");
  const char* orders[] = {"abc", "cba", "aab", "bca", "ccc", "abc"};
  std::map<char, int> values = {{'a', 0}, {'b', 0}, {'c', 0}};
  int next = 1;
  for (const char* name : {"a", "b", "c"}) evaluator->SetVariable(name, 0);
  for (const char* order : orders) {
    for (const char name : String(order)) {
      values[name] = next++ % 10;
      evaluator->SetVariable(String(1, name), values[name]);
    }
    EXPECT_EQ(evaluator->Evaluate(), values['a'] + 10 * values['b'] + 100 * values['c']) << order;
  }
}

TEST(Names, ManyVariablesKeepTheirValues) {
  const auto evaluator = make_evaluator();
  evaluator->SetExpression("v1+v500*v1000");
  for (int round = 1; round <= 3; ++round) {
    for (int i = 1; i <= 1000; ++i) evaluator->SetVariable("v" + std::to_string(i), i * round);
    EXPECT_EQ(evaluator->Evaluate(), round + 500000.0 * round * round);
  }
}

TEST(Names, EvaluatorsShareNothing) {
  const auto first = make_evaluator();
  const auto second = make_evaluator();
  first->SetVariable("x", 1);
  first->SetExpression("x");
  second->SetExpression("x");
  EXPECT_EQ(first->Evaluate(), 1);
  second->Evaluate();
  EXPECT_TRUE(second->GetEvalError());
  EXPECT_FALSE(first->GetEvalError());
  second->SetVariable("x", 2);
  EXPECT_EQ(first->Evaluate(), 1);
  EXPECT_EQ(second->Evaluate(), 2);
}

TEST(Names, LookingAtATextLeavesTheEvaluatorAsItIs) {
  const auto evaluator = make_evaluator();
  evaluator->SetVariable("x", 1);
  evaluator->SetExpression("x");
  evaluator->ParseExpression("y+z");
  evaluator->ParseExpression("((");
  EXPECT_EQ(evaluator->Evaluate(), 1);
}

}  // namespace
}  // namespace kurv
