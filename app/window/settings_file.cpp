#include "app/window/settings_file.h"

#include <QStandardPaths>

namespace kurv::app {

QString settings_file() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/kurv/kurv.ini");
}

}  // namespace kurv::app
