// What the designer knows about the widget beside its meta-object.
#pragma once

#include <QString>

namespace kurv {

// The XML of a new graph on a form: its size, which texts are not translated, and the summary of
// each property, which the designer shows as its tool tip.
QString form_text();

}  // namespace kurv
