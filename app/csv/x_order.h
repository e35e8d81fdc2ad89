// The order in which the rows of a table have their values of x.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

namespace kurv::app {

enum class XOrder { kConstant, kAscending, kDescending, kUnsorted };

// Values that are equal are in any order, and rows without x do not count.
XOrder x_order(const Column<const Double>& x);

// Sorts the rows by column 1. Those with the same x stay in their order; those without x are last.
void sort_by_x(Matrix<Double>& values);

}  // namespace kurv::app
