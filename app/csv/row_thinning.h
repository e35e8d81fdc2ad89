// A table with more rows than a graph can hold as one that looks the same.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

namespace kurv::app {

struct ThinnedRows {
  // At most kMaxPoints points.
  Matrix<Double> values;
  // The values of a point are from several rows near each other.
  bool are_mixed = false;
};

// Column 1 is x, the others are curves, and NaN is a missing value.
//
// Where x ascends or descends, pixel columns are stretches of x. Rows are chosen so that each curve
// keeps its extremes in every stretch of a 2048th of x, or a 1024th where those are too many rows.
// A stretch without values stays a gap where it is wider than an 8192nd of x; in a narrower one, a
// row that is chosen has the nearest value of the curve. Where no such rows are few enough, because
// several curves have their extremes in different rows, each of 8191 buckets of equal width has
// four points with the first, the least, the largest and the last value of each curve in their
// order.
//
// Where x goes back and forth, the same is done along the rows, x is treated as one of the curves,
// and half of the rows are evenly spaced, so that a cloud of points stays as dense inside as it is
// at its edge. All points are rows of the table.
ThinnedRows thinned(const Matrix<Double>& values);

}  // namespace kurv::app
