#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  // Windows come and go, and the last one of a test does not end the tests.
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
