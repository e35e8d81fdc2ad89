// The plot for screen readers.
#pragma once

namespace kurv {

class PlotView;

// Installs the factory that gives screen readers the items and regions of every plot. May be
// repeated.
void make_plots_accessible();
// Reports the target, or the point of a curve, that has the keyboard's focus.
void notify_focus(PlotView& view);

}  // namespace kurv
