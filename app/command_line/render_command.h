// kurv render and kurv convert: a file becomes a picture or a graph file, without a window.
#pragma once

#include <functional>
#include <string>

#include "app/command_line/command_line.h"

namespace kurv::app {

// Neither needs a display server. `warn` gets a sentence for everything that was left out.
using Warn = std::function<void(const std::string&)>;

// Throws UserError when there is no picture to write, and then the target is as it was.
void render(const RenderRequest& request, const Warn& warn);

// Throws UserError when there is no graph to write or writing fails; the message of the control
// then says in which state the target is.
void convert(const ConvertRequest& request, const Warn& warn);

}  // namespace kurv::app
