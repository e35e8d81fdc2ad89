// Polylines whose x never goes back, or never forth, however dense they are.
//
// A point costs the same whether it stands alone in its pixel or among a hundred, and a joint is no
// darker than the line.
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

// A polyline: its segment i goes from point i - 1 to point i, and is there where drawn[i] is not
// zero. All three have the same length; drawn[0] counts for nothing.
struct Polyline {
  std::span<const float> x;
  std::span<const float> y;
  std::span<const std::uint8_t> drawn;
};

// What polylines cover of a picture. One colour and one pen at a time.
class MonotonePolylines {
 public:
  MonotonePolylines(int width, int height) : m_subcolumns(width, height) {}

  // Whether most points of a line are where it turns up or down, by a sample. Lines like that cover
  // areas.
  static bool is_noisy(std::span<const float> y);
  // Whether lines of these x can be added with the pen: not where x is not finite or goes back and
  // forth, or where the pen is so wide that it would take too long.
  bool accepts(const Pen& pen, std::span<const float> x);
  // False, and nothing is added, where the x or the pen cannot be taken.
  //
  // A segment that begins or ends at a NaN is not drawn, and an infinite y stands for the largest
  // finite number. What is visible of a segment is exact however far its ends are away. The pen
  // stays the same until the next flush.
  bool add(const Pen& pen, const Polyline& line);
  // The same for a line with the x and the pen that were taken last. What `above` hides may be left
  // out.
  void add_accepted(const Pen& pen, const Polyline& line, const FrontToBackLayer* occluder);
  // Blends what has been added onto the canvas, of the size this was made for, and forgets it.
  void flush(const Canvas& canvas, std::uint32_t colour);
  // Puts it below what the layer holds, and forgets it.
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
  const FrontToBackLayer* m_occluder = nullptr;  // while a line is added
  bool m_is_noisy = false;                       // the line that is added
  Subcolumns m_subcolumns;
  Envelope m_envelope;
  XPositions m_x_positions;
  std::vector<float> m_y;                   // of the points in the order of their x, in pixels
  std::vector<std::uint8_t> m_is_extremum;  // whether the line turns up or down at a point
  std::vector<int> m_extrema;               // points where it does
};

}  // namespace kurv::raster
