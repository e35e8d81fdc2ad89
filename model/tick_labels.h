// Number formats whose labels show the ticks of an axis without rounding.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// The value of tick 0..ticks, as the axis draws it.
Double tick_value(Double min, Double max, int ticks, int tick);

// Whether an axis with these limits has an exponent in its labels: all ticks are below 0.001, or
// the largest has more than seven digits.
bool needs_exponent(Double min, Double max);

// The pattern with the fewest digits that shows all ticks exactly, with groups of thousands from
// 10,000 on, so that years have none. Where the limits have more digits than labels can have, the
// ticks are shown to a hundredth of their distance.
String exact_label_format(Double min, Double max, int ticks);

}  // namespace kurv
