// The toolkit without a desktop.
#pragma once

#include <QGuiApplication>
#include <memory>

namespace kurv::app {

// The desktop of whoever runs the program must not show in a picture, nor be needed for one: no
// display server, no screen settings, and of the toolkit's remarks only what ends the program.
std::unique_ptr<QGuiApplication> windowless_application();

}  // namespace kurv::app
