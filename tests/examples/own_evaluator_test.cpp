// The example with an evaluator of its own: what it draws, and what it does with nonsense.
#include <gtest/gtest.h>

#include "tests/examples/example_run.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

class OwnEvaluatorExample : public test::GraphFileTest {
 protected:
  test::Ended draw(const std::string& name, const std::string& expression) {
    return test::run(KURV_OWN_EVALUATOR " " + path(name) + " '" + expression + "'");
  }
  std::string bytes(const std::string& name) {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
};

TEST_F(OwnEvaluatorExample, DrawsItsCurve) {
  const test::Ended ended = test::run(KURV_OWN_EVALUATOR " " + path("a.png"));
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.status, 0);
  EXPECT_GT(bytes("a.png").size(), 4000U);
}

TEST_F(OwnEvaluatorExample, ConstantsHaveTheirValues) {
  EXPECT_EQ(draw("named.png", "light_c/29979245.8 + 0*x").output, "");
  EXPECT_EQ(draw("number.png", "10 + 0*x").output, "");
  EXPECT_EQ(draw("other.png", "11 + 0*x").output, "");
  // The legend shows the expression, so only the pictures of two numbers of equal length differ
  // by the curve alone.
  EXPECT_EQ(draw("same.png", "10 + 0*x").output, "");
  EXPECT_EQ(bytes("number.png"), bytes("same.png"));
  EXPECT_NE(bytes("number.png"), bytes("other.png"));
  EXPECT_TRUE(exists("named.png"));
}

TEST_F(OwnEvaluatorExample, RefusesNonsenseWithASentenceAndWritesNothing) {
  const std::string nonsense[] = {"planck_h*",
                                  "planck_h*nothing",
                                  "Light_C*x",
                                  "",
                                  "(((",
                                  "light_c(x)",
                                  "[light_c",
                                  "x y",
                                  std::string(100000, '('),
                                  "\xff\xfe",
                                  "kelvin_sun=1"};
  for (const std::string& expression : nonsense) {
    const test::Ended ended = draw("b.png", expression);
    EXPECT_EQ(ended.status, 1) << expression.substr(0, 40);
    EXPECT_GT(ended.output.size(), 10U) << expression.substr(0, 40);
    EXPECT_FALSE(exists("b.png")) << expression.substr(0, 40);
  }
}

TEST_F(OwnEvaluatorExample, ACurveWithoutAnyValueIsNoError) {
  EXPECT_EQ(draw("c.png", "sqrt(0-light_c) + x").status, 0);
  EXPECT_EQ(draw("d.png", "x/(planck_h-planck_h)").status, 0);
  EXPECT_EQ(draw("e.png", "light_c^1000 * x").status, 0);
}

TEST_F(OwnEvaluatorExample, FailsWhereThePictureCannotBeWritten) {
  EXPECT_EQ(test::run(KURV_OWN_EVALUATOR).status, 2);
  EXPECT_EQ(draw("none/a.png", "x").status, 1);
}

}  // namespace
}  // namespace kurv
