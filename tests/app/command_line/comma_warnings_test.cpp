// What the program says before it writes a graph file that does not keep all of the graph.
#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

using CommaWarnings = Program;

TEST_F(CommaWarnings, OfFunctionsComeOnceForEachAndTheFileIsWritten) {
  const Outcome outcome = run({"convert", small(), "-o", path("a.gdf"), "--function", "max(x,2)",
                               "--function", "x^2", "--function", "max(x,2)"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "kurv: warning: a graph file splits the function \"max(x,2)\" at its comma, so it does "
            "not come back as it is.\n");
  EXPECT_TRUE(QFile::exists(path("a.gdf")));
}

TEST_F(CommaWarnings, OfNumbersWithADecimalCommaNameTheFirst) {
  const QString table = written("halves.csv", "x,y\n1,2\n2,3.5\n3,4.25\n");
  const Outcome outcome = run({"convert", table, "-o", path("a.gdf"), "--locale", "de_DE"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "kurv: warning: a graph file splits numbers such as 3,5 at the decimal comma, so the "
            "data do not come back as they are.\n");
  EXPECT_EQ(run({"convert", table, "-o", path("a.gdf")}).err, "");
}

TEST_F(CommaWarnings, ComeBeforeAFileThatCannotBeWritten) {
  const Outcome outcome =
      run({"convert", small(), "-o", path("gone/a.gdf"), "--function", "max(x,2)"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith("kurv: warning: a graph file splits"));
  EXPECT_THAT(outcome.err, HasSubstr("cannot be written"));
}

TEST_F(CommaWarnings, DoNotMixWithAGraphFileOnStandardOutput) {
  const Outcome outcome = run({"convert", small(), "-o", "-", "--function", "max(x,2)"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, StartsWith("QXPLOT/V500//"));
  EXPECT_THAT(outcome.err, StartsWith("kurv: warning: "));
}

}  // namespace
}  // namespace kurv::app
