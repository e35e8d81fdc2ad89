// Tables that go on growing, as their writers and the terminal meet the program.
#include <QElapsedTimer>
#include <QThread>
#include <csignal>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

class Follow : public Program {
 protected:
  Follow() {
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_CONFIG_HOME", m_folder.path());
    m_process.setProcessEnvironment(environment);
  }

  void start(const QStringList& arguments) {
    m_process.start(KURV_PROGRAM, QStringList{"--follow"} + arguments);
    ASSERT_TRUE(m_process.waitForStarted());
  }

  void write(const QByteArray& bytes) {
    m_process.write(bytes);
    EXPECT_TRUE(m_process.waitForBytesWritten(10000));
  }

  // Whether standard error has the text within some seconds.
  bool says(const char* text) {
    for (int i = 0; i < 200 && !m_said.contains(text); ++i) {
      m_process.waitForReadyRead(50);
      m_said += m_process.readAllStandardError();
    }
    return m_said.contains(text);
  }

  // The window has been shown and the handlers of signals are there once a warning has come.
  void start_and_wait() {
    start({"-"});
    write("t,up,word\n1,10,a\n2,20,b\n");
    for (int i = 3; i < 150; ++i) write(QByteArray::number(i) + ",1,c\n");
    EXPECT_TRUE(says("\"word\""));
  }

  int end_by(int signal) {
    ::kill(static_cast<pid_t>(m_process.processId()), signal);
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    m_said += m_process.readAllStandardError();
    return m_process.exitCode();
  }

  QByteArray m_said;
};

TEST_F(Follow, SignalsEndItCleanlyWhileRowsCome) {
  for (const int signal : {SIGINT, SIGTERM}) {
    m_said.clear();
    start_and_wait();
    EXPECT_EQ(end_by(signal), 0);
    EXPECT_EQ(m_said.count("kurv:"), 1) << m_said.toStdString();
  }
}

TEST_F(Follow, TheWindowStaysWhenTheInputEnds) {
  start_and_wait();
  m_process.closeWriteChannel();
  EXPECT_FALSE(m_process.waitForFinished(500));
  EXPECT_EQ(end_by(SIGINT), 0);
}

TEST_F(Follow, AnInputThatEndsWithoutATableIsAnError) {
  start({"-"});
  write("t,up\n1,2\n");
  m_process.closeWriteChannel();
  EXPECT_TRUE(says("it has one row of data"));
  EXPECT_EQ(end_by(SIGTERM), 1);
}

TEST_F(Follow, BytesThatAreNoTextAreAnError) {
  start({"-"});
  write(QByteArray("\x7F\x45\x4C\x46\0\0\0\0", 8) + QByteArray(100, '\0'));
  EXPECT_TRUE(says("standard input is no text"));
  EXPECT_EQ(end_by(SIGTERM), 1);
}

TEST_F(Follow, AWriterGetsToKnowThatNobodyReads) {
  // The shell prints the status of the writer, which goes on until it cannot write.
  m_process.start("bash", {"-c", QString("{ i=0; while [ $i -lt 100000000 ]; do i=$((i+1)); "
                                         "echo $i,$i || break; done; echo ended >&2; } | " +
                                         QString(KURV_PROGRAM) +
                                         " --follow - & wait $!; s=$?; wait; exit $s")});
  ASSERT_TRUE(m_process.waitForStarted());
  EXPECT_TRUE(says("newest are kept"));
  QProcess find;
  find.start("pgrep", {"-P", QString::number(m_process.processId()), "-x", "kurv"});
  ASSERT_TRUE(find.waitForFinished());
  const int program = find.readAllStandardOutput().trimmed().toInt();
  ASSERT_GT(program, 0);
  ::kill(program, SIGTERM);
  EXPECT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(m_process.exitCode(), 0);
}

TEST_F(Follow, OnlyOneTableInAWindowCanBeFollowed) {
  const auto refusal = [this](const QStringList& arguments) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 2) << outcome.err;
    return outcome.err;
  };
  EXPECT_THAT(refusal({"--follow"}), HasSubstr("--follow needs a file"));
  EXPECT_THAT(refusal({"--follow", small(), small()}), HasSubstr("takes one file"));
  EXPECT_THAT(refusal({"--follow", example("co2.gdf")}), HasSubstr("is a graph file"));
  for (const char* command : {"render", "convert"}) {
    EXPECT_THAT(refusal({command, "--follow", small(), "-o", path("out.gdf")}),
                HasSubstr("leave out \"" + std::string(command)));
  }
  EXPECT_THAT(refusal({"info", "--follow", small()}), HasSubstr("leave out \"info"));
  EXPECT_THAT(refusal({"--follow", "info", small()}), HasSubstr("leave out \"info"));
}

TEST_F(Follow, AFileThatIsNotThereIsAnError) {
  const Outcome outcome = run({"--follow", path("none.csv")});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("none.csv cannot be read"));
}

}  // namespace
}  // namespace kurv::app
