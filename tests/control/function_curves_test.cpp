#include "render/function_curves.h"

#include <KurvGraph/class_registry.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "tests/control/counting_evaluator.h"
#include "tests/support/golden.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// Limits 0..40 and 0..40 on a plot of 8000 x 8000 twips at (1000, 500): a sample at every 200.
struct Board {
  Board() {
    document.xmin = document.ymin = 0;
    document.xmax = document.ymax = 40;
    layout.plot = {500, 1000, 8000, 8000};
  }

  std::vector<std::string> drawn(const String& expression) {
    surface.clear_log();
    DrawFunctionCurve(document, layout, expression, evaluator.get(), surface);
    std::istringstream text(surface.log());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    EXPECT_GE(lines.size(), 2u);
    EXPECT_EQ(lines.front(), "width " + std::to_string(document.CurvesWidth));
    EXPECT_EQ(lines.back(), "width 1");
    return {lines.begin() + 1, lines.end() - 1};
  }

  GraphDocument document;
  Layout layout;
  LazyEvaluator evaluator;
  RecordingSurface surface{12000, 9000};
};

long count_starting(const std::vector<std::string>& lines, const std::string& word) {
  return std::count_if(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.starts_with(word); });
}

TEST(FunctionCurves, ADiagonalIsADotAndFortySegmentsInBlack) {
  Board board;
  const auto lines = board.drawn("x");
  ASSERT_EQ(lines.size(), 41u);
  EXPECT_EQ(lines[0], "point 1000 8500 0");
  EXPECT_EQ(lines[1], "segment 1000 8500 1200 8300 0");
  EXPECT_EQ(lines[40], "segment 8800 700 9000 500 0");
}

TEST(FunctionCurves, BothLetterCasesPlotTheSameLine) {
  Board board;
  EXPECT_EQ(board.drawn("X*0.5"), board.drawn("x*0.5"));
  EXPECT_EQ(board.drawn("X*X").size(), 7u) << "0, 1, 4 .. 36 are inside";
}

TEST(FunctionCurves, AConstantIsAHorizontalLineWithinTheYRangeAndNothingOutside) {
  Board board;
  const auto lines = board.drawn("10");
  ASSERT_EQ(lines.size(), 41u);
  EXPECT_EQ(lines[0], "point 1000 6500 0");
  EXPECT_EQ(lines[40], "segment 8800 6500 9000 6500 0");
  EXPECT_THAT(board.drawn("41"), ElementsAre());
  EXPECT_THAT(board.drawn("-1"), ElementsAre());
}

TEST(FunctionCurves, BoundsOfTheRangesAreInside) {
  Board board;
  EXPECT_EQ(board.drawn("0").size(), 41u);
  EXPECT_EQ(board.drawn("40").size(), 41u);
}

TEST(FunctionCurves, ASquareRootOverNegativeXDrawsNothingAfterTheFirstSampleThatFails) {
  Board board;
  board.document.xmin = -20;
  board.document.xmax = 20;
  EXPECT_THAT(board.drawn("sqrt(x)"), ElementsAre()) << "although half of it would be valid";
  EXPECT_EQ(board.drawn("sqrt(-x)").size(), 21u) << "what was drawn stays";
}

TEST(FunctionCurves, ACurveThatComesInFromBelowStartsWithADotAtTheFirstSampleInside) {
  Board board;
  const auto lines = board.drawn("x-20");
  ASSERT_EQ(lines.size(), 21u);
  EXPECT_EQ(lines[0], "point 5000 8500 0");
  EXPECT_EQ(lines[1], "segment 5000 8500 5200 8300 0");
}

TEST(FunctionCurves, ACurveThatLeavesAndComesBackIsBrokenAndNotClipped) {
  Board board;
  const auto lines = board.drawn("abs(x-20)*4");
  EXPECT_EQ(count_starting(lines, "point"), 1) << "0 to 40 again, 10 either side of the middle";
  EXPECT_EQ(count_starting(lines, "segment"), 20);
  const auto twice = board.drawn("60-abs(x-20)*4");
  EXPECT_EQ(count_starting(twice, "point"), 2);
  EXPECT_EQ(twice[0], "point 2000 8500 0");
}

