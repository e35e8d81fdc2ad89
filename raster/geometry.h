// What of a stroke can be seen, exact however far away its ends are. Coordinates are finite.
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

// The part of a segment near a box: its ends, and the direction of the whole segment, of length
// one; (1, 0) for one of no length.
struct ClippedSegment {
  Vector from;
  Vector to;
  Vector direction;
};

// Holds everything of the segment that is inside the box, and no more outside than the box is wide
// or high. Nothing where the segment does not come near.
std::optional<ClippedSegment> clip_segment(Point from, Point to, const Box& box);

// The power of the origin with respect to the circle, d^2 - r^2 with the centre at distance d.
double power_of_origin(Point centre, float radius);

// How far an arc goes anticlockwise from its start, in radians: past the full turn when the end is
// below the start. A full turn or more is the circle.
double sweep_of(float start, float end);

}  // namespace kurv::raster
