// Windows that fit the available part of their screens, with their frames.
#pragma once

#include <QSize>
#include <QWidget>

namespace kurv {

// To be called before the window is shown: where it is too large for its screen when it is shown,
// it becomes as large as fits, and is moved where it extends beyond the screen. The size of the
// frame is known only when the window manager has put it around the window; the window is fitted
// again then. After that its size is the user's. A window of a fixed size keeps it.
void fit_to_screen(QWidget& window);

// Resizes the window to `wanted`, or as close to it as its screen allows. A visible window is moved
// where it would extend beyond the screen. Leaves a maximised window and one in full screen alone.
void resize_on_screen(QWidget& window, QSize wanted);

}  // namespace kurv
