// The program as its users meet it: arguments, exit status, standard error and files.

#include <sys/resource.h>

#include <QSet>
#include <csignal>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

int colours(const QImage& image) {
  QSet<QRgb> found;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) found.insert(image.pixel(x, y));
  }
  return static_cast<int>(found.size());
}

TEST_F(Program, DrawsEachExampleWithoutADisplay) {
  for (const char* name : {"co2.csv", "penguins.csv", "seattle_weather.csv"}) {
    const Outcome outcome = render(example(name));
    EXPECT_EQ(outcome.status, 0) << name;
    EXPECT_EQ(outcome.err, "") << name;
    EXPECT_EQ(outcome.out, "") << name;
    const QImage image(path("out.png"));
    EXPECT_EQ(image.size(), QSize(1000, 700)) << name;
    EXPECT_GT(colours(image), 3) << name;
  }
}

TEST_F(Program, DrawsTheSamePictureEachTime) {
  const QImage first = rendered(example("co2.csv"));
  EXPECT_EQ(rendered(example("co2.csv")), first);
}

TEST_F(Program, WritesBmpByTheExtension) {
  const Outcome outcome = run({"render", small(), "-o", path("out.BMP"), "--size", "320x200"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(contents(path("out.BMP")).startsWith("BM"));
  const QImage image(path("out.BMP"), "BMP");
  EXPECT_EQ(image.size(), QSize(320, 200));
  EXPECT_GT(colours(image), 3);
}

TEST_F(Program, ScaleMultipliesThePixels) {
  EXPECT_EQ(rendered(small(), {"--size", "300x200", "--scale", "2"}).size(), QSize(600, 400));
  EXPECT_EQ(rendered(small(), {"--size", "300x200", "--scale", "1.25"}).size(), QSize(375, 250));
  EXPECT_EQ(rendered(small(), {"--size", "300x200", "--scale", "0.5"}).size(), QSize(150, 100));
}

TEST_F(Program, DrawsTheSmallestPicture) {
  EXPECT_EQ(rendered(small(), {"--size", "1x1"}).size(), QSize(1, 1));
}

TEST_F(Program, EachChoiceShowsInThePicture) {
  const QString data = written("data.csv", "x,y,z\n3,2,5\n1,3,4\n2,5,3\n4,4,4\n");
  const QImage plain = rendered(data, {"--lines"});
  EXPECT_EQ(rendered(data, {"--lines", "--no-markers"}), plain);
  const QList<QStringList> choices = {{"--x", "y"},
                                      {"--y", "y"},
                                      {"--every", "2"},
                                      {"--sort"},
                                      {"--no-lines"},
                                      {"--markers"},
                                      {"--title", "T"},
                                      {"--subtitle", "S"},
                                      {"--set", "CurvesWidth=9"},
                                      {"--title", ""},
                                      {"--set", "x_grid=true", "--set", "Y_GRID=-1"},
                                      {"--set", "NumTicks=3"}};
  for (const QStringList& choice : choices) {
    EXPECT_NE(rendered(data, QStringList{"--lines"} + choice), plain)
        << choice.join(' ').toStdString();
  }
}

TEST_F(Program, TitleIsTheNameOfTheDataFile) {
  const QImage plain = rendered(small());
  EXPECT_EQ(rendered(small(), {"--title", "small"}), plain);
}

TEST_F(Program, FileNamesMayHaveAnyLetters) {
  const QString data = written(QString::fromUtf8("Messung \u00E4\u2192.csv"), "x,y\n1,2\n2,3\n");
  const QString picture = path(QString::fromUtf8("Bild \u00E4\u2192.png"));
  EXPECT_EQ(run({"render", data, "-o", picture}).status, 0);
  EXPECT_EQ(QImage(picture).size(), QSize(1000, 700));
}

TEST_F(Program, WarningsGoToStandardErrorAndThePictureIsThere) {
  const Outcome outcome = render(written("words.csv", "name,a,b\none,2,5\ntwo,3,6\n"));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.err, AllOf(StartsWith("kurv: warning: "), HasSubstr("row number")));
  EXPECT_FALSE(QImage(path("out.png")).isNull());
}

TEST_F(Program, DataThatCannotBeDrawnAreRefused) {
  expect_refusal(render(path("missing.csv")), 1, "No such file or directory; check the name.");
  expect_refusal(render(m_folder.path()), 1, "is a directory");
  expect_refusal(render(written("empty.csv", "")), 1, "is empty");
  expect_refusal(render(written("binary.csv", QByteArray("\x89PNG\0\1", 6))), 1, "is no text");
  expect_refusal(render(written("open.csv", "x,y\n1,\"2\n")), 1, "never closed");
  expect_refusal(render(written("words.csv", "a,b\nc,d\n")), 1, "no column of numbers");
  expect_refusal(render(small(), {"--x", "nonsense"}), 1, "no column \"nonsense\"");
  expect_refusal(render(small(), {"--y", "y,nonsense"}), 1, "no column \"nonsense\"");
}

TEST_F(Program, TooManyRowsAreThinnedOutWithAWarning) {
  QByteArray bytes = "x,y\n";
  for (int i = 0; i < 40000; ++i)
    bytes += QByteArray::number(i) + ',' + QByteArray::number(i == 777 ? 500 : i % 97) + '\n';
  const QString data = written("long.csv", bytes);
  const std::string warning =
      "kurv: warning: the table has 40000 rows, more than the 32767 that a graph can hold; it is "
      "thinned out to 32767 rows "
      "that keep the peaks of all curves; --every takes each N-th row instead.\n";
  const Outcome drawn = render(data);
  EXPECT_EQ(drawn.status, 0);
  EXPECT_EQ(drawn.err, warning);
  const Outcome converted = run({"convert", data, "-o", path("long.gdf")});
  EXPECT_EQ(converted.status, 0);
  EXPECT_EQ(converted.err, warning);
  EXPECT_TRUE(contents(path("long.gdf")).contains(",500,"));
  EXPECT_THAT(run({"info", data}).out,
              AllOf(HasSubstr("Rows                40000\n"), HasSubstr("thinned out to 32767")));
}

TEST_F(Program, EachNthRowIsTakenInstead) {
  QByteArray bytes = "x,y\n";
  for (int i = 0; i < 40000; ++i) bytes += QByteArray::number(i) + ",1\n";
  const QString data = written("long.csv", bytes);
  const Outcome drawn = render(data, {"--every", "2"});
  EXPECT_EQ(drawn.status, 0);
  EXPECT_EQ(drawn.err, "");
  EXPECT_EQ(render(data, {"--every", "1"}).err, render(data).err);
}

TEST_F(Program, DataWithoutAnAxisAreRefusedWithTheWayOut) {
  expect_refusal(
      render(written("same.csv", "x,y\n1,2\n1,3\n1,4\n")), 1,
      "all values of x, the column \"x\", are the same; choose another column with --x.");
  expect_refusal(render(written("gaps.csv", "x,y\n,2\n1,3\n,4\n")), 1, "another column with --x");
  expect_refusal(render(written("one.csv", "x,y\n1,2\n")), 1, "at least two; add another one.");
  expect_refusal(render(small(), {"--every", "9"}), 1, "with this --every");
}

TEST_F(Program, WithoutPropertiesOneRedrawIsEnough) {
  // The value is the usual one, and a picture with a property is drawn until it stays the same.
  const QImage settled = rendered(small(), {"--set", "CurvesWidth=1"});
  EXPECT_EQ(rendered(small()), settled);
}

TEST_F(Program, ARunTimeErrorOfTheGraphIsSaidInOneSentence) {
  expect_refusal(render(small(), {"--set", "NumTicks=0"}), 1,
                 "an axis has equal limits or no ticks; check the values given with --set.");
}

TEST_F(Program, MistakesInTheCommandLineEndWithTwo) {
  expect_refusal(run({"render"}), 2, "--help");
  expect_refusal(run({"--title", "no file"}), 2, "a file is missing");
  expect_refusal(run({""}), 2, "the name of a file is empty; name one");
  expect_refusal(run({"render", "", "-o", path("out.png")}), 2, "is empty; name one");
  expect_refusal(run({"render", small(), "-o", path("out.jpg")}), 2, ".png, .bmp, .svg or .pdf");
  expect_refusal(render(small(), {"--size", "0x0"}), 2, "--size takes");
  expect_refusal(render(small(), {"--set", "NumTicks=many"}), 2, "takes a whole number");
  expect_refusal(render(small(), {"--set", "Nonsense=1"}), 2, "no property");
  expect_refusal(render(small(), {"--y", "\"open"}), 2, "--y takes");
}

TEST_F(Program, WithoutArgumentsItHelps) {
  const Outcome outcome = run({});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, AllOf(HasSubstr("Usage"), HasSubstr("render")));
}

