#include "control/resized_picture.h"

#include <KurvGraph/headless.h>

#include "control/control_state.h"
#include "control/fitted_items.h"
#include "control/lifecycle.h"
#include "control/redraw.h"

namespace kurv {

namespace {

// What the plot takes along one axis, in twips.
struct Range {
  Double low;
  Double length;
  Double high() const { return low + length; }
};

Range across(const PlotRect& plot) {
  return {Double(plot.PlotLeft), Double(plot.PlotWidth)};
}

Range down(const PlotRect& plot) {
  return {Double(plot.PlotTop), Double(plot.PlotHeight)};
}

Single moved_along(Single place, Single extent, Range from, Range to) {
  if (place <= from.low) return to_single(to.low - (from.low - place));
  if (place + extent >= from.high()) return to_single(to.high() - (from.high() - place));
  const Double free = from.length - extent;
  return to_single(to.low + (place - from.low) / free * (to.length - extent));
}

void move_items(Layout& layout, const PlotRect& from) {
  for (Rect* item : {&layout.imgTitle, &layout.imgSubTitle, &layout.picLegend}) {
    item->left = moved_along(item->left, item->width, across(from), across(layout.plot));
    item->top = moved_along(item->top, item->height, down(from), down(layout.plot));
  }
}

}  // namespace

void draw_resized_on(const ControlState& state, PlotSurface& surface) {
  if (!state.document.GraphValid) return surface.Cls();
  HeadlessContainer container(surface);
  HeadlessShell shell;
  ControlState resized{container, shell, surface, state.services};
  resized.document = state.document;
  resized.layout = state.layout;
  const bool is_fitted = has_items_in_fitted_places(resized);
  lay_out(resized);
  if (!is_fitted) move_items(resized.layout, state.layout.plot);
  draw_on(resized, surface);
}

}  // namespace kurv
