// The graph in words, for screen readers.
#pragma once

#include <QString>

#include "model/graph_document.h"

namespace kurv {

// The title, or "Graph" where there is none.
QString name_of(const GraphDocument& document);
// "3 curves, 741 points, x 1958 to 2020, y 310 to 420": the curves that are drawn, functions among
// them, the points that each scatter curve has, and the limits of the axes to six digits. "empty
// graph" where nothing is drawn.
QString description_of(const GraphDocument& document);

}  // namespace kurv
