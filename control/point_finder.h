// What the pointer or the keyboard points at: points of scatter curves, and function curves.
#pragma once

#include <optional>
#include <vector>

#include "control/lazy_evaluator.h"
#include "control/point_index.h"

namespace kurv {

struct ControlState;

// A place on the surface, twips.
struct SurfacePlace {
  Double x = 0;
  Double y = 0;
};

// Nothing while there is no graph, or where the place is outside the plot.
std::optional<DataPoint> data_at(const ControlState& state, SurfacePlace at);
// Nothing while there is no graph.
std::optional<SurfacePlace> place_of(const ControlState& state, DataPoint point);
// The units of the axes per twip; 0 while there is no graph.
DataPoint data_per_twip(const ControlState& state);

// A point of a curve that can be seen.
struct FoundPoint {
  bool is_function = false;
  int curve = 0;  // a scatter curve, or the slot of a function curve
  // Of a scatter curve: in the order of the host. Of a function curve: the sample, counted from 1,
  // that the keyboard is at, and 0 where the pointer is.
  int point = 0;
  DataPoint value;

  friend bool operator==(const FoundPoint& left, const FoundPoint& right) {
    return left.is_function == right.is_function && left.curve == right.curve &&
           left.point == right.point && left.value.x == right.value.x &&
           left.value.y == right.value.y;
  }
};

enum class PointMove {
  kPrevious,
  kNext,
  kPageBack,  // a tenth of the points
  kPageOn,
  kFirst,
  kLast,
  kPreviousCurve,
  kNextCurve,
};

// Points that are outside the plot or have no value, and those of hidden curves, are never found.
// All throw what an evaluator of function curves throws; it is one of their own.
class PointFinder {
 public:
  // The nearest point within the reach, in twips. Where there is none, that of a function curve
  // whose line is within the reach: at the x at which the line is nearest. So a curve that is
  // fitted to points does not hide them.
  std::optional<FoundPoint> nearest(const ControlState& state, SurfacePlace at, Double reach);

  // For the keyboard: the points of a curve from left to right, or the samples of a function curve.
  std::optional<FoundPoint> first(const ControlState& state);
  // From a point that was found. Stays at an end; another curve begins where x is nearest. Nothing
  // where the curve has no point any more.
  std::optional<FoundPoint> moved(const ControlState& state, const FoundPoint& from,
                                  PointMove move);
  // The same point as it is now; nothing where it cannot be seen any more.
  std::optional<FoundPoint> renewed(const ControlState& state, const FoundPoint& from);

 private:
  struct Curve {
    bool is_function;
    int number;
  };

  std::vector<Curve> curves(const ControlState& state);
  std::vector<FoundPoint> points(const ControlState& state, const Curve& curve);
  std::optional<FoundPoint> on_next_curve(const ControlState& state, const FoundPoint& from,
                                          int step);
  // The samples by which the curve is drawn.
  std::vector<DataPoint> samples(const GraphDocument& document, int slot);
  std::optional<FoundPoint> nearest_function(const ControlState& state, SurfacePlace at,
                                             Double reach);

  PointIndex m_index;
  LazyEvaluator m_evaluator;
};

}  // namespace kurv
