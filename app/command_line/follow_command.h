// kurv --follow FILE: a window whose graph grows with its table.
#pragma once

#include <functional>
#include <string>

#include "app/command_line/command_line.h"

namespace kurv::app {

// Shows a window and returns when the user has closed it and all others, or when the process gets
// SIGINT or SIGTERM, which close them without a question. `say` gets warnings and errors. Returns
// the exit status: 0 also after a signal, but not where something that came could not be read or
// drawn. Throws UserError where the file cannot be followed at all.
int follow(const FollowRequest& request, const std::function<void(const std::string&)>& say);

}  // namespace kurv::app
