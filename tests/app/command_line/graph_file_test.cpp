// Graph files on the command line: drawn, written and looked into.
#include <QDir>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class GraphFile : public Program {
 protected:
  // What is in the files of small() and graph().
  static constexpr int kLines = 53;

  QString graph(const QStringList& more = {}) {
    const Outcome outcome = run(QStringList{"convert", small(), "-o", path("small.gdf")} + more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out + outcome.err, "");
    return path("small.gdf");
  }

  QList<QByteArray> lines_of(const QString& file) const {
    QList<QByteArray> lines = contents(file).split('\n');
    lines.removeLast();
    return lines;
  }

  // The graph with one of its lines, counted from 1, as it should not be.
  QString changed(int line, const QByteArray& text) {
    QList<QByteArray> lines = lines_of(graph());
    lines[line - 1] = text;
    return written("changed.gdf", lines.join('\n') + '\n');
  }

  Outcome check(const QString& file) { return run({"info", "--check", file}); }
};

TEST_F(GraphFile, HoldsThePictureOfTheDataThatItWasMadeFrom) {
  const QStringList choice{"--markers", "--no-lines", "--subtitle", "S", "--set", "X_grid=true"};
  const QImage expected = rendered(small(), choice + QStringList{"--size", "500x400"});
  const QString file = graph(choice + QStringList{"--size", "500x400"});
  EXPECT_EQ(rendered(file, {"--size", "500x400"}), expected);
}

TEST_F(GraphFile, IsKnownByItsNameOrByItsBeginning) {
  const QByteArray bytes = contents(graph());
  EXPECT_FALSE(rendered(written("a.GDF", bytes)).isNull());
  EXPECT_FALSE(rendered(written("a.txt", bytes)).isNull());
  QByteArray foreign = bytes;
  EXPECT_FALSE(rendered(written("b.gdf", foreign.replace(0, 6, "xxxxxx"))).isNull());
}

TEST_F(GraphFile, IsDrawnAtTheSizeThatIsAskedFor) {
  const QString file = graph({"--size", "300x200"});
  EXPECT_EQ(rendered(file).size(), QSize(1000, 700));
  EXPECT_EQ(rendered(file, {"--size", "640x480", "--scale", "2"}).size(), QSize(1280, 960));
}

TEST_F(GraphFile, LooksThatAreGivenComeOnTopOfIt) {
  const QString file = graph();
  const QImage plain = rendered(file);
  for (const QStringList& choice : QList<QStringList>{{"--title", "T"},
                                                      {"--subtitle", "S"},
                                                      {"--no-lines"},
                                                      {"--markers"},
                                                      {"--set", "NumTicks=4"}}) {
    EXPECT_NE(rendered(file, choice), plain) << choice.join(' ').toStdString();
  }
  EXPECT_EQ(rendered(file, {"--lines", "--title", "small"}), plain);
}

TEST_F(GraphFile, ChoicesOfColumnsAndRowsMakeNoSense) {
  const QString file = graph();
  for (const QStringList& choice : QList<QStringList>{
           {"--x", "x"}, {"--y", "y"}, {"--every", "2"}, {"--sort"}, {"--limits", "round"}}) {
    expect_refusal(render(file, choice), 2, "leave out " + choice[0].toStdString() + ".");
    expect_refusal(run(QStringList{file} + choice), 2, "leave out");
  }
}

TEST_F(GraphFile, CutAtAnyLineIsRefusedAndTheLineIsNamed) {
  const QList<QByteArray> lines = lines_of(graph());
  ASSERT_EQ(lines.size(), kLines);
  for (int kept = 0; kept < kLines; kept += kept < 45 ? 5 : 1) {
    const QString file = written("cut.gdf", kept == 0 ? "" : lines.first(kept).join('\n') + '\n');
    expect_refusal(render(file), 1, "the file ends too early; \"kurv info --check\" lists");
    const Outcome outcome = check(file);
    EXPECT_EQ(outcome.status, 1) << kept;
    EXPECT_THAT(outcome.out, HasSubstr("line " + std::to_string(kept + 1) + ": the file ends"));
    EXPECT_EQ(run({"info", file}).status, 1) << kept;
  }
}

TEST_F(GraphFile, ThatCannotBeReadIsSaidInOneSentence) {
  expect_refusal(render(path("none.gdf")), 1, "there is no such file; check the name.");
  expect_refusal(render(path("none/a.gdf")), 1, "there is no such folder; check the name.");
  QDir(m_folder.path()).mkdir("folder.gdf");
  expect_refusal(render(path("folder.gdf")), 1, "name a graph file instead.");
  expect_refusal(render(written("bin.gdf", QByteArray("\x89PNG\0\1\n\0", 8))), 1, "info --check");
  expect_refusal(run({"info", path("none.gdf")}), 1, "check the name.");
  expect_refusal(run({"info", path("folder.gdf")}), 1, "name a graph file instead.");
}

TEST_F(GraphFile, OddThingsAreListedAndDoNotKeepItFromLoading) {
  const auto listed = [&](int line, const QByteArray& text, const std::string& part) {
    const QString file = changed(line, text);
    const Outcome outcome = check(file);
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_THAT(outcome.out,
                AllOf(HasSubstr("line " + std::to_string(line) + ": "), HasSubstr(part)));
    EXPECT_EQ(render(file).status, 0) << line;
  };
  listed(1, "FOREIGN", "does not begin with \"QXPLOT/V500//\"");
  listed(2, "other", "differs from line 6");
  listed(3, "2 rows", "is read as 2");
  listed(5, "-1", "NumYFunc is negative");
  listed(7, "W\xE4rme", "is not UTF-8");
  listed(48, "1,2,3,4", "4 values instead of 3");
  listed(51, "x,a,b,z", "4 names instead of 3; a comma in one");
  listed(53, "min(1,2)", "2 expressions instead of 0");
  QFile longer(graph());
  ASSERT_TRUE(longer.open(QIODevice::Append));
  longer.write("more\r\n");
  longer.close();
  EXPECT_THAT(check(path("small.gdf")).out, HasSubstr("line 54: the graph ends before this line"));
}

