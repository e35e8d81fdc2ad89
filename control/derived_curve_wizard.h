// The two prompts that add a derived curve, and the same without prompts.
#pragma once

#include <optional>

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Asks for a name and then for an expression over the names of x and the curves, each until it is
// accepted, and appends the curve. An empty answer cancels both prompts, and nothing has changed.
void add_derived_curve(ControlState& state);

// The same with both answers known. Returns nothing when the curve has been appended, and otherwise
// the message for the user; then nothing has changed. Throws what append_derived_curve()
// does.
std::optional<String> derive(ControlState& state, const String& name, const String& expression);

}  // namespace kurv
