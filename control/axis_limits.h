// The limits of the axes as hosts and users change them, and the home of everything.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {
struct ControlState;
}

namespace kurv::basKurvGraph01 {

// Default marker size and margins, limits from the data, and a redraw.
void Restore_Grf(ControlState& state);

// Store the flag, compute the limits and redraw.
void set_XLimitsExact(ControlState& state, Boolean exact);
void set_YLimitsExact(ControlState& state, Boolean exact);

}  // namespace kurv::basKurvGraph01
