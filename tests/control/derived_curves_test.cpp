#include <gmock/gmock.h>

#include <cmath>

#include "control/derived_curve_wizard.h"
#include "tests/control/counting_evaluator.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::columns;
using test::flags;
using test::names;
using test::TestHost;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNameText =
    "Step 1 of 2.\r\rEnter the name of derived function curve. This must be a valid and unique "
    "variable name.";
constexpr const char* kExpressionText =
    "Step 2 of 2.\r\rEnter the algebric expression as function of other scatter curve names.";

// x = 3, 1, 2; up = 30, 10, 20; down = 1, 2, 0.
class Derived : public testing::Test {
 protected:
  Derived() { load({"x", "up", "down"}); }

  void load(std::vector<String> all_names) {
    host.control.scatter_graph2("Title", columns({{3, 1, 2}, {30, 10, 20}, {1, 2, 0}}),
                                names(std::move(all_names)), 3, 2, flags({true, true}), 0, {}, true,
                                false);
    host.surface.clear_log();
  }
  void run(std::deque<String> answers) {
    host.surface.clear_log();
    host.shell.prompts.clear();
    host.shell.messages.clear();
    host.shell.inputs = std::move(answers);
    host.control.add_derived_curve();
  }
  static std::vector<Double> column(const Matrix<Double>& matrix, int c) {
    std::vector<Double> values;
    for (int i = 1; i <= 3; ++i) values.push_back(matrix(c, i));
    return values;
  }
  std::vector<Double> curve(int k) { return column(host.document().xyArr, k + 1); }
  bool redrawn() const { return host.surface.log().find("cls\n") != std::string::npos; }
  void expect_unchanged() {
    EXPECT_EQ(host.document().NumY, 2);
    EXPECT_EQ(host.document().yVarName.upper(), 3);
    EXPECT_EQ(host.document().y_visible.upper(), 2);
    EXPECT_FALSE(redrawn());
  }
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const auto& message : host.shell.messages) {
      EXPECT_EQ(message.flags, kExclamation);
      EXPECT_EQ(message.title, "KURV Guide");
      texts.push_back(message.text);
    }
    return texts;
  }

  TestHost host;
};

TEST_F(Derived, TheWizardAsksTwice) {
  run({"sum", "up+down"});
  ASSERT_EQ(host.shell.prompts.size(), 2u);
  EXPECT_EQ(host.shell.prompts[0].text, kNameText);
  EXPECT_EQ(host.shell.prompts[1].text, kExpressionText);
  for (const auto& prompt : host.shell.prompts) {
    EXPECT_EQ(prompt.title, "Add derived scatter curve");
    EXPECT_EQ(prompt.default_text, "");
  }
  EXPECT_THAT(host.shell.messages, IsEmpty());
}

TEST_F(Derived, TheNewCurveIsVisibleLastAndDrawn) {
  run({"ratio", "up/(1+down)"});
  EXPECT_EQ(host.document().NumY, 3);
  EXPECT_EQ(host.document().yVarName(4), "ratio");
  EXPECT_EQ(host.document().yVarName(3), "down");
  EXPECT_TRUE(host.document().y_visible(3).is_exactly_true());
  EXPECT_THAT(curve(3), ElementsAre(15, 10.0 / 3, 20));
  EXPECT_TRUE(redrawn());
  EXPECT_NE(host.surface.log().find("\"ratio "), std::string::npos) << "the legend lists it";
}

TEST_F(Derived, TheNameOfXStandsForItsValues) {
  run({"twice", "2*x"});
  EXPECT_THAT(curve(3), ElementsAre(6, 2, 4));
}

TEST_F(Derived, AConstantIsTheSameAtEveryPoint) {
  run({"three", "3"});
  EXPECT_THAT(curve(3), ElementsAre(3, 3, 3));
}

TEST_F(Derived, ItsOwnNameIsNoVariableYetButOneOfTheNextCurve) {
  run({"d", "d+1", "up+1"});
  EXPECT_THAT(messages(), ElementsAre("'d' is not a known scatter curve name"));
  run({"e", "d+1"});
  EXPECT_THAT(curve(4), ElementsAre(32, 12, 22));
}

TEST_F(Derived, ValuesDoNotFollowTheCurvesTheyCameFrom) {
  run({"d", "up"});
  host.document().xyArrUnsorted(2, 1) = 99;
  host.control.build_the_graph();
  EXPECT_EQ(curve(1)[0], 99);
  EXPECT_EQ(curve(3)[0], 30);
}

TEST_F(Derived, ANameOfSeveralWordsIsQuoted) {
  load({"x", "body mass", "max"});
  run({"d", "[body mass]+[max]"});
  EXPECT_THAT(curve(3), ElementsAre(31, 12, 20));
}

