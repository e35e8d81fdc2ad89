// The icon of the program in title bars and task lists.
#pragma once

#include <QIcon>

namespace kurv::app {

QIcon window_icon();

}  // namespace kurv::app
