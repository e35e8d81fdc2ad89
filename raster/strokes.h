// Antialiased strokes with round ends, added to a coverage mask.
//
// A pixel is covered by as much of its area as lies within the stroke, at the round ends of
// segments and along circles nearly. Coordinates are single-precision numbers in units of
// the caller's, y downwards. What is visible of a stroke is exact however far away its ends are: an
// infinity stands for the largest finite number, and a NaN anywhere draws nothing. A stroke takes
// time in proportion to the pixels of the mask that it can touch.
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

// A segment of no length is a dot.
void add_segment(Coverage& mask, const Pen& pen, Point from, Point to);

// The same, faster, above all where it is long: it may be kept in `others` until that is merged.
class NarrowSegments;
void add_segment(Coverage& mask, NarrowSegments& others, const Pen& pen, Point from, Point to);

// A circle's outline. A radius of zero makes a dot, a negative one nothing.
void add_circle(Coverage& mask, const Pen& pen, Point centre, float radius);

// The part of a circle's outline from one angle to another, in radians anticlockwise from the
// positive x axis. It goes on past the full turn when the end is below the start; a full turn or
// more is the circle.
void add_arc(Coverage& mask, const Pen& pen, Point centre, float radius, float start, float end);

}  // namespace kurv::raster
