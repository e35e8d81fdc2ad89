// What zooming has changed in the graph.
#pragma once

#include <KurvGraph/values.h>

#include "model/graph_document.h"

namespace kurv {

// What "Show All" restores.
struct ZoomState {
  // Whether the members below are those of before the first zoom. Where Autoscale is on again the
  // graph is not zoomed any more, see is_zoomed().
  bool is_on = false;
  Double xmin = 0;
  Double xmax = 0;
  Double ymin = 0;
  Double ymax = 0;
  Boolean Autoscale;
  // The limits were those of the data. They are computed anew then, because the data or the visible
  // curves may be others by now.
  bool followed_data = false;
  // Formats that show the ticks of the zoomed axes.
  FittedSetting<String> x_format;
  FittedSetting<String> y_format;

  friend bool operator==(const ZoomState&, const ZoomState&) = default;
};

}  // namespace kurv
