// The program as its users meet it, for tests: arguments, exit status, standard streams and files.
#pragma once

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <string>

namespace kurv::app {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

class Program : public testing::Test {
 protected:
  Program() {
    // Nothing that the machine running the tests has must decide whether there is a picture.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
      environment.remove(name);
    }
    m_process.setProcessEnvironment(environment);
  }

  QString path(const QString& name) const { return m_folder.filePath(name); }

  QString written(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path(name);
  }

  QByteArray contents(const QString& file_path) const {
    QFile file(file_path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file_path.toStdString();
    return file.readAll();
  }

  QString example(const QString& name) const { return KURV_SOURCE_DIR "/examples/data/" + name; }
  QString small() const { return written("small.csv", "x,y,z\n1,2,5\n2,3,4\n3,5,3\n"); }

  Outcome run(const QStringList& arguments) {
    m_process.start(KURV_PROGRAM, arguments);
    EXPECT_TRUE(m_process.waitForFinished(60000)) << m_process.errorString().toStdString();
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    return {m_process.exitCode(), m_process.readAllStandardOutput().toStdString(),
            m_process.readAllStandardError().toStdString()};
  }

  Outcome render(const QString& data, const QStringList& more = {}) {
    return run(QStringList{"render", data, "-o", path("out.png")} + more);
  }

  QImage rendered(const QString& data, const QStringList& more = {}) {
    const Outcome outcome = render(data, more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return QImage(path("out.png"));
  }

  // One sentence on one line, and no picture.
  void expect_refusal(const Outcome& outcome, int status, const std::string& part) {
    EXPECT_EQ(outcome.status, status);
    EXPECT_THAT(outcome.err, testing::AllOf(testing::StartsWith("kurv: "), testing::HasSubstr(part),
                                            testing::EndsWith(".\n")));
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
    EXPECT_EQ(outcome.out, "");
    EXPECT_FALSE(QFile::exists(path("out.png")));
  }

  QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

  QTemporaryDir m_folder;
  QProcess m_process;
};

}  // namespace kurv::app
