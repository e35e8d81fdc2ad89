// Values under the pointer as text.
#pragma once

#include <KurvGraph/values.h>

#include <string_view>

namespace kurv {

// As the label format of the axis writes it, with more decimals where two values that are
// `resolution` apart would have the same text: then as many as tell them apart.
String place_text(Double value, std::string_view pattern, Double resolution);
// The same for a value of the data: with up to two decimals more, where it has them.
String value_text(Double value, std::string_view pattern, Double resolution);

}  // namespace kurv
