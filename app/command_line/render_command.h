// kurv render and kurv convert: a file becomes a picture or a graph file, without a window.
#pragma once

#include <functional>
#include <string>

#include "app/command_line/command_line.h"

namespace kurv::app {

// Both need no display server. What was left out of the data is told to `warn` in whole sentences.
using Warn = std::function<void(const std::string&)>;

// Throws UserError when there is no picture to write, and then the target is as it was.
void render(const RenderRequest& request, const Warn& warn);

// Throws UserError when there is no graph to write, or it could not be written: the control says
// what the target is then.
void convert(const ConvertRequest& request, const Warn& warn);

}  // namespace kurv::app
