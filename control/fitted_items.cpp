#include "control/fitted_items.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "control/control_state.h"
#include "render/axes.h"
#include "render/legend_place.h"
#include "render/legend_titles.h"
#include "render/mapping.h"

namespace kurv {

namespace {

constexpr Double kGap = 100;          // twips, around what is outside of the plot
constexpr Single kSmallestTitle = 9;  // points
constexpr Double kMostHidden = 0.1;
constexpr Double kMostForLabels = 1 / 3.0;  // of the width of the surface

template <class Value>
void restore(FittedSetting<Value>& setting, Value& value) {
  if (value == setting.fitted) value = setting.before;
  setting.before = value;
  setting.fitted = value;
}

template <class Value>
void fit(FittedSetting<Value>& setting, Value& value, Value fitted) {
  value = fitted;
  setting.fitted = fitted;
}

void restore_all(GraphDocument& document) {
  FittedItems& items = document.fitted_items;
  restore(items.left_margin, document.Left_margine);
  restore(items.right_margin, document.Right_margine);
  restore(items.top_margin, document.Top_margine);
  restore(items.title_size, document.TitleFontSize);
  items.legend_rows = 0;
  items.legend_letters = 0;
}

void grow(FittedSetting<Integer>& setting, Integer& margin, Double needed) {
  if (margin < needed) fit(setting, margin, to_integer(needed));
}

// -- Labels ---------------------------------------------------------------------------------------

void fit_labels(ControlState& state) {
  GraphDocument& document = state.document;
  state.surface.set_font(axis_font(document));
  const LabelMargins needed = label_margins(document, state.surface);
  const Double most = state.surface.ScaleWidth() * kMostForLabels;
  FittedItems& items = document.fitted_items;
  grow(items.left_margin, document.Left_margine, std::min(needed.left, most));
  grow(items.right_margin, document.Right_margine, std::min(needed.right, most));
}

// -- Titles ---------------------------------------------------------------------------------------

bool has_room(const ControlState& state, const Rect& item) {
  return item.left + item.width <= state.surface.ScaleWidth() - kGap;
}

// Widths are nearly in proportion to sizes, so most of the way to a size that fits is one step.
Single smaller_size(const ControlState& state) {
  const Rect& title = state.layout.imgTitle;
  const Single size = state.document.TitleFontSize;
  const Double room = std::max(0.0, state.surface.ScaleWidth() - kGap - title.left);
  const Double steps = std::floor(size - size * room / title.width) - 1;
  return std::max(kSmallestTitle, static_cast<Single>(size - std::max(1.0, steps)));
}

void shrink_title(ControlState& state) {
  GraphDocument& document = state.document;
  while (!has_room(state, state.layout.imgTitle) && document.TitleFontSize > kSmallestTitle) {
    fit(document.fitted_items.title_size, document.TitleFontSize, smaller_size(state));
    SizeTitleHandles(document, state.layout, state.surface);
    place_titles(document, state.layout);
  }
}

// The subtitle in a row of its own between the title and the plot.
void place_subtitle_below(ControlState& state) {
  GraphDocument& document = state.document;
  Layout& layout = state.layout;
  const Single above = layout.imgTitle.height + layout.imgSubTitle.height + Single(kGap);
  grow(document.fitted_items.top_margin, document.Top_margine, Double(above));
  place_titles(document, layout);
  layout.imgTitle.top = layout.imgSubTitle.top - layout.imgTitle.height;
  layout.imgSubTitle.left = layout.imgTitle.left;
}

void fit_titles(ControlState& state) {
  GraphDocument& document = state.document;
  SizeTitleHandles(document, state.layout, state.surface);
  place_titles(document, state.layout);
  if (document.SubTitle.empty()) return shrink_title(state);
  if (has_room(state, state.layout.imgSubTitle)) return;
  shrink_title(state);
  place_subtitle_below(state);
}

// -- The legend -----------------------------------------------------------------------------------

void update_plot(ControlState& state) {
  update_plot_rect(state.layout.plot, state.document, state.surface.ScaleWidth(),
                   state.surface.ScaleHeight());
}

// At whole twips, because a graph file is read with these.
void put_legend(Layout& layout, Double left, Double top) {
  layout.picLegend.left = static_cast<Single>(std::round(left));
  layout.picLegend.top = static_cast<Single>(std::round(top));
}

// Right of the plot. Long names are cut where it would take half of the surface. False where even
// names of one letter would.
bool place_outside(ControlState& state) {
  GraphDocument& document = state.document;
  Layout& layout = state.layout;
  const Double most = state.surface.ScaleWidth() / 2 - 2 * kGap;
  if (layout.picLegend.width > most) {
    const int letters = legend_letters(document, most, state.surface);
    if (letters == 0) return false;
    document.fitted_items.legend_letters = letters;
    size_legend(document, layout, state.surface);
  }
  grow(document.fitted_items.right_margin, document.Right_margine,
       layout.picLegend.width + 2 * kGap);
  update_plot(state);
  put_legend(layout, Double(layout.plot.PlotLeft) + layout.plot.PlotWidth + kGap,
             layout.plot.PlotTop);
  return true;
}

void fit_legend(ControlState& state) {
  GraphDocument& document = state.document;
  Layout& layout = state.layout;
  update_plot(state);
  place_legend(document, layout);
  if (!has_legend(document)) return;
  document.fitted_items.legend_rows = legend_rows(document, layout.plot.PlotHeight, state.surface);
  size_legend(document, layout, state.surface);
  const std::optional<LegendPlace> place = find_legend_place(document, layout);
  if ((!place || place->hidden > kMostHidden) && place_outside(state)) return;
  if (!place) return;
  put_legend(layout, place->left, place->top);
}

// A legend that was never fitted, as that of a graph file, stays where it is, with as many rows as
// the surface has room for.
void fit_rows(ControlState& state) {
  GraphDocument& document = state.document;
  document.fitted_items.legend_rows = 0;
  size_legend(document, state.layout, state.surface);
  const Rect& legend = state.layout.picLegend;
  const Double room = state.surface.ScaleHeight() - legend.top;
  if (legend.height <= room) return;
  document.fitted_items.legend_rows = legend_rows(document, room, state.surface);
}

// -- Whether they are still there -----------------------------------------------------------------

FittedPlaces places(const ControlState& state) {
  const Layout& layout = state.layout;
  return {layout.imgTitle, layout.imgSubTitle, layout.picLegend, state.surface.ScaleWidth(),
          state.surface.ScaleHeight()};
}

bool have_equal_corners(const Rect& a, const Rect& b) {
  return a.left == b.left && a.top == b.top;
}

}  // namespace

bool has_items_in_fitted_places(const ControlState& state) {
  const GraphDocument& document = state.document;
  const FittedItems& items = document.fitted_items;
  const Layout& layout = state.layout;
  const std::optional<FittedPlaces>& fitted = layout.fitted_places;
  return items.is_on && fitted && have_equal_corners(layout.imgTitle, fitted->title) &&
         have_equal_corners(layout.imgSubTitle, fitted->subtitle) &&
         have_equal_corners(layout.picLegend, fitted->legend) &&
         document.Left_margine == items.left_margin.fitted &&
         document.Right_margine == items.right_margin.fitted &&
         document.Top_margine == items.top_margin.fitted &&
         document.TitleFontSize == items.title_size.fitted;
}

void set_fitted_items(ControlState& state, bool on) {
  GraphDocument& document = state.document;
  FittedItems& items = document.fitted_items;
  if (items.is_on == on) return;
  items.is_on = on;
  if (!on) return restore_all(document);
  items.left_margin = {document.Left_margine, document.Left_margine};
  items.right_margin = {document.Right_margine, document.Right_margine};
  items.top_margin = {document.Top_margine, document.Top_margine};
  items.title_size = {document.TitleFontSize, document.TitleFontSize};
}

void fit_items(ControlState& state) {
  restore_all(state.document);
  if (state.document.GraphValid) fit_labels(state);
  fit_titles(state);
  if (state.document.GraphValid) fit_legend(state);
  state.layout.fitted_places = places(state);
}

void fit_items_again(ControlState& state) {
  if (!state.document.fitted_items.is_on) return;
  const bool is_listed = has_legend(state.document);
  if (!state.layout.fitted_places) {
    if (is_listed) fit_rows(state);
    return;
  }
  if (!has_items_in_fitted_places(state)) return;
  if (is_listed) size_legend(state.document, state.layout, state.surface);
  if (*state.layout.fitted_places != places(state)) fit_items(state);
}

}  // namespace kurv
