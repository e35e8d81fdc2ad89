// A Qt application without a desktop.
#pragma once

#include <QGuiApplication>
#include <memory>

namespace kurv::app {

// A picture must neither depend on the user's desktop nor need one: the application uses no display
// server and no screen settings, and prints none of Qt's messages but fatal ones.
std::unique_ptr<QGuiApplication> headless_application();

}  // namespace kurv::app
