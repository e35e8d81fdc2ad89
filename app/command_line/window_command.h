// kurv FILE...: data files become graphs in windows.
#pragma once

#include <QApplication>
#include <functional>
#include <memory>
#include <string>

#include "app/command_line/command_line.h"
#include "app/window/error_box.h"

namespace kurv::app {

// The application that windows need. Without a display, ends the process with a message.
std::unique_ptr<QApplication> new_window_application();

// Shows a window for each file, or an empty one where there is none, and returns when the user has
// closed the last of them. `say` gets a sentence for everything that was left out, and one for each
// file that cannot be shown; the latter are in the box as well, which is shown over the windows.
// Returns the exit status: 0 when every file had a window. Throws UserError when none has; the box
// then has the errors before that one.
int open_windows(const WindowRequest& request, const std::function<void(const std::string&)>& say,
                 ErrorBox& box);

}  // namespace kurv::app
