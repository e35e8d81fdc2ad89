// Merges the rows of each bucket into four points.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include "app/csv/row_positions.h"

namespace kurv::app {

// At most `points` points: of each of points / 4 buckets of equal width, the first, the least, the
// largest and the last value of each curve, in the order in which the curve has them, at x of four
// rows of the bucket. A bucket of up to four rows keeps them as they are. The positions are x.
Matrix<Double> mixed_rows(const Matrix<Double>& values, const RowPositions& at, int points);

}  // namespace kurv::app