TEST_F(Program, AWindowWithoutADisplayIsRefusedInOneSentence) {
  expect_refusal(run({small()}), 1, "\"kurv render\" draws a picture without one");
}

TEST_F(Program, WhatCannotBeDrawnIsSaidBeforeAWindowOpens) {
  expect_refusal(run({path("missing.csv")}), 1,
                 "cannot be read: No such file or directory; check the name.");
  QProcessEnvironment environment = m_process.processEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  m_process.setProcessEnvironment(environment);
  expect_refusal(run({written("same.csv", "x,y\n1,2\n1,3\n")}), 1,
                 "choose another column with --x");
  expect_refusal(run({small(), "--set", "NumTicks=0"}), 1, "check the values given with --set");
}

TEST_F(Program, HelpAndVersionGoToStandardOutput) {
  const Outcome version = run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "kurv 1.0.0\n");
  const Outcome help = run({"render", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.out, AllOf(HasSubstr("--output"), HasSubstr("Example")));
  EXPECT_EQ(help.err, "");
}

TEST_F(Program, APictureThatCannotBeWrittenIsSaidWithTheReason) {
  const QString data = small();
  QDir(m_folder.path()).mkdir("folder.png");
  expect_refusal(run({"render", data, "-o", path("folder.png")}), 1,
                 "not a regular file; choose another name.");
  expect_refusal(run({"render", data, "-o", path("missing/out.png")}), 1,
                 "No such file or directory; choose another folder.");
  expect_refusal(run({"render", data, "-o", "/proc/out.png"}), 1, "cannot be written");
}