TEST_F(Derived, ANameWithBracketsIsQuotedEitherWay) {
  load({"time [s]", "Temp [C]", "a]b"});
  run({"d", "[time [s]]+[Temp [C]]"});
  EXPECT_THAT(messages(), IsEmpty());
  EXPECT_THAT(curve(3), ElementsAre(33, 11, 22));
  EXPECT_EQ(host.control.derive("e", "[time [s]]]+[Temp [C]]]*[a]]b]"), std::nullopt);
  EXPECT_THAT(curve(4), ElementsAre(33, 21, 2));
  EXPECT_EQ(host.control.derive("f", "[time [m]]"), "'time [m]' is not a known scatter curve name");
}

TEST_F(Derived, TheNamesOfTheCurvesDecideWhereABracketEnds) {
  load({"x", "time [s]*[x", "time [s"});
  EXPECT_EQ(host.control.derive("d", "[time [s]]*[x]"), std::nullopt);
  EXPECT_THAT(curve(3), ElementsAre(30, 10, 20));
  EXPECT_EQ(host.control.derive("e", "[time [s]+[x]"), std::nullopt);
  EXPECT_THAT(curve(4), ElementsAre(4, 3, 2));
}

TEST_F(Derived, StoredNamesAreComparedWithoutTheirOuterBlanks) {
  load({" x", "up ", "down"});
  run({"x", "up", "d", "x+up"});
  EXPECT_THAT(messages(), ElementsAre("'x' is not a unique variable name",
                                      "'up' is not a unique variable name"));
  EXPECT_THAT(curve(3), ElementsAre(33, 11, 22));
  EXPECT_EQ(host.document().yVarName(1), " x");
}

TEST_F(Derived, NamesOfTheListBeyondTheCurvesAreTakenTooButNotKnown) {
  load({"x", "up", "down", "spare"});
  run({"spare", "d", "spare", "1"});
  EXPECT_THAT(messages(), ElementsAre("'spare' is not a unique variable name",
                                      "'spare' is not a known scatter curve name"));
  EXPECT_EQ(host.document().yVarName(4), "d");
}

TEST_F(Derived, CancelAtEitherStepChangesNothing) {
  run({""});
  EXPECT_EQ(host.shell.prompts.size(), 1u);
  expect_unchanged();
  run({"d", ""});
  EXPECT_EQ(host.shell.prompts.size(), 2u);
  expect_unchanged();
  EXPECT_THAT(host.shell.messages, IsEmpty());
}

TEST_F(Derived, ANameEqualToThatOfXIsNotUnique) {
  run({"x"});
  EXPECT_THAT(messages(), ElementsAre("'x' is not a unique variable name"));
  expect_unchanged();
}

TEST_F(Derived, LetterCaseMakesAnotherName) {
  run({"X", "Up", "up"});
  EXPECT_THAT(messages(), ElementsAre("'Up' is not a known scatter curve name"));
  EXPECT_EQ(host.document().yVarName(4), "X");
}

TEST_F(Derived, TheNameIsAskedForUntilAcceptedWithTheAnswerBeforeAsTheDefault) {
  run({"2x", "up", "sin", "  ", "ok", ""});
  EXPECT_THAT(
      messages(),
      ElementsAre("'2x' is not a valid variable name", "'up' is not a unique variable name",
                  "'sin' is not a valid variable name", "'  ' is not a valid variable name"));
  ASSERT_EQ(host.shell.prompts.size(), 6u);
  EXPECT_EQ(host.shell.prompts[1].default_text, "2x");
  EXPECT_EQ(host.shell.prompts[2].default_text, "up");
  EXPECT_EQ(host.shell.prompts[4].default_text, "  ");
  EXPECT_EQ(host.shell.prompts[4].text, kNameText);
  EXPECT_EQ(host.shell.prompts[5].text, kExpressionText);
  EXPECT_EQ(host.shell.prompts[5].default_text, "");
}

TEST_F(Derived, TheExpressionIsAskedForUntilAcceptedWithTheAnswerBeforeAsTheDefault) {
  run({"d", "up+", "down+who+what", "up"});
  EXPECT_THAT(messages(), ElementsAre(make_evaluator()->ParseExpression("up+").message,
                                      "'who' is not a known scatter curve name"))
      << "the first unknown name alone";
  ASSERT_EQ(host.shell.prompts.size(), 4u);
  EXPECT_EQ(host.shell.prompts[2].default_text, "up+");
  EXPECT_EQ(host.shell.prompts[3].default_text, "down+who+what");
  EXPECT_THAT(curve(3), ElementsAre(30, 10, 20));
}

