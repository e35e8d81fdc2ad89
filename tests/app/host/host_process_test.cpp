// The control on a pipe as other processes meet it.
#include <QDir>

#include "tests/app/command_line/program_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class HostProcess : public Program {
 protected:
  // One line in, and the line that comes back before anything else is sent.
  std::string ask(const QByteArray& line) {
    m_process.write(line + '\n');
    while (!m_process.canReadLine()) {
      if (!m_process.waitForReadyRead(20000)) return "no answer";
    }
    return m_process.readLine().trimmed().toStdString();
  }

  int finish() {
    m_process.closeWriteChannel();
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    return m_process.exitCode();
  }

  static QByteArray quoted(const QString& text) { return '"' + text.toUtf8() + '"'; }

  void run_script(const char* interpreter, const char* script) {
    m_process.setWorkingDirectory(m_folder.path());
    m_process.start(interpreter,
                    {KURV_SOURCE_DIR "/examples/pipe/" + QString(script), KURV_PROGRAM});
    EXPECT_TRUE(m_process.waitForFinished(60000));
    EXPECT_EQ(m_process.exitCode(), 0) << m_process.readAllStandardError().toStdString();
  }
};

TEST_F(HostProcess, AnswersEachLineBeforeTheNextOneIsSent) {
  m_process.start(KURV_PROGRAM, {"host"});
  EXPECT_EQ(ask(R"({"get":"NumTicks","id":1})"), R"({"id":1,"ok":true,"result":10})");
  EXPECT_THAT(ask("this is no request"), HasSubstr("\"number\":5"));
  EXPECT_THAT(ask("\xFF\xFE{"), HasSubstr("\"ok\":false"));
  EXPECT_EQ(ask(R"({"set":"Title","to":"still here","id":2})"), R"({"id":2,"ok":true})");
  EXPECT_THAT(ask(R"({"get":"nonsense"})"), HasSubstr("\"number\":438"));
  EXPECT_EQ(ask(R"({"get":"Title"})"), R"({"ok":true,"result":"still here"})");
  EXPECT_EQ(finish(), 0);
  EXPECT_EQ(m_process.readAllStandardOutput(), "");
  EXPECT_EQ(m_process.readAllStandardError(), "");
}

TEST_F(HostProcess, ManyLinesAtOnceAreAnsweredInTheirOrder) {
  m_process.start(KURV_PROGRAM, {"host"});
  QByteArray expected;
  for (int i = 0; i < 200; ++i) {
    const QByteArray id = QByteArray::number(i);
    m_process.write("{\"get\":\"NumTicks\",\"id\":" + id + "}\n");
    expected += "{\"id\":" + id + ",\"ok\":true,\"result\":10}\n";
  }
  EXPECT_EQ(finish(), 0);
  EXPECT_EQ(m_process.readAllStandardOutput(), expected);
}

TEST_F(HostProcess, ALastLineWithoutItsEndIsAnswered) {
  m_process.start(KURV_PROGRAM, {"host"});
  m_process.write(R"({"get":"NumTicks"})");
  EXPECT_EQ(finish(), 0);
  EXPECT_THAT(m_process.readAllStandardOutput().toStdString(), StartsWith("{\"ok\":true"));
}

TEST_F(HostProcess, ASaveThatFailsAtTheEndOfTheInputNamesItsFile) {
  const QByteArray load =
      R"({"call":"scatter_graph","args":[[[1,4,9],[3,2,1]],[1,2,3],3,2,"Squares",)"
      R"("x",["a","b"],0,[],true]})";
  const QByteArray ask_to_save = R"({"set":"QueryForSave","to":true})";
  const QByteArray chosen = quoted(path("gone/chosen.gdf"));

  m_process.start(KURV_PROGRAM, {"host"});
  for (const QByteArray& line :
       {load, ask_to_save, R"({"answers":["yes",{"path":)" + chosen + "}]}"}) {
    ask(line);
  }
  EXPECT_EQ(finish(), 1);
  EXPECT_EQ(m_process.readAllStandardError().toStdString(),
            "kurv: " + path("gone/chosen.gdf").toStdString() +
                " cannot be written: there is no such folder; choose another folder.\n");

  // A graph that has a file is saved there without a dialog.
  const QString own = path("folder/own.gdf");
  ASSERT_TRUE(QDir(m_folder.path()).mkdir("folder"));
  m_process.start(KURV_PROGRAM, {"host"});
  for (const QByteArray& line :
       {load, ask_to_save, R"({"answers":[{"path":)" + quoted(own) + "}]}",
        QByteArray(R"({"call":"Save_graph"})"), QByteArray(R"({"call":"build_the_graph"})"),
        QByteArray(R"({"answers":["yes"]})")}) {
    ask(line);
  }
  ASSERT_TRUE(QDir(path("folder")).removeRecursively());
  EXPECT_EQ(finish(), 1);
  EXPECT_EQ(m_process.readAllStandardError().toStdString(),
            "kurv: " + own.toStdString() +
                " cannot be written: there is no such folder; choose another folder.\n");
}

TEST_F(HostProcess, ThePythonExampleLeavesAPictureAndAGraph) {
  run_script(KURV_PYTHON, "graph.py");
  EXPECT_FALSE(QImage(path("waves.png")).isNull());
  EXPECT_TRUE(contents(path("waves.gdf")).startsWith("QXPLOT/V500//"));
  EXPECT_EQ(run({"info", "--check", path("waves.gdf")}).status, 0);
}

TEST_F(HostProcess, TheShellExampleLeavesAPicture) {
  run_script("/bin/sh", "graph.sh");
  EXPECT_FALSE(QImage(path("squares.png")).isNull());
}

}  // namespace
}  // namespace kurv::app