TEST_F(GraphFile, ThatClaimsMinusOnePointsLoadsAndHasNothingToDraw) {
  const QString file = changed(3, "-1");
  const Outcome outcome = check(file);
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  EXPECT_THAT(
      outcome.out,
      AllOf(HasSubstr("line 3: NumData is negative, so there are no points to draw\n"),
            HasSubstr("line 48: it has 3 values instead of 0"), Not(HasSubstr("does not load"))));
  EXPECT_EQ(run({"info", file}).status, 0);
  EXPECT_EQ(run({"convert", file, "-o", path("again.gdf")}).status, 1);
  expect_refusal(render(file), 1, "cannot be drawn");
}

TEST_F(GraphFile, WhatKeepsItFromLoadingIsListed) {
  const auto listed = [&](int line, const QByteArray& text, const std::string& part) {
    const QString file = changed(line, text);
    const Outcome outcome = check(file);
    EXPECT_EQ(outcome.status, 1) << outcome.out;
    EXPECT_THAT(outcome.out, AllOf(HasSubstr("line " + std::to_string(line) + ": "),
                                   HasSubstr(part), HasSubstr("does not load")));
    expect_refusal(render(file), 1, "cannot be loaded");
  };
  listed(3, "-3", "NumData is negative");
  listed(3, "99999", "beyond 16 bits");
  listed(4, "32767", "no column for x");
  listed(8, "ten", "which is no number");
  listed(21, "40000", "beyond 16 bits");
  listed(32, "NaN", "FontSize is \"NaN\", which is not finite");
  listed(32, "inf", "FontSize is \"inf\", which is not finite");
  listed(24, "NaN", "ymax is \"NaN\", which is not finite");
  listed(25, "-Inf", "xmin is \"-Inf\", which is not finite");
  listed(26, lines_of(graph())[24], "xmax equals xmin");
  listed(29, "maybe", "neither True nor False");
  listed(49, "1,2", "2 values instead of 3");
  listed(49, "1,b,3", "value 2 is \"b\", which is no number");
  listed(52, "True", "flag 2 is \"\"");
}

TEST_F(GraphFile, InfoPrintsWhatIsInside) {
  const Outcome info = run({"info", graph({"--title", "A title", "--set", "X_grid=true"})});
  EXPECT_EQ(info.status, 0);
  EXPECT_EQ(info.err, "");
  for (const char* line :
       {"Title               A title\n", "NumData             3\n", "X_grid              True\n",
        "FontSize            ", "x                   \"x\", 3 values\n",
        "Curve 2             \"z\", 3 values, visible\n"}) {
    EXPECT_THAT(info.out, HasSubstr(line));
  }
  const QByteArray two = lines_of(graph())[4 - 1];
  EXPECT_EQ(two.trimmed(), "2");
  EXPECT_THAT(check(path("small.gdf")).out, HasSubstr(": no problems found\n"));
}

TEST_F(GraphFile, InfoReadsTextThatIsNotUtf8AsALoadDoes) {
  const QString file = changed(7, "5 \x80 \x93net\x94");
  EXPECT_THAT(run({"info", file}).out, HasSubstr("SubTitle            5 \u20AC \u201Cnet\u201D\n"));
  EXPECT_EQ(rendered(file), rendered(changed(7, "5 \u20AC \u201Cnet\u201D")));
}

TEST_F(GraphFile, ALocaleWithACommaDecidesAboutTheNumbers) {
  const QString file = graph({"--locale", "de_DE", "--set", "xmin=0.5"});
  EXPECT_EQ(lines_of(file)[25 - 1].trimmed(), ",5");
  EXPECT_EQ(run({"info", "--check", "--locale", "de_DE", file}).status, 0);
  EXPECT_EQ(run({"info", "--check", file}).status, 1);
  EXPECT_FALSE(rendered(file, {"--locale", "de_DE"}).isNull());
}

TEST_F(GraphFile, ConvertRefusesAsRenderDoesAndReplacesAsTheGraphDoes) {
  const QString target = path("out.gdf");
  expect_refusal(run({"convert", path("none.csv"), "-o", target}), 1, "check the name.");
  expect_refusal(run({"convert", written("s.csv", "x,y\n1,2\n1,3\n"), "-o", target}), 1, "--x.");
  expect_refusal(run({"convert", small(), "-o", path("no/out.gdf")}), 1, "choose another folder.");
  expect_refusal(run({"convert", small(), "-o", "/proc/out.gdf"}), 1, "cannot be written");
  EXPECT_FALSE(QFile::exists(target));
  written("out.gdf", "old");
  EXPECT_EQ(run({"convert", small(), "-o", target}).status, 0);
  EXPECT_THAT(contents(target).toStdString(), StartsWith("QXPLOT/V500//"));
  EXPECT_THAT(files(), Not(IsEmpty()));
  EXPECT_FALSE(QFile::exists(target + "~"));
}

}  // namespace
}  // namespace kurv::app