TEST_F(Derived, ANameWithBlanksIsCheckedWithThemAndStoredWithoutThem) {
  test::CountedEvaluators evaluators;
  run({" up ", " d ", "up"});
  EXPECT_EQ(evaluators(1).log, "IsValid( up ) IsValid( d ) Parse ");
  EXPECT_THAT(messages(), ElementsAre("' up ' is not a unique variable name"));
  EXPECT_EQ(host.document().yVarName(4), "d");
}

TEST_F(Derived, APointThatCannotBeEvaluatedIsStoredAllTheSameAndIsMissing) {
  run({"d", "1/down"});
  EXPECT_EQ(host.document().NumY, 3);
  EXPECT_EQ(curve(3)[0], 1);
  EXPECT_EQ(curve(3)[1], 0.5);
  EXPECT_TRUE(std::isnan(curve(3)[2]));
  EXPECT_THAT(host.shell.messages, IsEmpty());
}

TEST_F(Derived, LimitsFollowWhateverAutoscaleSays) {
  host.control.set_Autoscale(false);
  run({"d", "up*10"});
  EXPECT_EQ(host.control.ymax(), 300);
}

TEST_F(Derived, SortedDataAreKeptBesideTheHostsOrder) {
  run({"d", "up+1"});
  EXPECT_THAT(column(host.document().xyArrUnsorted, 1), ElementsAre(3, 1, 2));
  EXPECT_THAT(column(host.document().xyArrUnsorted, 4), ElementsAre(31, 11, 21));
  EXPECT_THAT(column(host.document().xyArrSorted, 1), ElementsAre(1, 2, 3));
  EXPECT_THAT(column(host.document().xyArrSorted, 4), ElementsAre(11, 21, 31));
  EXPECT_THAT(column(host.document().xyArr, 1), ElementsAre(3, 1, 2));
}

TEST_F(Derived, WithSortXYTheSortedTableBecomesTheHostsOrder) {
  host.control.set_SortXY(true);
  host.control.build_the_graph();
  run({"d", "up+1"});
  EXPECT_THAT(column(host.document().xyArrUnsorted, 1), ElementsAre(1, 2, 3));
  host.control.set_SortXY(false);
  host.control.build_the_graph();
  EXPECT_THAT(column(host.document().xyArr, 1), ElementsAre(1, 2, 3)) << "the order is lost";
  EXPECT_THAT(curve(3), ElementsAre(11, 21, 31));
}

TEST_F(Derived, TheDemonstrationGraphTakesOneToo) {
  TestHost fresh;
  EXPECT_EQ(fresh.control.derive("d", "x^2"), std::nullopt);
  EXPECT_EQ(fresh.document().NumY, 4);
  EXPECT_EQ(fresh.document().xyArr(5, 3), 9);
  EXPECT_EQ(fresh.surface.log(), "") << "which is never drawn";
}

TEST_F(Derived, WithoutAPromptTheSentenceComesBack) {
  EXPECT_EQ(host.control.derive("x", "1"), "'x' is not a unique variable name");
  EXPECT_EQ(host.control.derive("1x", "1"), "'1x' is not a valid variable name");
  EXPECT_EQ(host.control.derive("", "1"), "'' is not a valid variable name");
  EXPECT_EQ(host.control.derive("d", "up*"), make_evaluator()->ParseExpression("up*").message);
  EXPECT_EQ(host.control.derive("d", ""), make_evaluator()->ParseExpression("").message);
  EXPECT_EQ(host.control.derive("d", "up*z"), "'z' is not a known scatter curve name");
  expect_unchanged();
  EXPECT_EQ(host.control.derive(" d ", "up*2"), std::nullopt);
  EXPECT_EQ(host.document().yVarName(4), "d");
  EXPECT_THAT(host.shell.messages, IsEmpty());
  EXPECT_THAT(host.shell.prompts, IsEmpty());
}

// -- The last column
// -------------------------------------------------------------------------------

FaultKind fault_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

void load_curves(TestHost& host, int count) {
  std::vector<std::vector<Double>> values(static_cast<std::size_t>(count) + 1, {1, 2});
  std::vector<String> all_names = {"x"};
  for (int k = 1; k <= count; ++k) all_names.push_back("y" + std::to_string(k));
  host.control.scatter_graph2(
      "T", columns(values), names(all_names), 2, static_cast<Integer>(count),
      flags(std::vector<Boolean>(static_cast<std::size_t>(count), true)), 0, {}, true, false);
}

TEST(DerivedLimit, TheLastColumnOfAHostsDataCanBeFilled) {
  TestHost host;
  load_curves(host, 148);
  EXPECT_EQ(host.control.derive("d", "y1+y148"), std::nullopt);
  EXPECT_EQ(host.document().NumY, 149);
  EXPECT_EQ(host.document().xyArr(150, 2), 4);
}

