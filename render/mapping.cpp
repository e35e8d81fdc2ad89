#include "render/mapping.h"

namespace kurv {

PlotRect plot_rect(const GraphDocument& document, Double scale_width, Double scale_height) {
  PlotRect plot;
  plot.PlotTop = document.Top_margine;
  plot.PlotLeft = document.Left_margine;
  plot.PlotWidth = to_integer(scale_width - document.Right_margine - plot.PlotLeft);
  plot.PlotHeight = to_integer(scale_height - document.Bottom_margine - plot.PlotTop);
  return plot;
}

}  // namespace kurv
