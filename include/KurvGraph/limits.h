// How much a graph holds, and which values its settings accept. What exceeds a limit is refused or
// cut off, as the member in question says.
#pragma once

#include <limits>

#include <KurvGraph/values.h>

namespace kurv {

// Columns 2 to kMaxCurves + 1 of the data matrix; column 1 is x.
inline constexpr int kMaxCurves = 149;
// Slots 1 to kMaxFunctions of the function table.
inline constexpr int kMaxFunctions = 30;
// Counts are Integers, those that a graph file claims too.
inline constexpr int kMaxCount = std::numeric_limits<Integer>::max();
inline constexpr int kMaxPoints = kMaxCount;  // of a curve

// What the property MarkerSize accepts, twips; any other value is ignored.
inline constexpr Integer kMinMarkerSize = 2;
inline constexpr Integer kMaxMarkerSize = 500;
// What the prompt for the marker size accepts: above zero, up to this. The prompt's text says 300.
inline constexpr Double kMaxPromptedMarkerSize = 301;

// What the fields of the properties window accept; narrower than the properties themselves.
inline constexpr Double kMinEnteredMarkerSize = 10;  // twips
inline constexpr Double kMaxEnteredMarkerSize = 200;
inline constexpr Double kMinEnteredLineWidth = 1;  // pixels
inline constexpr Double kMaxEnteredLineWidth = 4;
inline constexpr Double kMinEnteredTicks = 5;  // intervals of an axis
inline constexpr Double kMaxEnteredTicks = 100;

// A side of a surface, twips: coordinates stay within sixteen bits. Also a side of a picture,
// pixels.
inline constexpr int kMaxSide = 32767;
// Pixels of a picture: four times an 8K screen.
inline constexpr double kMaxPicturePixels = 4.0 * 7680 * 4320;
// A side of the plot, twips. On a smaller surface the plot extends past it.
inline constexpr int kMinPlotSide = 500;

}  // namespace kurv
