// The plot for screen readers.
#pragma once

namespace kurv {

class PlotView;

// From now on a screen reader finds the items and regions of every plot. May be repeated.
void make_plots_accessible();
// The keyboard has reached another target.
void tell_focus(PlotView& view);

}  // namespace kurv
