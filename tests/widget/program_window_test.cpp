// Programs with windows, as their users see them.
#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

namespace kurv::test {
namespace {

QByteArray output_of(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(10000));
  return process.readAllStandardOutput().trimmed();
}

// The window whose title or class is this, or 0 while there is none.
WId visible_window(const QString& text, const QString& what) {
  const QByteArray found =
      output_of("xdotool", {"search", "--onlyvisible", what, "^" + text + "$"});
  return found.split('\n').first().toULongLong();
}

WId wait_for_window(const QString& text, const QString& what = "--name") {
  WId id = 0;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (id = visible_window(text, what)) != 0; }, 20000))
      << text.toStdString();
  return id;
}

// As by the window's own button for it.
void close_window(WId id) {
  output_of("wmctrl", {"-i", "-c", QString::number(id)});
}

int colours_of(WId id) {
  const QImage shot = QGuiApplication::primaryScreen()->grabWindow(id).toImage();
  QSet<QRgb> colours;
  for (int y = 0; y < shot.height(); ++y) {
    for (int x = 0; x < shot.width(); ++x) colours.insert(shot.pixel(x, y));
  }
  return static_cast<int>(colours.size());
}

// Of the plot, which fills what the toolbar leaves.
QImage plot_shot(WId id, QSize plot) {
  const QImage shot = QGuiApplication::primaryScreen()->grabWindow(id).toImage();
  return shot.copy(QRect(QPoint(0, shot.height() - plot.height()), plot))
      .convertToFormat(QImage::Format_RGB32);
}

// Until the window shows more than one plain surface.
bool shows_a_graph(WId id) {
  return QTest::qWaitFor([&] { return colours_of(id) > 5; }, 10000);
}

struct Ended {
  explicit Ended(QProcess& running) : process(running) {}
  ~Ended() {
    process.kill();
    process.waitForFinished();
  }
  QProcess& process;
};

QString example(const char* name) {
  return QString(KURV_SOURCE_DIR "/examples/data/") + name;
}

TEST(ProgramWindow, TwoFilesOpenTwoWindows) {
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, {example("co2.csv"), example("penguins.csv"), "--size", "500x300"});
  const WId first = wait_for_window("co2.csv");
  const WId second = wait_for_window("penguins.csv");
  EXPECT_NE(first, second);
  EXPECT_TRUE(shows_a_graph(first));
  EXPECT_TRUE(shows_a_graph(second));
  const QSize size = QGuiApplication::primaryScreen()->grabWindow(first).size();
  EXPECT_EQ(size.width(), 500);
  EXPECT_GT(size.height(), 300) << "there is a toolbar above the plot";
  close_window(first);
  EXPECT_TRUE(QTest::qWaitFor([] { return visible_window("co2.csv", "--name") == 0; }, 10000));
  EXPECT_EQ(kurv.state(), QProcess::Running) << "the other window is still open";
  close_window(second);
  EXPECT_TRUE(kurv.waitForFinished(10000));
  EXPECT_EQ(kurv.exitCode(), 0);
  EXPECT_EQ(kurv.readAllStandardError(), "");
}

TEST(ProgramWindow, ShowsThePixelsThatRenderWrites) {
  QTemporaryDir folder;
  const QStringList choice{"--size", "500x300", "--y",         "co2,adjusted", "--title",
                           "CO2",    "--set",   "X_grid=True", "--set",        "NumTicks=6"};
  QProcess render;
  render.start(KURV_PROGRAM,
               QStringList{"render", example("co2.csv"), "-o", folder.filePath("a.png")} + choice);
  ASSERT_TRUE(render.waitForFinished(20000));
  const QImage expected = QImage(folder.filePath("a.png")).convertToFormat(QImage::Format_RGB32);
  ASSERT_FALSE(expected.isNull());

  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, QStringList{example("co2.csv")} + choice);
  const WId window = wait_for_window("co2.csv");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return plot_shot(window, expected.size()) == expected; }, 10000));
}

TEST(ProgramWindow, AFileThatCannotBeReadIsSaidAndTheOtherOpens) {
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, {"no_such_file.csv", example("co2.csv")});
  const WId window = wait_for_window("co2.csv");
  close_window(window);
  EXPECT_TRUE(kurv.waitForFinished(10000));
  EXPECT_EQ(kurv.exitCode(), 1);
  EXPECT_EQ(kurv.readAllStandardError(),
            "kurv: no_such_file.csv cannot be read: No such file or directory; check the name.\n");
}

TEST(ProgramWindow, TheSmallestHostShowsAGraph) {
  QProcess host;
  const Ended ended(host);
  host.start(KURV_MINIMAL, QStringList());
  const WId window = wait_for_window("kurv_minimal", "--class");
  EXPECT_TRUE(shows_a_graph(window));
  close_window(window);
  EXPECT_TRUE(host.waitForFinished(10000));
  EXPECT_EQ(host.exitCode(), 0);
}

}  // namespace
}  // namespace kurv::test
