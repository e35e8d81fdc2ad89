// An application with the plugin in its path, and with none of the user's settings.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  const QTemporaryDir home;
  for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
    qputenv(name, home.path().toLocal8Bit());
  }
  const QApplication application(argc, argv);
  QCoreApplication::addLibraryPath(QStringLiteral(KURV_PLUGIN_PATH));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
