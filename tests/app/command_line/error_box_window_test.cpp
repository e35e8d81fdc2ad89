// Errors of the program in a window where nobody reads its standard error, on a real screen.
#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class ErrorBoxes : public testing::Test {
 protected:
  ErrorBoxes() {
    for (const char* name :
         {"GIO_LAUNCHED_DESKTOP_FILE_PID", "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
      m_environment.remove(name);
    }
  }
  ~ErrorBoxes() override {
    if (m_process.state() == QProcess::NotRunning) return;
    m_process.kill();
    m_process.waitForFinished();
  }

  QString written(const QString& name, const QByteArray& bytes) const {
    QFile file(m_folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return file.fileName();
  }
  QString missing() const { return m_folder.filePath("missing.csv"); }

  // As a file manager does it.
  void start_unread(const QStringList& arguments) {
    m_process.setProcessEnvironment(m_environment);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(KURV_PROGRAM, arguments);
    ASSERT_TRUE(m_process.waitForStarted());
  }

  static QByteArray run_tool(const char* tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    process.waitForFinished(10000);
    return process.readAllStandardOutput();
  }

  // Of its visible windows with this title.
  int windows(const char* title) const {
    const QByteArray found =
        run_tool("xdotool", {"search", "--all", "--onlyvisible", "--pid",
                             QString::number(m_process.processId()), "--name", title});
    return static_cast<int>(found.count('\n'));
  }
  bool shows(const char* title, int count) const {
    QElapsedTimer clock;
    clock.start();
    while (windows(title) != count) {
      if (clock.elapsed() > 20000 || m_process.state() == QProcess::NotRunning) return false;
      QThread::msleep(100);
    }
    return true;
  }

  // Until something comes of it, because a window may have no focus yet when it is visible. Where
  // the key closes the window at once, xdotool fails and leaves the key pressed, which would repeat
  // itself in the next window.
  template <class Done>
  static bool press(const char* title, const char* key, const Done& done) {
    for (int i = 0; i < 50; ++i) {
      run_tool("xdotool", {"search", "--onlyvisible", "--name", title, "windowactivate", "--sync",
                           "key", key});
      run_tool("xdotool", {"keyup", key});
      if (done()) return true;
    }
    return false;
  }

  // Waits for the box, answers it, and returns the exit status.
  int status_after_box() {
    if (!shows("^kurv$", 1)) return -1;
    const bool ends = press("^kurv$", "Return", [&] { return m_process.waitForFinished(500); });
    return ends ? m_process.exitCode() : -1;
  }

  QTemporaryDir m_folder;
  QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
  QProcess m_process;
};

TEST_F(ErrorBoxes, SayWhatIsWrongWithTheOnlyFile) {
  start_unread({missing()});
  EXPECT_EQ(status_after_box(), 1);
}

TEST_F(ErrorBoxes, SayWhatIsWrongWithTheCommandLine) {
  start_unread({"--nonsense", missing()});
  EXPECT_EQ(status_after_box(), 2);
}

TEST_F(ErrorBoxes, AreOneForAllFilesThatAreLeftOut) {
  const QString good = written("good.csv", "x,y\n1,2\n2,3\n");
  start_unread({missing(), good, m_folder.filePath("gone.gdf")});
  EXPECT_TRUE(shows("good.csv", 1));
  EXPECT_TRUE(shows("^kurv$", 1));
  EXPECT_TRUE(press("^kurv$", "Return", [&] { return windows("^kurv$") == 0; }));
  EXPECT_TRUE(shows("good.csv", 1)) << "the window stays";
  ASSERT_TRUE(press("good.csv", "ctrl+q", [&] { return m_process.waitForFinished(500); }));
  EXPECT_EQ(m_process.exitCode(), 1);
}

TEST_F(ErrorBoxes, ComeWhereADesktopWritesToAFile) {
  m_environment.insert("DESKTOP_STARTUP_ID", "files-1_TIME0");
  m_process.setProcessEnvironment(m_environment);
  m_process.setStandardInputFile(QProcess::nullDevice());
  m_process.setStandardOutputFile(QProcess::nullDevice());
  m_process.setStandardErrorFile(m_folder.filePath("session-errors"));
  m_process.start(KURV_PROGRAM, {missing()});
  EXPECT_EQ(status_after_box(), 1);
  QFile errors(m_folder.filePath("session-errors"));
  ASSERT_TRUE(errors.open(QIODevice::ReadOnly));
  EXPECT_THAT(errors.readAll().toStdString(), HasSubstr("missing.csv"));
}

TEST_F(ErrorBoxes, NeverKeepAScriptWaiting) {
  m_environment.insert("DESKTOP_STARTUP_ID", "files-1_TIME0");
  m_process.setProcessEnvironment(m_environment);
  m_process.start(KURV_PROGRAM, {missing()});
  ASSERT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(m_process.exitCode(), 1);
  EXPECT_THAT(m_process.readAllStandardError().toStdString(), HasSubstr("missing.csv"));
}

TEST_F(ErrorBoxes, NeverComeForOtherCommands) {
  const QString file = missing();
  for (const QStringList& arguments :
       {QStringList{"render", file, "-o", "a.png"}, QStringList{"convert", file, "-o", "a.gdf"},
        QStringList{"info", file}, QStringList{"eval", "1+"}, QStringList{"host", "--nonsense"},
        QStringList{"render", "--nonsense"}}) {
    start_unread(arguments);
    EXPECT_TRUE(m_process.waitForFinished(20000)) << arguments.join(' ').toStdString();
    EXPECT_NE(m_process.exitCode(), 0) << arguments.join(' ').toStdString();
  }
}

TEST_F(ErrorBoxes, NeverComeWithoutAScreen) {
  m_environment.insert("QT_QPA_PLATFORM", "offscreen");
  start_unread({missing()});
  EXPECT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(m_process.exitCode(), 1);
  m_environment.insert("QT_QPA_PLATFORM", "xcb");
  m_environment.insert("DISPLAY", ":99999");
  start_unread({"--nonsense"});
  EXPECT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(m_process.exitCode(), 2);
}

TEST_F(ErrorBoxes, LeaveATableThatCannotBeDrawnToTheImportWindow) {
  start_unread({written("words.csv", "t;v\n1;fast\n2;slow\n")});
  EXPECT_TRUE(shows("^Import words.csv$", 1));
  EXPECT_TRUE(shows("^kurv$", 1)) << "an empty window below it";
}

TEST_F(ErrorBoxes, AreAlsoWhereTheOptionsOfTheFolderHold) {
  m_environment.insert("XDG_CONFIG_HOME", m_folder.filePath("config"));
  QDir(m_folder.path()).mkpath("config/kurv");
  written("config/kurv/kurv.ini",
          "[tables]\nfolders=\"" + m_folder.path().toUtf8() + "?decimal=%2C\"\n");
  const QString table = written("a.csv", "x;y\n1;3.500\n2;4.500\n");
  m_environment.insert("DESKTOP_STARTUP_ID", "files-1_TIME0");
  m_process.setProcessEnvironment(m_environment);
  m_process.setStandardInputFile(QProcess::nullDevice());
  m_process.setStandardOutputFile(QProcess::nullDevice());
  m_process.setStandardErrorFile(m_folder.filePath("errors"));
  m_process.start(KURV_PROGRAM, {table});
  EXPECT_TRUE(shows("a.csv", 1));
  ASSERT_TRUE(press("a.csv", "ctrl+q", [&] { return m_process.waitForFinished(500); }));
  QFile errors(m_folder.filePath("errors"));
  ASSERT_TRUE(errors.open(QIODevice::ReadOnly));
  EXPECT_THAT(errors.readAll().toStdString(),
              HasSubstr("as for the last table of this folder: decimal comma."));
}

}  // namespace
}  // namespace kurv::app
