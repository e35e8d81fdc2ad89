// Where the parts of the picture are. A redraw writes nothing but this record and the surface.
#pragma once

#include <array>
#include <optional>

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

namespace kurv {

// A rectangle on the surface, twips.
struct Rect {
  Single left = 0;
  Single top = 0;
  Single width = 0;
  Single height = 0;

  friend bool operator==(const Rect&, const Rect&) = default;
};

// The frame in which curves are drawn, twips. Rewritten by every axis pass and every resize; all
// zero before the first of them.
struct PlotRect {
  Integer PlotTop = 0;
  Integer PlotLeft = 0;
  Integer PlotWidth = 0;
  Integer PlotHeight = 0;
};

// Where fitting has put what the user can drag, and the size of the surface for which it did,
// twips.
struct FittedPlaces {
  Rect title;
  Rect subtitle;
  Rect legend;
  Double surface_width = 0;
  Double surface_height = 0;

  friend bool operator==(const FittedPlaces&, const FittedPlaces&) = default;
};

struct Layout {
  PlotRect plot;

  // The pen width, in pixels, that the last drawing has left on the surface; one before the first.
  // The next redraw draws ticks and grid with it, so the picture of that redraw depends on it.
  Integer pen_width = 1;
  // The pen width with which the last redraw has drawn its ticks and grid.
  Integer tick_pen_width = 1;

  // What the user can drag. Positions last until a drag, a "refresh" or a load moves them; sizes
  // follow the texts at every redraw.
  Rect imgTitle;
  Rect imgSubTitle;
  Rect picLegend;
  // Nothing before they are fitted for the first time.
  std::optional<FittedPlaces> fitted_places;

  // Where a press or a double click finds the parts of the axes; written by the axis pass.
  std::array<Rect, 2> shpGraphBorder;  // 0 along the x axis, 1 along the y axis
  Rect shpXlabels;
  Rect shpYlabels;
  Rect shpXcaption;
};

}  // namespace kurv
