// The commands of the toolbar and of the host's ChartOptions.
#pragma once

#include <string_view>

namespace kurv {

struct ControlState;

// Runs one command by its word, compared exactly; other words do nothing. The container shows the
// hourglass meanwhile. When the command throws, the hourglass stays, so that the host, which
// catches the fault, sees that the command was not completed.
void ChartOptions(ControlState& state, std::string_view command);

}  // namespace kurv
