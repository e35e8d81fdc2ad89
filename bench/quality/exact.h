// The exact coverage of a polyline with round joins and caps, by 16 x 16 samples in each pixel. A
// slow reference that shares no code with the raster.
#pragma once

#include "bench/common/shapes.h"

namespace bench {

// 0..255 for each pixel, by rows.
CoverageBytes exact_coverage(const Shape& shape, double width);

}  // namespace bench