TEST(DerivedLimit, TheCurveWithoutAColumnIsCountedAndRedrawsFailUntilTheNextIntake) {
  test::CountedEvaluators evaluators;
  TestHost host;
  load_curves(host, 149);
  host.shell.inputs = {"d", "y1"};
  EXPECT_EQ(fault_of([&] { host.control.add_derived_curve(); }), FaultKind::kSubscriptOutOfRange);
  EXPECT_THAT(host.shell.messages, IsEmpty());
  EXPECT_EQ(host.document().NumY, 150);
  EXPECT_EQ(host.document().yVarName(151), "d");
  EXPECT_TRUE(host.document().y_visible(150));
  EXPECT_NE(evaluators(3).log.find("Evaluate"), std::string::npos) << "it had been computed";
  const auto redraw = [&] { host.control.build_the_graph(); };
  EXPECT_EQ(fault_of(redraw), FaultKind::kSubscriptOutOfRange);
  EXPECT_EQ(fault_of(redraw), FaultKind::kSubscriptOutOfRange);
  host.load({1, 2}, {3, 4});
  EXPECT_EQ(fault_of(redraw), FaultKind{});
}

// -- Which evaluator
// -------------------------------------------------------------------------------

TEST(DerivedEvaluators, TheWizardAndTheComputationHaveOneEachAndKeepIt) {
  test::CountedEvaluators evaluators;
  TestHost host;
  host.load({1, 2}, {3, 4});
  ASSERT_EQ(evaluators.count(), 1);
  host.shell.inputs = {"d", "y+x"};
  host.control.add_derived_curve();
  ASSERT_EQ(evaluators.count(), 3);
  EXPECT_EQ(evaluators.take(1), "") << "the library's";
  EXPECT_EQ(evaluators.take(2), "IsValid(d) Parse ");
  EXPECT_EQ(evaluators.take(3), "Set Set Expression Evaluate Set Set Expression Evaluate ")
      << "for each point, and the error flag is not read";
  EXPECT_THAT(evaluators(3).variables, ElementsAre("x", "y", "x", "y"));
  host.shell.inputs = {"e", "d"};
  host.control.add_derived_curve();
  EXPECT_EQ(host.control.derive("f", "e"), std::nullopt);
  EXPECT_EQ(evaluators.count(), 3);
}

TEST(DerivedEvaluators, FiveInstancesOfWhichNoneIsShared) {
  test::CountedEvaluators evaluators;
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.shell.inputs = {"x", "x*2", "d", "y+x"};
  host.control.add_function();
  host.control.edit_function("x");
  host.control.add_derived_curve();
  ASSERT_EQ(evaluators.count(), 5);
  EXPECT_EQ(evaluators.take(1), "Parse ") << "editing";
  EXPECT_EQ(evaluators.take(2), "Parse ") << "adding";
  EXPECT_EQ(evaluators.take(3).substr(0, 31), "Expression Set Set Evaluate Err") << "drawing";
  EXPECT_EQ(evaluators.take(4), "IsValid(d) Parse ") << "the wizard";
  EXPECT_EQ(evaluators.take(5).substr(0, 28), "Set Set Expression Evaluate ") << "computing";
}

TEST(DerivedEvaluators, NamesAreSetAsTheyAreStored) {
  test::CountedEvaluators evaluators;
  TestHost host;
  host.control.scatter_graph2("T", columns({{1, 2}, {3, 4}}), names({" x ", "body mass "}), 2, 1,
                              flags({true}), 0, {});
  EXPECT_EQ(host.control.derive("d", "x"), std::nullopt);
  EXPECT_THAT(evaluators(3).variables, ElementsAre(" x ", "body mass ", " x ", "body mass "));
}

// A host's evaluator that fails at the second point.
class Failing final : public ExprEvaluator {
 public:
  ParsedExpression ParseExpression(std::string_view) override { return {true, {}, {}, 0}; }
  bool IsValidVariableName(std::string_view) const override { return true; }
  void SetVariable(std::string_view, Double) override {}
  bool GetEvalError() const override { return false; }
  Double Evaluate() override {
    if (++m_calls == 2) throw Fault(FaultKind::kDeviceIoError);
    return 7;
  }
  void SetExpression(std::string_view) override {}

 private:
  int m_calls = 0;
};

TEST(DerivedEvaluators, ACallThatFailsEndsTheCommandAndUndoesNothing) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  const test::HostsEvaluator failing([] { return std::make_unique<Failing>(); });
  EXPECT_EQ(fault_of([&] { host.control.derive("any name", "1"); }), FaultKind::kDeviceIoError);
  EXPECT_EQ(host.document().NumY, 2);
  EXPECT_EQ(host.document().xyArr(3, 1), 7);
}

}  // namespace
}  // namespace kurv
