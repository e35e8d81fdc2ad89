// What the plot says about the point under the mouse or the keyboard.
#pragma once

#include <KurvGraph/read_out.h>

#include <QString>
#include <optional>

#include "control/point_finder.h"

namespace kurv {

// How near the pointer has to be to a point or a curve, in logical pixels.
inline constexpr double kReach = 8;

struct PlotReadOut {
  bool is_on = false;
  PointFinder finder = {};
  AxisText x_text = {};
  std::optional<FoundPoint> point = {};  // the ring is around it
  std::optional<QPointF> ring = {};      // its centre, in pixels of the view
  bool is_by_keyboard = false;
  bool is_pressed = false;  // a button of the mouse is down, which means something else
  QPointF mouse = {};       // where it was last, on the screen
  ReadOut shown = {};       // what was said last
};

// The texts are empty where there is neither a point nor a place. `pixel` are twips.
ReadOut read_out_of(const ControlState& state, const AxisText& x_text,
                    const std::optional<FoundPoint>& point, const std::optional<DataPoint>& place,
                    double pixel);

// For the tool tip, with markup.
QString tip_text(const CurvePoint& point, const ReadOut& read_out);
// For screen readers.
QString spoken_text(const ReadOut& read_out);

}  // namespace kurv
