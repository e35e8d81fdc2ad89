// The settings that are asked for one at a time: marker size, margins, the title of the x axis and
// the fonts.
#pragma once

#include <KurvGraph/control.h>
#include <KurvGraph/values.h>

namespace kurv {

// Asks for the setting, stores an answer that is accepted and redraws. A cancelled prompt
// changes nothing and shows no message; a refused answer shows a message and does not prompt again.
// Numbers are shown and read with the control's decimal separator.
void prompt(ControlState& state, PromptedSetting setting);

enum class Margin { kLeft, kRight, kTop, kBottom };

// What a change of it is called in the history.
const char* step_name(Margin margin);

// Whether a margin of this many twips leaves some space for the plot.
bool accepts_margin(const ControlState& state, Margin margin, Integer twips);

// Stores the margin and returns true, or shows a message that it is not accepted and returns false.
// Does not redraw.
bool set_margin(ControlState& state, Margin margin, Integer twips);

}  // namespace kurv
