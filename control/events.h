// The control's one event.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Tells the container, then the late-bound listeners in the order in which they came.
void raise_MouseUp(ControlState& state, Integer Button, Integer Shift, Single x, Single Y);

}  // namespace kurv