TEST(FunctionCurves, TheEmptyExpressionMeansTheFirstSlots) {
  Board board;
  board.document.y_func(1).expression = "x/2";
  EXPECT_EQ(board.drawn(""), board.drawn("x/2"));
}

TEST(FunctionCurves, PenWidthIsThatOfTheCurvesAndOneAfterwards) {
  Board board;
  board.document.CurvesWidth = 3;
  board.drawn("x");
  EXPECT_THAT(board.surface.log(), StartsWith("width 3\n"));
}

TEST(FunctionCurves, EqualLimitsAreADivisionByZeroOnceASampleIsMapped) {
  Board board;
  board.document.xmax = board.document.xmin;
  EXPECT_THROW(board.drawn("x"), Fault);
  EXPECT_THAT(board.drawn("1/0"), ElementsAre()) << "no sample came as far";
  board = Board();
  board.document.ymax = board.document.ymin;
  EXPECT_THROW(board.drawn("x"), Fault);
}

TEST(FunctionCurves, NonsenseDrawsNothing) {
  Board board;
  for (const char* expression : {"x+", "foo(x)", "y", "1e400*x", "((((", "\xff"}) {
    EXPECT_THAT(board.drawn(expression), ElementsAre()) << expression;
  }
  board.document.xmax = std::numeric_limits<Double>::infinity();
  EXPECT_THAT(board.drawn("x"), ElementsAre());
  board.document.xmin = std::numeric_limits<Double>::quiet_NaN();
  EXPECT_THAT(board.drawn("1"), ElementsAre());
}

// A host's evaluator that never says that it has failed.
class Careless final : public ExprEvaluator {
 public:
  ParsedExpression ParseExpression(std::string_view) override { return {true, {}, {}, 0}; }
  bool IsValidVariableName(std::string_view) const override { return true; }
  void SetVariable(std::string_view, Double value) override { m_x = value; }
  bool GetEvalError() const override { return false; }
  Double Evaluate() override { return m_x == 20 ? std::numeric_limits<Double>::quiet_NaN() : m_x; }
  void SetExpression(std::string_view) override {}

 private:
  Double m_x = 0;
};

TEST(FunctionCurves, AValueThatIsNoNumberIsOutside) {
  Board board;
  Careless evaluator;
  DrawFunctionCurve(board.document, board.layout, "x", evaluator, board.surface);
  std::istringstream text(board.surface.log());
  int dots = 0;
  for (std::string line; std::getline(text, line);) dots += line.starts_with("point") ? 1 : 0;
  EXPECT_EQ(dots, 2);
}

// Moves the upper limits while a curve is drawn.
class Meddling final : public ExprEvaluator {
 public:
  explicit Meddling(GraphDocument& document) : m_document(document) {}
  ParsedExpression ParseExpression(std::string_view) override { return {true, {}, {}, 0}; }
  bool IsValidVariableName(std::string_view) const override { return true; }
  void SetVariable(std::string_view, Double value) override { m_x = value; }
  bool GetEvalError() const override { return false; }
  Double Evaluate() override {
    m_document.xmax = 80;
    return m_x;
  }
  void SetExpression(std::string_view) override {}

 private:
  GraphDocument& m_document;
  Double m_x = 0;
};

TEST(FunctionCurves, LimitsAreReadAfreshForEachSample) {
  Board board;
  Meddling evaluator(board.document);
  DrawFunctionCurve(board.document, board.layout, "x", evaluator, board.surface);
  EXPECT_THAT(board.surface.log(), HasSubstr("segment 1000 8500 1200 8100 0\n"))
      << "sample 1 is at 2 of 80 across and at 2 of 40 upwards";
}

// -- In the redraw
// ---------------------------------------------------------------------------------

TestHost& add(TestHost& host, const String& expression) {
  EXPECT_EQ(host.control.add_function(expression), std::nullopt);
  return host;
}

TEST(FunctionRedraw, FunctionsAreDrawnBetweenScatterCurvesAndTheLegend) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2}, true, true);
  add(host, "1+x");
  test::expect_golden("redraw_function.txt", host.redrawn());
}

