// The window system's own tools: a real mouse, a real keyboard, another program's clipboard.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTest>

namespace kurv::test {

// Runs a tool while the windows live on; what it has printed.
inline QByteArray run_tool(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 10000));
  EXPECT_EQ(process.exitCode(), 0)
      << program.toStdString() << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

}  // namespace kurv::test
