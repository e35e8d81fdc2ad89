// Raises MouseUp, the control's only event.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Notifies the container, then the listeners in the order in which they were added.
void raise_MouseUp(ControlState& state, Integer Button, Integer Shift, Single x, Single Y);

}  // namespace kurv
