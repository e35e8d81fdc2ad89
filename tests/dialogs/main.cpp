#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  // Unless the platform is set, to see them.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  // Windows come and go, and the last one of a test does not end the tests.
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
