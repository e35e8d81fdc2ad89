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

// Turning round limits on makes both axes inexact; turning them off restores what they have
// replaced. Neither computes nor redraws.
void set_round_limits(ControlState& state, bool on);
// Computes the limits from the data, chooses label formats that the user has not set, and redraws.
void update_limits(ControlState& state);
// Computes round limits once, whether they are on or off, and redraws. Both axes are inexact then.
void round_limits_once(ControlState& state);

}  // namespace kurv::basKurvGraph01
