/// @file
/// How much a graph holds, and which values its settings accept. What exceeds a limit is refused or
/// cut off, as the member in question says.
#pragma once

#include <limits>

#include <KurvGraph/values.h>

namespace kurv {

/// Scatter curves of a graph: columns 2 to kMaxCurves + 1 of the data matrix; column 1 is x.
inline constexpr int kMaxCurves = 149;
/// Function curves of a graph: slots 1 to kMaxFunctions of the function table.
inline constexpr int kMaxFunctions = 30;
/// The largest count: counts are Integers, those that a graph file claims too.
inline constexpr int kMaxCount = std::numeric_limits<Integer>::max();
inline constexpr int kMaxPoints = kMaxCount;  ///< points of a curve

/// The smallest value that the property MarkerSize accepts, twips; a smaller one is ignored.
inline constexpr Integer kMinMarkerSize = 2;
/// The largest value that the property MarkerSize accepts, twips; a larger one is ignored.
inline constexpr Integer kMaxMarkerSize = 500;
/// What the prompt for the marker size accepts, twips: above zero, up to this. The prompt's text
/// says 300.
inline constexpr Double kMaxPromptedMarkerSize = 301;

/// @name Fields of the properties window
/// What they accept; narrower than the properties themselves.
/// @{

inline constexpr Double kMinEnteredMarkerSize = 10;   ///< the smallest marker size, twips
inline constexpr Double kMaxEnteredMarkerSize = 200;  ///< the largest marker size, twips
inline constexpr Double kMinEnteredLineWidth = 1;     ///< the narrowest line, pixels
inline constexpr Double kMaxEnteredLineWidth = 4;     ///< the widest line, pixels
inline constexpr Double kMinEnteredTicks = 5;         ///< the fewest tick intervals of an axis
inline constexpr Double kMaxEnteredTicks = 100;       ///< the most tick intervals of an axis

/// @}

/// A side of a surface, twips: coordinates stay within sixteen bits. Also a side of a picture,
/// pixels.
inline constexpr int kMaxSide = 32767;
/// Pixels of a picture: four times an 8K screen.
inline constexpr double kMaxPicturePixels = 4.0 * 7680 * 4320;
/// A side of the plot, twips. On a smaller surface the plot extends past it.
inline constexpr int kMinPlotSide = 500;

}  // namespace kurv
