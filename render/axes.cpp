#include "render/axes.h"

#include <algorithm>

#include "model/palette.h"
#include "render/mapping.h"
#include "render/number_format.h"
#include "render/pen.h"

namespace kurv {

namespace {

// Twips.
constexpr Double kTickLengthY = 60;
constexpr Double kTickLengthX = 70;
constexpr Double kTickOffset = 10;
constexpr Double kXLabelShift = 100;
constexpr Double kLabelGap = 50;
constexpr Double kCaptionGap = 50;
constexpr Double kCaptionAreaDrop = 230;
constexpr Double kHitMargin = 50;

constexpr int kLabelledIntervals = 20;
constexpr const char* kLabelHeightSample = "2.34";
constexpr Double kSampleValue = 999999.99999;

// About twenty labels an axis, however many ticks: each of up to twenty intervals has its label,
// from 21 on every second one, from 40 on every third one, and so on.
int label_step(const GraphDocument& document) {
  const int ticks = document.NumTicks;
  return ticks <= kLabelledIntervals ? 1 : ticks / kLabelledIntervals + 1;
}

// The position of tick i along its axis, 0..1.
Double fraction_of_tick(const GraphDocument& document, int i) {
  return divide(i, document.NumTicks);
}

String x_label(const GraphDocument& document, int i) {
  const Double fraction = fraction_of_tick(document, i);
  return format_number(fraction * (document.xmax - document.xmin) + document.xmin,
                       document.AxisLabelFormatX);
}

String y_label(const GraphDocument& document, int i) {
  const Double fraction = fraction_of_tick(document, i);
  return format_number(fraction * (document.ymax - document.ymin) + document.ymin,
                       document.AxisLabelFormatY);
}

// Everything that the steps of one pass share.
struct AxisPass {
  const GraphDocument& document;
  const NumericService& numeric;
  Layout& layout;
  PlotSurface& surface;

  const PlotRect& plot() const { return layout.plot; }
  Double bottom() const { return Double(plot().PlotTop) + plot().PlotHeight; }

  Single larger_of(Double value, Double bound) const {
    return to_single(numeric.larger_of(value, bound));
  }
  Double fraction(int i) const { return fraction_of_tick(document, i); }

  Double y_of_tick(int i) const { return bottom() - fraction(i) * plot().PlotHeight - kTickOffset; }
  Double x_of_tick(int i) const { return plot().PlotLeft + fraction(i) * plot().PlotWidth; }