TEST_F(Program, AnExistingPictureIsReplaced) {
  const QString data = small();
  written("out.png", "old");
  EXPECT_EQ(render(data).status, 0);
  EXPECT_EQ(QImage(path("out.png")).size(), QSize(1000, 700));
  EXPECT_THAT(files(), testing::ElementsAre("out.png", "small.csv"));
}

TEST_F(Program, AFullDiskLeavesTheExistingPictureAndNothingElse) {
  const QString data = small();
  written("out.png", "old");
  // The limit makes a write fall short just as a full disk does.
  m_process.setChildProcessModifier([] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  const Outcome outcome = render(data);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, AllOf(StartsWith("kurv: "), HasSubstr("cannot be written"),
                                 HasSubstr("; make room on the disk")));
  EXPECT_EQ(contents(path("out.png")), "old");
  EXPECT_THAT(files(), testing::ElementsAre("out.png", "small.csv"));
}

TEST_F(Program, ARefusalLeavesTheExistingPicture) {
  const QString data = small();
  written("out.png", "old");
  EXPECT_EQ(render(data, {"--set", "NumTicks=0"}).status, 1);
  EXPECT_EQ(render(data, {"--size", "0x0"}).status, 2);
  EXPECT_EQ(contents(path("out.png")), "old");
}

}  // namespace
}  // namespace kurv::app
