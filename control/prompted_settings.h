// The settings that are asked for one at a time: marker size, margins, the title of the x axis and
// the fonts.
#pragma once

#include <KurvGraph/control.h>
#include <KurvGraph/values.h>

namespace kurv {

// Asks for the setting, stores an answer that is accepted and redraws. Cancelled, it changes
// nothing and says nothing; a refused answer is told and not asked for again. Numbers are shown and
// read with the control's decimal separator.
void prompt(ControlState& state, PromptedSetting setting);

enum class Margin { kLeft, kRight, kTop, kBottom };

// Whether the plot keeps some room beside a margin of this many twips.
bool accepts_margin(const ControlState& state, Margin margin, Integer twips);

// Stores it, or tells the user that it is not accepted; returns which. Does not redraw.
bool set_margin(ControlState& state, Margin margin, Integer twips);

}  // namespace kurv
