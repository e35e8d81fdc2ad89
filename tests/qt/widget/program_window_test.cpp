// Programs with windows, as their users see them.
#include <gmock/gmock.h>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QProcessEnvironment>
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

// A picture of the whole screen, for whoever reads a failure.
std::string screen_saved() {
  const QString path =
      QDir::tempPath() + QString("/kurv_screen_%1.png").arg(QCoreApplication::applicationPid());
  QGuiApplication::primaryScreen()->grabWindow(0).save(path);
  return "what the screen shows is in " + path.toStdString();
}

WId wait_for_window(const QString& text, const QString& what = "--name") {
  WId id = 0;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (id = visible_window(text, what)) != 0; }, 20000))
      << text.toStdString() << ": " << screen_saved();
  return id;
}

// As the window's close button does.
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

// Until the window shows more than one plain surface.
bool shows_a_graph(WId id) {
  return QTest::qWaitFor([&] { return colours_of(id) > 5; }, 10000);
}

struct Ended {
  // The program keeps its list of recent files in a folder of the test.
  explicit Ended(QProcess& running) : process(running) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", settings.path());
    process.setProcessEnvironment(environment);
  }
  ~Ended() {
    process.kill();
    process.waitForFinished();
  }
  QTemporaryDir settings;
  QProcess& process;
};

QString title(const char* file) {
  return QString(file) + QStringLiteral(" .*kurv");
}

// The rectangle of the picture in a window, without menus and bars.
bool shows(WId id, const QImage& picture) {
  const QImage shot = QGuiApplication::primaryScreen()->grabWindow(id).toImage().convertToFormat(
      QImage::Format_RGB32);
  for (int top = 0; top + picture.height() <= shot.height(); ++top) {
    if (shot.copy(QRect(QPoint(0, top), picture.size())) == picture) return true;
  }
  return false;
}

void keys(const QStringList& names) {
  output_of("xdotool", QStringList("key") + names);
  QTest::qWait(300);
}

void type(const QString& text) {
  output_of("xdotool", {"type", text});
  QTest::qWait(300);
}

// The first Return may go to the list of names that the dialog offers.
void answer_file_dialog(WId dialog, const QString& path) {
  type(path);
  const auto is_closed = [dialog] {
    const QByteArray shown = output_of("xdotool", {"search", "--onlyvisible", "--name", ""});
    return !shown.split('\n').contains(QByteArray::number(dialog));
  };
  keys({"Return"});
  if (!QTest::qWaitFor(is_closed, 2000)) keys({"Return"});
}

// Also where it has ended already.
bool has_ended(const QProcess& process) {
  return QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 10000);
}

void activate(WId id) {
  output_of("xdotool", {"windowactivate", "--sync", QString::number(id)});
  QTest::qWait(300);
}

QString example(const char* name) {
  return QString(KURV_SOURCE_DIR "/examples/data/") + name;
}

TEST(ProgramWindow, TwoFilesOpenTwoWindows) {
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, {example("co2.csv"), example("penguins.csv"), "--size", "500x300"});
  const WId first = wait_for_window(title("co2.csv"));
  const WId second = wait_for_window(title("penguins.csv"));
  EXPECT_NE(first, second);
  EXPECT_TRUE(shows_a_graph(first));
  EXPECT_TRUE(shows_a_graph(second));
  close_window(first);
  EXPECT_TRUE(
      QTest::qWaitFor([] { return visible_window(title("co2.csv"), "--name") == 0; }, 10000));
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
  const WId window = wait_for_window(title("co2.csv"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(window, expected); }, 10000)) << screen_saved();
}

TEST(ProgramWindow, AFileThatCannotBeReadIsSaidAndTheOtherOpens) {
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, {"no_such_file.csv", example("co2.csv")});
  const WId window = wait_for_window(title("co2.csv"));
  close_window(window);
  EXPECT_TRUE(kurv.waitForFinished(10000));
  EXPECT_EQ(kurv.exitCode(), 1);
  EXPECT_EQ(kurv.readAllStandardError(),
            "kurv: no_such_file.csv cannot be read: No such file or directory; check the name.\n");
}

TEST(ProgramWindow, WithoutAFileItBeginsEmptyAndImportsATable) {
  QTemporaryDir folder;
  const QString table = folder.filePath("a.csv");
  QFile file(table);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("t,up,down\n1,2,9\n2,4,6\n3,8,4\n");
  file.close();
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, QStringList());
  const WId window = wait_for_window("kurv");
  activate(window);
  keys({"ctrl+o"});
  const WId dialog = wait_for_window("Open");
  activate(dialog);
  answer_file_dialog(dialog, table);
  activate(wait_for_window("Import a.csv"));
  keys({"Return"});
  EXPECT_EQ(wait_for_window(title("a.csv")), window);
  EXPECT_TRUE(shows_a_graph(window));
  keys({"ctrl+q"});
  EXPECT_TRUE(has_ended(kurv)) << "nothing was changed, so nothing is asked";
  EXPECT_EQ(kurv.exitCode(), 0);
}

TEST(ProgramWindow, SavesByKeysAndIsFoundSavedAfterwards) {
  QTemporaryDir folder;
  QProcess kurv;
  const Ended ended(kurv);
  kurv.start(KURV_PROGRAM, {example("co2.csv"), "--size", "500x300"});
  const WId before = wait_for_window(title("co2.csv"));
  activate(before);
  keys({"ctrl+s"});
  const WId dialog = wait_for_window("Save As");
  activate(dialog);
  answer_file_dialog(dialog, folder.filePath("kept"));
  const WId window = wait_for_window(title("kept.gdf"));
  EXPECT_TRUE(QFile::exists(folder.filePath("kept.gdf")));
  close_window(window);
  EXPECT_TRUE(has_ended(kurv));
  EXPECT_EQ(kurv.exitCode(), 0);
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
