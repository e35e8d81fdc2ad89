// Adding and editing function curves.
#pragma once

#include <optional>

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Asks the user for an expression of x, adds it as a visible curve and redraws, or says why not.
// An evaluator of its own, which lives no longer than the command, judges the expression.
void add_function(ControlState& state);

// The same for an expression that is known already. Returns nothing when it has been added, and
// otherwise the sentence that a user is told; then nothing has changed.
std::optional<String> add_function(ControlState& state, const String& expression);

// Asks for another expression in place of the selected one, makes it visible and redraws. Does
// nothing where there is no function or none of this very text. The library's own evaluator judges
// the expression.
//
// Deliberate: nothing selected is the empty text, which is that of the first free slot. What is
// entered then is kept there, but not counted, hence not drawn, and the next function that is added
// takes its place.
void edit_function(ControlState& state, const String& selected);

}  // namespace kurv