  void rule(Double x1, Double y1, Double x2, Double y2) const {
    surface.Line({to_single(x1), to_single(y1)}, {to_single(x2), to_single(y2)}, kDarkGrey,
                 LineKind::kRule);
  }
};

void draw_x_caption(const AxisPass& pass) {
  const String& caption = pass.document.yVarName(1);
  const Double middle = pass.plot().PlotLeft + pass.plot().PlotWidth / 2.0;
  const Double height = pass.surface.TextHeight(caption);
  // The caption begins at the middle of the plot; it is not centred there.
  pass.surface.Print(to_single(middle), to_single(pass.bottom() + height + kCaptionGap), caption);

  pass.layout.shpXcaption = {to_single(middle - 50), to_single(pass.bottom() + kCaptionAreaDrop),
                             to_single(pass.surface.TextWidth(caption) + 100), to_single(height)};
}

void draw_y_ticks(const AxisPass& pass, Double length) {
  for (int i = 0; i <= pass.document.NumTicks; ++i) {
    const Double y = pass.y_of_tick(i);
    pass.rule(pass.plot().PlotLeft, y, pass.plot().PlotLeft + length, y);
  }
}

// Returns where the last label starts, in whole twips.
Integer draw_y_labels(const AxisPass& pass) {
  const GraphDocument& document = pass.document;
  const Double half_height = pass.surface.TextHeight(kLabelHeightSample) / 2;
  Integer last_left = 0;
  for (int i = 0; i <= document.NumTicks; i += label_step(document)) {
    const String text = y_label(document, i);
    const Double centred = pass.plot().PlotLeft / 2.0 - pass.surface.TextWidth(text) / 2;
    const Single left = pass.larger_of(centred, 10);
    pass.surface.Print(left, to_single(pass.y_of_tick(i) - half_height), text);
    last_left = to_integer(Double(left));
  }
  return last_left;
}

void draw_x_ticks(const AxisPass& pass, Double length) {
  for (int i = 0; i <= pass.document.NumTicks; ++i) {
    const Double x = pass.x_of_tick(i) - kTickOffset;
    pass.rule(x, pass.bottom() - length, x, pass.bottom());
  }
}

void draw_x_labels(const AxisPass& pass) {
  const GraphDocument& document = pass.document;
  for (int i = 0; i <= document.NumTicks; i += label_step(document)) {
    // A fixed shift to the left of the tick, whatever the label's width.
    pass.surface.Print(to_single(pass.x_of_tick(i) - kXLabelShift),
                       to_single(pass.bottom() + kLabelGap), x_label(document, i));
  }
}

void draw_border(const AxisPass& pass) {
  const PlotRect& plot = pass.plot();
  set_pen_width(pass.layout, pass.surface, pass.document.BorderWidth);
  pass.surface.Line({Single(plot.PlotLeft), Single(plot.PlotTop)},
                    {to_single(Double(plot.PlotLeft) + plot.PlotWidth), to_single(pass.bottom())},
                    kBlack, LineKind::kBox);
}

void place_axis_hit_areas(const AxisPass& pass) {
  const PlotRect& plot = pass.plot();
  const Double left = plot.PlotLeft - kHitMargin;
  pass.layout.shpGraphBorder[0] = {
      pass.larger_of(left, 5), pass.larger_of(pass.bottom() - kHitMargin, 5),
      pass.larger_of(plot.PlotWidth + 2 * kHitMargin, 5), Single(2 * kHitMargin)};
  pass.layout.shpGraphBorder[1] = {
      pass.larger_of(left, 5), pass.larger_of(plot.PlotTop - kHitMargin, 5), Single(2 * kHitMargin),
      pass.larger_of(plot.PlotHeight + 2 * kHitMargin, 5)};
}

void place_label_hit_areas(const AxisPass& pass, Integer last_y_label_left) {
  const GraphDocument& document = pass.document;
  const PlotRect& plot = pass.plot();
  const auto width_of = [&](Double value) {
    return pass.surface.TextWidth(format_number(value, document.AxisLabelFormatX));
  };
  const auto sample_height = [&](const String& format) {
    return pass.surface.TextHeight(format_number(kSampleValue, format));
  };

  // The narrower of the two end labels, so that clicks beside the labels are not taken.
  const Double end_width = std::min(width_of(document.xmin), width_of(document.xmax));
  pass.layout.shpXlabels = {pass.larger_of(plot.PlotLeft - end_width, 0),
                            pass.larger_of(pass.bottom() + kLabelGap, 0),
                            pass.larger_of(plot.PlotWidth + 2 * end_width, 50),
                            pass.larger_of(sample_height(document.AxisLabelFormatX), 0)};

  // Both the position and the width of the hit area of the y labels come from the last label.
  const Double height = sample_height(document.AxisLabelFormatY);
  pass.layout.shpYlabels = {pass.larger_of(last_y_label_left - 50.0, 10),
                            pass.larger_of(plot.PlotTop - height, 10),
                            pass.larger_of(plot.PlotLeft - last_y_label_left - 100.0, 10),
                            pass.larger_of(plot.PlotHeight + 2 * height, 10)};
}

}  // namespace

void DrawAxes(const GraphDocument& document, const NumericService& numeric, Layout& layout,
              PlotSurface& surface) {
  // Grid lines have the length of the plot rectangle of the redraw before, so a change of margins
  // shows in them one redraw later. Using the new rectangle would change the picture of a single
  // redraw, on which hosts rely.
  const Double y_tick_length = document.X_grid ? layout.plot.PlotWidth : kTickLengthY;
  const Double x_tick_length = document.Y_grid ? layout.plot.PlotHeight : kTickLengthX;
  update_plot_rect(layout.plot, document, surface.ScaleWidth(), surface.ScaleHeight());

  const AxisPass pass{document, numeric, layout, surface};
  draw_x_caption(pass);
  layout.tick_pen_width = layout.pen_width;
  draw_y_ticks(pass, y_tick_length);
  const Integer last_y_label_left = draw_y_labels(pass);
  draw_x_ticks(pass, x_tick_length);
  draw_x_labels(pass);
  draw_border(pass);
  place_axis_hit_areas(pass);
  place_label_hit_areas(pass, last_y_label_left);
}

LabelMargins label_margins(const GraphDocument& document, const PlotSurface& surface) {
  Double widest = 0;
  for (int i = 0; i <= document.NumTicks; i += label_step(document)) {
    widest = std::max<Double>(widest, surface.TextWidth(y_label(document, i)));
  }
  const int last = document.NumTicks / label_step(document) * label_step(document);
  const Double last_width = surface.TextWidth(x_label(document, last));
  return {widest + 2 * kLabelGap, last_width - kXLabelShift};
}

}  // namespace kurv
