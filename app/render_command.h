// kurv render: a data file becomes a picture file, without a window.
#pragma once

#include <functional>
#include <string>

#include "app/command_line.h"

namespace kurv::app {

// Needs no display server. What was left out of the data is told to `warn` in whole sentences.
// Throws UserError when there is no picture to write, and then the target is as it was.
void render(const RenderRequest& request, const std::function<void(const std::string&)>& warn);

}  // namespace kurv::app
