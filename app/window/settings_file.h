// The file of the settings of `kurv`.
#pragma once

#include <QString>

namespace kurv::app {

// In the user's folder for settings. It has the recent files, the options of tables and exports,
// and where windows were.
QString settings_file();

}  // namespace kurv::app
