// The switches for exact limits of the axes, and Restore_Grf().
#pragma once

#include <KurvGraph/values.h>

namespace kurv {
struct ControlState;
}

namespace kurv::basKurvGraph01 {

// Restores the default marker size and margins, computes the limits from the data and redraws.
void Restore_Grf(ControlState& state);

// Store the flag, compute the limits and redraw.
void set_XLimitsExact(ControlState& state, Boolean exact);
void set_YLimitsExact(ControlState& state, Boolean exact);

}  // namespace kurv::basKurvGraph01
