// Functions, derived curves and the calculator of the program.
#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Expressions : public Program {};

TEST_F(Expressions, FunctionIsDrawnOverTheData) {
  const QImage plain = rendered(small());
  EXPECT_NE(rendered(small(), {"--function", "x+1"}), plain);
  EXPECT_EQ(rendered(small(), {"--function", "100"}), plain) << "it lies outside the plot";
}

TEST_F(Expressions, DerivedCurveIsOneMoreCurve) {
  const QString graph = path("out.gdf");
  const Outcome outcome = run({"convert", small(), "-o", graph, "--derive", "sum = y+[z]",
                               "--derive", "ratio=sum/(1+y)", "--function", "x^2"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  const QByteArray text = contents(graph);
  EXPECT_THAT(text.toStdString(), HasSubstr("x,y,z,sum,ratio\r\n"));
  EXPECT_THAT(text.toStdString(), HasSubstr("\r\n7,7,8\r\n"));
  EXPECT_THAT(text.toStdString(), HasSubstr("\r\nx^2\r\n"));
}

TEST_F(Expressions, NamesWithBracketsAreWrittenEitherWay) {
  const QString data = written("units.csv", "time [s],Temp [C]\n1,20\n2,30\n");
  const Outcome outcome = run({"convert", data, "-o", path("units.gdf"), "--derive",
                               "kelvin=[Temp [C]]+273", "--derive", "rate=[Temp [C]]]/[time [s]]"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const QByteArray text = contents(path("units.gdf"));
  EXPECT_THAT(text.toStdString(), HasSubstr("\r\n293,303\r\n20,15\r\n"));
}

TEST_F(Expressions, BadOnesAreRefusedWithTheEvaluatorsSentence) {
  const QString data = small();
  expect_refusal(render(data, {"--function", "(x+1"}), 1,
                 "A closing parenthesis is missing after character 4.");
  expect_refusal(render(data, {"--function", "x+y"}), 1, "Only 'x' variable is allowed");
  expect_refusal(render(data, {"--derive", "s=y+q"}), 1, "'q' is not a known scatter curve name");
  expect_refusal(render(data, {"--derive", "y=z"}), 1, "'y' is not a unique variable name");
  expect_refusal(render(data, {"--derive", "2y=z"}), 1, "'2y' is not a valid variable name");
  expect_refusal(render(data, {"--derive", "nothing"}), 2, "as in 'ratio=up/(1+down)'");
  expect_refusal(render(data, {"--derive", "=x"}), 2, "as in 'ratio=up/(1+down)'");
}

TEST_F(Expressions, OfSeveralFilesTheOneThatRefusesIsNamed) {
  const QString first = written("a.csv", "x,y\n1,2\n2,3\n");
  const QString second = written("b.csv", "x,z\n1,2\n2,3\n");
  QProcessEnvironment environment = m_process.processEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  m_process.setProcessEnvironment(environment);
  const Outcome outcome = run({first, second, "--derive", "s=q"});
  EXPECT_EQ(outcome.status, 1);
  const std::string refusal = ": --derive \"s=q\": 'q' is not a known scatter curve name.\n";
  EXPECT_EQ(outcome.err,
            "kurv: " + first.toStdString() + refusal + "kurv: " + second.toStdString() + refusal);
}

TEST_F(Expressions, ThirtyFunctionsAreTakenAndNotOneMore) {
  QStringList functions;
  for (int i = 0; i < 30; ++i) functions << "--function" << QString("x*%1/10").arg(i);
  rendered(small(), functions);
  QFile::remove(path("out.png"));
  functions << "--function"
            << "3";
  expect_refusal(render(small(), functions), 1, "You can not use more than  30");
}

TEST_F(Expressions, FunctionWithACommaIsWarnedOfWhenItIsSaved) {
  const Outcome saved = run({"convert", small(), "-o", path("a.gdf"), "--function", "max(x,2)"});
  EXPECT_EQ(saved.status, 0);
  EXPECT_THAT(saved.err, StartsWith("kurv: warning: "));
  EXPECT_THAT(saved.err, HasSubstr("\"max(x,2)\""));
  EXPECT_EQ(render(small(), {"--function", "max(x,2)"}).err, "") << "drawing loses nothing";
}

TEST_F(Expressions, MoreCurvesThanAGraphHoldsAreRefused) {
  QByteArray table = "x";
  for (int i = 1; i <= 149; ++i) table += ",c" + QByteArray::number(i);
  for (int row = 1; row <= 2; ++row) {
    table += "\n" + QByteArray::number(row);
    for (int i = 1; i <= 149; ++i) table += "," + QByteArray::number(i * row);
  }
  const QString data = written("wide.csv", table);
  EXPECT_EQ(render(data).status, 0);
  QFile::remove(path("out.png"));
  expect_refusal(render(data, {"--derive", "more=c1"}), 1, "a graph holds 149 curves");
}

TEST_F(Expressions, EvalPrintsTheValueOrTheSentence) {
  const Outcome value = run({"eval", "x^2+[body mass]", "x=3", "body mass=1.5"});
  EXPECT_EQ(value.status, 0) << value.err;
  EXPECT_EQ(value.out, "10.5\n");
  const Outcome negative = run({"eval", "--", "-2^2"});
  EXPECT_EQ(negative.out, "-4\n");
  const Outcome wrong = run({"eval", "foo(1)"});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_THAT(wrong.err, StartsWith("kurv: 'foo' is not a function that can be used here"));
}

TEST_F(Expressions, EvalAnswersTheLinesOfItsInput) {
  m_process.start(KURV_PROGRAM, {"eval"});
  m_process.write("1+1\nx*2\tx=4\ny\n");
  m_process.closeWriteChannel();
  ASSERT_TRUE(m_process.waitForFinished(60000));
  EXPECT_EQ(m_process.exitCode(), 0);
  const QList<QByteArray> lines = m_process.readAllStandardOutput().split('\n');
  ASSERT_EQ(lines.size(), 4);
  EXPECT_EQ(lines[0], "2");
  EXPECT_EQ(lines[1], "8");
  EXPECT_TRUE(lines[2].startsWith("error: "));
}

}  // namespace
}  // namespace kurv::app
