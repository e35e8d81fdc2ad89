// The commands behind the toolbar and the host's ChartOptions.
#pragma once

#include <string_view>

namespace kurv {

struct ControlState;

// Runs one command by its word, compared exactly; other words do nothing. The container shows the
// hourglass meanwhile, and keeps it when the command fails: deliberate, for the host to see.
void ChartOptions(ControlState& state, std::string_view command);

}  // namespace kurv