TEST(FunctionRedraw, HiddenEmptyAndUncountedSlotsAreNotDrawn) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  const std::string without = host.redrawn();
  add(host, "1+x");
  EXPECT_NE(host.redrawn(), without);
  host.document().y_func(1).visible = false;
  EXPECT_EQ(host.redrawn(), without);
  host.document().y_func(1).visible = true;
  host.document().y_func(1).expression.clear();
  EXPECT_EQ(host.redrawn(), without);
  host.document().y_func(2) = {"2", "2", 0, true};
  EXPECT_EQ(host.redrawn(), without) << "one is counted";
  host.document().NumYFunc = -3;
  EXPECT_EQ(host.redrawn(), without);
  host.document().NumYFunc = 2;
  EXPECT_NE(host.redrawn(), without);
}

TEST(FunctionRedraw, NoMoreThanThirtyAreDrawnWhateverTheCount) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  add(host, "2");
  const std::string one = host.redrawn();
  host.document().NumYFunc = 32767;
  EXPECT_EQ(host.redrawn(), one);
}

TEST(FunctionRedraw, OneFailedCurveLeavesTheOthers) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  const auto segments = [&] {
    const std::string log = host.redrawn();
    std::size_t count = 0;
    for (std::size_t at = log.find("segment"); at != log.npos; at = log.find("segment", at + 1)) {
      ++count;
    }
    return count;
  };
  const std::size_t without = segments();
  add(add(host, "sqrt(-1-x)"), "2");
  EXPECT_EQ(segments(), without + 40);
}

TEST(FunctionRedraw, EqualLimitsStopTheRedraw) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  add(host, "2");
  host.document().y_visible(1) = false;
  host.control.set_ymax(host.control.ymin());
  EXPECT_THROW(host.control.build_the_graph(), Fault);
}

TEST(FunctionRedraw, AnIntakeBringsItsOwnFunctions) {
  TestHost host;
  host.control.scatter_graph(test::columns({{1, 2}}), test::points({0, 1}), 2, 1, String("T"), "x",
                             test::names({"y"}), 1, test::names({"x+1"}));
  EXPECT_THAT(host.redrawn(), HasSubstr("point "));
  host.load({0, 1}, {1, 2});
  EXPECT_THAT(host.redrawn(), Not(HasSubstr("point ")));
}

// -- Which evaluator
// -------------------------------------------------------------------------------

TEST(FunctionEvaluator, DrawingMakesItsOwnAtTheFirstCurveAndKeepsIt) {
  test::CountedEvaluators evaluators;
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  EXPECT_EQ(evaluators.count(), 1) << "the library's";
  host.document().NumYFunc = 1;
  host.document().y_func(1) = {"x", "x", 0, true};
  host.redrawn();
  host.redrawn();
  ASSERT_EQ(evaluators.count(), 2);
  EXPECT_EQ(evaluators.take(1), "");
  std::string expected = "Expression ";
  for (int k = 0; k <= 40; ++k) expected += "Set Set Evaluate Error ";
  EXPECT_EQ(evaluators.take(2), expected + expected);
  EXPECT_EQ(evaluators(2).variables[0], "x");
  EXPECT_EQ(evaluators(2).variables[1], "X");
}

TEST(FunctionEvaluator, TwoControlsShareNone) {
  test::CountedEvaluators evaluators;
  TestHost first;
  TestHost second;
  const int loaded = evaluators.count();
  for (TestHost* host : {&first, &second}) {
    host->load({0, 1, 2}, {1, 3, 2});
    host->document().NumYFunc = 1;
    host->document().y_func(1) = {"x", "x", 0, true};
    host->redrawn();
  }
  EXPECT_EQ(evaluators.count(), loaded + 2);
}

TEST(FunctionEvaluator, OneThatCannotBeCreatedFailsTheRedrawAndIsTriedAgain) {
  TestHost host;
  host.load({0, 1, 2}, {1, 3, 2});
  host.document().NumYFunc = 1;
  host.document().y_func(1) = {"x", "x", 0, true};
  {
    const test::HostsEvaluator refusing(
        []() -> std::unique_ptr<Service> { throw Fault(FaultKind::kCannotCreateObject); });
    EXPECT_THROW(host.control.build_the_graph(), Fault);
  }
  EXPECT_THAT(host.redrawn(), HasSubstr("point "));
}

}  // namespace
}  // namespace kurv
