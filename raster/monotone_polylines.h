// The rasteriser of x-monotone polylines: those whose x never decreases, or never increases.
//
// It reduces a line to its min-max envelope, so the cost of a point does not depend on how many
// points share its pixel. A joint is no darker than the line.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "raster/canvas.h"
#include "raster/envelope.h"
#include "raster/front_to_back_layer.h"
#include "raster/strokes.h"
#include "raster/subcolumns.h"
#include "raster/x_positions.h"

namespace kurv::raster {

// A polyline: segment i goes from point i - 1 to point i, and is drawn where drawn[i] is not zero.
// All three have the same length; drawn[0] is ignored.
struct Polyline {
  std::span<const float> x;
  std::span<const float> y;
  std::span<const std::uint8_t> drawn;
};

// Collects the coverage of polylines. One colour and one pen at a time.
class MonotonePolylines {
 public:
  MonotonePolylines(int width, int height) : m_subcolumns(width, height) {}

  // Whether most points of a line are local extrema, by a sample. Such lines cover areas.
  static bool is_noisy(std::span<const float> y);
  // Whether lines of these x can be added with the pen: not where x is not finite or not monotonic,
  // or where the pen is so wide that it would take too long.
  bool accepts(const Pen& pen, std::span<const float> x);
  // False, and nothing is added, where the x or the pen are not accepted.
  //
  // A segment that begins or ends at a NaN is not drawn, and an infinite y counts as the largest
  // finite number. The visible part of a segment is accurate however far away its ends are. The pen
  // must stay the same until the next flush.
  bool add(const Pen& pen, const Polyline& line);
  // The same for a line with the x and the pen that were accepted last. What `occluder`, if any,
  // hides may be left out.
  void add_accepted(const Pen& pen, const Polyline& line, const FrontToBackLayer* occluder);
  // Blends what has been added onto the canvas, which has the size of the constructor, and clears
  // it.
  void flush(const Canvas& canvas, std::uint32_t colour);
  // Composites it under what the layer holds, and clears it.
  void flush(FrontToBackLayer& layer, std::uint32_t colour);
  void clear() { m_subcolumns.clear(); }

 private:
  bool scale_y(const Pen& pen, std::span<const float> y);
  void find_extrema();
  bool is_true_extremum(int point) const;
  bool needs_fine_subcolumns(const Pen& pen, const Polyline& line) const;
  void configure(const Pen& pen, bool fine_subcolumns);
  bool is_whole(const Polyline& line) const;
  void add_runs(const Polyline& line);
  void add_run(int first, int end);
  void sample_line(int first, int end);
  void sample_points(int first, int end);
  void add_far_segment(Point from, Point to);

  Pen m_pen{0, 0};
  const FrontToBackLayer* m_occluder = nullptr;  // during add_accepted()
  bool m_is_noisy = false;                       // the line that is being added
  Subcolumns m_subcolumns;
  Envelope m_envelope;
  XPositions m_x_positions;
  std::vector<float> m_y;                   // in pixels, in ascending order of x
  std::vector<std::uint8_t> m_is_extremum;  // by point
  std::vector<int> m_extrema;               // indices of the points that are local extrema
};

}  // namespace kurv::raster
