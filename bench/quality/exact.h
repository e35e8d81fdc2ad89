// What a polyline with round joints and ends covers of each pixel, by counting 16 x 16 places in
// it. Slow, and sharing nothing with what it judges.
#pragma once

#include "bench/common/shapes.h"

namespace bench {

// 0..255 for each pixel, by rows.
CoverageBytes exact_coverage(const Shape& shape, double width);

}  // namespace bench
