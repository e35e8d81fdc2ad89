#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // Closing the last window of a test must not quit the application.
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
