// How much a graph holds, and which values its settings accept. What exceeds a limit is refused or
// cut off, as the member in question says.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// Columns 2 to 150 of the data matrix, of which column 1 is x.
inline constexpr int kMaxCurves = 149;
// Slots 1 to 30 of the function table.
inline constexpr int kMaxFunctions = 30;
// Points of a curve: their count is an Integer.
inline constexpr int kMaxPoints = 32767;

// What the property MarkerSize accepts, twips; any other value is ignored.
inline constexpr Integer kMinMarkerSize = 2;
inline constexpr Integer kMaxMarkerSize = 500;
// What the prompt for the marker size accepts: above zero, up to this. The prompt's text says 300.
// 301 is accepted as well: a smaller maximum would refuse an answer that users can give today.
inline constexpr Double kMaxPromptedMarkerSize = 301;

}  // namespace kurv
