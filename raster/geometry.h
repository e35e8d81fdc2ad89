// Clipping of strokes. The result is accurate however far away the ends are. Coordinates are
// finite.
#pragma once

#include <optional>

#include "raster/strokes.h"

namespace kurv::raster {

struct Vector {
  double x = 0;
  double y = 0;
};

// A rectangle in the caller's units.
struct Box {
  Vector low;
  Vector high;
};

// Infinities become the largest finite numbers; a NaN passes through.
Point finite(Point point);
bool has_nan(Point point);

// The part of a segment near a box: its ends, and the unit direction of the whole segment, (1, 0)
// for a segment of length zero.
struct ClippedSegment {
  Vector from;
  Vector to;
  Vector direction;
};

// Clips a segment to a box. The result contains the whole part inside the box, and outside the box
// it extends no further than the box is wide or high. Nothing where the segment misses the box.
std::optional<ClippedSegment> clip_segment(Point from, Point to, const Box& box);

// The power of the origin with respect to the circle: d^2 - r^2, with d the distance of the centre.
double power_of_origin(Point centre, float radius);

// The angle that an arc sweeps anticlockwise from its start, in radians: past angle 0 where the end
// is below the start. A full turn or more is the circle.
double sweep_of(float start, float end);

}  // namespace kurv::raster
