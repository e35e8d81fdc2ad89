// The first picture of a table: limits, ticks, labels and style that nobody has chosen.
#include <map>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class FirstPicture : public Program {
 protected:
  // The named lines of the graph file that `kurv convert` makes of the table, as "kurv info" has
  // them.
  std::map<std::string, std::string> converted(const QString& table, const QStringList& more = {}) {
    const Outcome outcome = run(QStringList{"convert", table, "-o", path("out.gdf")} + more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    std::map<std::string, std::string> fields;
    for (const QByteArray& line :
         QByteArray::fromStdString(run({"info", path("out.gdf")}).out).split('\n')) {
      const qsizetype end = line.indexOf("  ");
      if (end > 0) fields[line.left(end).toStdString()] = line.mid(end).trimmed().toStdString();
    }
    return fields;
  }
  QString table() const {
    return written("t.csv", "x,y,z\n1.3,0,10\n6.1,12.9,60.3\n11.7,24.8,139.5\n");
  }
};

TEST_F(FirstPicture, HasRoundLimitsAndTicks) {
  auto fields = converted(table());
  EXPECT_EQ(fields["NumTicks"], "6");
  EXPECT_EQ(fields["xmin"], "0");
  EXPECT_EQ(fields["xmax"], "12");
  EXPECT_EQ(fields["ymin"], "0");
  EXPECT_EQ(fields["ymax"], "150");
  EXPECT_EQ(fields["AxisLabelFormatX"], "0");
}

TEST_F(FirstPicture, HasTheRuleOfTheControlOnRequest) {
  auto fields = converted(table(), {"--limits", "rule"});
  EXPECT_EQ(fields["NumTicks"], "10");
  EXPECT_EQ(fields["xmin"], "1.3");
  EXPECT_EQ(fields["xmax"], "11.7");
  EXPECT_EQ(fields["ymax"], "200");
  EXPECT_EQ(converted(table(), {"--limits", "round"})["ymax"], "150");
}

TEST_F(FirstPicture, FitsItsLimitsToANumberOfTicks) {
  auto fields = converted(table(), {"--set", "ymin=-10", "--set", "NumTicks=10"});
  EXPECT_EQ(fields["NumTicks"], "10");
  EXPECT_EQ(fields["xmax"], "15");
  EXPECT_EQ(fields["ymin"], "-10");
  EXPECT_EQ(fields["ymax"], "150");
}

TEST_F(FirstPicture, ALegendThatIsTooLongIsShortenedInASavedGraphToo) {
  QByteArray names = "x", values[] = {"1", "2"};
  for (int k = 1; k <= 60; ++k) {
    names += ",curve" + QByteArray::number(k);
    for (QByteArray& row : values) row += ',' + QByteArray::number(k);
  }
  const QString table = written("many.csv", names + '\n' + values[0] + '\n' + values[1] + '\n');
  run({"convert", table, "-o", path("many.gdf")});
  const Outcome outcome =
      run({"render", path("many.gdf"), "-o", path("many.png"), "--size", "700x400"});
  EXPECT_THAT(outcome.err, HasSubstr("the legend has no room for"));
}

TEST_F(FirstPicture, ANumberOfTicksLeavesTheLimitsOfAGraphFile) {
  run({"convert", table(), "-o", path("zoomed.gdf"), "--set", "xmin=2", "--set", "xmax=8"});
  auto fields = converted(path("zoomed.gdf"), {"--set", "NumTicks=3"});
  EXPECT_EQ(fields["NumTicks"], "3");
  EXPECT_EQ(fields["xmin"], "2");
  EXPECT_EQ(fields["xmax"], "8");
}

TEST_F(FirstPicture, LabelsShowTicksOfLimitsThatWereChosen) {
  EXPECT_EQ(converted(table(), {"--set", "xmax=15"})["AxisLabelFormatX"], "0.0");
  EXPECT_EQ(
      converted(table(), {"--set", "xmax=15", "--set", "AxisLabelFormatX=0"})["AxisLabelFormatX"],
      "0");
}

TEST_F(FirstPicture, HasWholeUnitsOfTime) {
  QByteArray months = "month,y\n";
  for (int i = 1; i <= 11; ++i)
    months += QByteArray("2021-%1,%2\n")
                  .replace("%1", QByteArray::number(i).rightJustified(2, '0'))
                  .replace("%2", QByteArray::number(i * 7));
  auto fields = converted(written("months.csv", months));
  EXPECT_EQ(fields["xmin"], "0");
  EXPECT_EQ(fields["AxisLabelFormatX"], "0");
}

TEST_F(FirstPicture, HasMarkersWhereXGoesBackAndForth) {
  const QString scattered = written("s.csv", "x,y\n1,2\n3,1\n2,5\n");
  auto fields = converted(scattered);
  EXPECT_EQ(fields["Connected"], "False");
  EXPECT_EQ(fields["DrawMarkers"], "True");
  for (const char* option : {"--lines", "--sort", "--no-markers"}) {
    fields = converted(scattered, {option});
    EXPECT_EQ(fields["Connected"], "True") << option;
    EXPECT_EQ(fields["DrawMarkers"], "False") << option;
  }
  for (const char* rows : {"1,2\n2,5\n2,6\n3,1\n", "3,2\n2,5\n1,1\n", "1,2\n,3\n2,5\n"}) {
    fields = converted(written("l.csv", QByteArray("x,y\n") + rows));
    EXPECT_EQ(fields["Connected"], "True") << rows;
  }
}

TEST_F(FirstPicture, SaysWhereTheLegendHasNoRoom) {
  QByteArray names = "x";
  QByteArray first = "1";
  QByteArray second = "2";
  for (int k = 1; k <= 149; ++k) {
    names += ",c" + QByteArray::number(k);
    first += ',' + QByteArray::number(k);
    second += ",0";
  }
  const Outcome outcome = render(written("many.csv", names + '\n' + first + '\n' + second + '\n'));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.err, HasSubstr("the legend has no room for"));
  EXPECT_EQ(render(table()).err, "");
}

TEST_F(FirstPicture, LimitsAreRoundOrByTheRuleAndOfTablesAlone) {
  EXPECT_THAT(render(table(), {"--limits", "tight"}).err,
              HasSubstr("--limits takes round or rule, not \"tight\"."));
  converted(table());
  const Outcome outcome = render(path("out.gdf"), {"--limits", "rule"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("leave out --limits"));
}

}  // namespace
}  // namespace kurv::app
