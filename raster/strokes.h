// Antialiased strokes with round caps, added to a coverage mask.
//
// The coverage of a pixel is the part of its area within the stroke: exact along segments, and an
// approximation at round caps and along circles. Coordinates are single-precision numbers in units
// of the caller, y downwards. The visible part of a stroke is accurate however far away its ends
// are. An infinity counts as the largest finite number, and a NaN anywhere draws nothing. The time
// is proportional to the number of mask pixels that the stroke can touch.
//
// Implemented in segments.cpp, narrow_segments.cpp and arcs.cpp; docs/raster.md says which of them
// draws what.
#pragma once

#include "raster/coverage.h"

namespace kurv::raster {

struct Point {
  float x = 0;
  float y = 0;
};

struct Pen {
  double pixels_per_unit = 1;  // of the coordinates
  double half_width = 0.5;     // in pixels, at least 1/2
};

// A segment of length zero is a dot.
void add_segment(Coverage& mask, const Pen& pen, Point from, Point to);

// The same, but faster for narrow pens: their x-major segments are collected in `narrow` until its
// merge_into() is called.
class NarrowSegments;
void add_segment(Coverage& mask, NarrowSegments& narrow, const Pen& pen, Point from, Point to);

// The outline of a circle. A radius of zero draws a dot, a negative one nothing.
void add_circle(Coverage& mask, const Pen& pen, Point centre, float radius);

// The part of a circle's outline from one angle to another, in radians anticlockwise from the
// positive x axis. It goes on past the full turn when the end is below the start; a full turn or
// more is the circle.
void add_arc(Coverage& mask, const Pen& pen, Point centre, float radius, float start, float end);

}  // namespace kurv::raster
