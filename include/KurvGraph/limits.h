// How much a graph holds, and what its settings take. Whoever asks for more is refused or cut, as
// the member in question says.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// Columns 2 to 150 of the data matrix, of which column 1 is x.
inline constexpr int kMaxCurves = 149;
// Slots 1 to 30 of the function table.
inline constexpr int kMaxFunctions = 30;
// Points of a curve: their count is an Integer.
inline constexpr int kMaxPoints = 32767;

// What the property MarkerSize takes, twips; anything else is ignored.
inline constexpr Integer kMinMarkerSize = 2;
inline constexpr Integer kMaxMarkerSize = 500;
// What the prompt for the marker size takes: above zero, up to this. It says 300 to the user and
// takes 301 as well; deliberate, because hosts and users rely on the range that is taken.
inline constexpr Double kMaxPromptedMarkerSize = 301;

}  // namespace kurv
