// Adding and editing function curves.
#pragma once

#include <optional>

#include <KurvGraph/values.h>

namespace kurv {

struct ControlState;

// Asks the user for an expression of x, adds it as a visible curve and redraws, or says why not.
// The expression is checked by an evaluator that is created for this command.
void add_function(ControlState& state);

// The same for an expression that is known already. Returns nothing when it has been added, and
// otherwise the message for the user; then nothing has changed.
std::optional<String> add_function(ControlState& state, const String& expression);

// Why the text cannot be a function curve, as a sentence for the user, or nothing where it can. An
// evaluator that is created for this call checks it.
std::optional<String> check_function(const String& expression);

// Asks for another expression in place of the selected one, makes it visible and redraws. Does
// nothing where there is no function or none of this very text. The library's own evaluator checks
// the expression.
//
// With nothing selected, `selected` is the empty text, which is found in the first free slot. The
// expression that is entered then is stored there, but not counted, hence not drawn, and the next
// function that is added overwrites it. An empty selection is accepted because hosts call this
// without one.
void edit_function(ControlState& state, const String& selected);

}  // namespace kurv
