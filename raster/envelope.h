// The min-max envelope of a line, and its dilation by a round pen.
//
// The envelope is the minimum and maximum of y at each node; nodes are the edges between
// subcolumns. The stroke of a line with round joints covers one interval of y in each subcolumn:
// the envelope dilated by the disc of the pen (their Minkowski sum).
#pragma once

#include <limits>
#include <vector>

#include "raster/fast_min_max.h"
#include "raster/front_to_back_layer.h"
#include "raster/subcolumns.h"
#include "raster/x_positions.h"

namespace kurv::raster {

// Points first..end-1 of a line and the segments between them.
struct DenseRun {
  const XPositions& x;
  const float* y;  // in pixels
  int first;
  int end;

  // The y at a crossing, or NaN where the crossing is not on this run.
  float y_at(Crossing crossing) const {
    if (crossing.segment <= first || crossing.segment >= end) return kNone;
    const float before = y[crossing.segment - 1];
    return before + crossing.fraction * (y[crossing.segment] - before);
  }

 private:
  static constexpr float kNone = std::numeric_limits<float>::quiet_NaN();
};

class Envelope {
 public:
  // For subcolumns of this width, and a pen of this half width in pixels.
  void configure(const Subcolumns& subcolumns, double half_width);

  // The node at the left edge of subcolumn 0. There are as many more nodes on either side of the
  // picture as the pen reaches.
  int origin_node() const { return m_reach; }
  int last_node() const { return m_last_node; }
  // The distance from a node to the rim of the disc after it, as a part of the node distance.
  float rim_offset() const { return 1 - m_reach_fraction; }

  // Starts a new envelope. Only nodes first..last are sampled until dilate() with the same nodes.
  void reset(int first, int last);
  // The line is at `y`, in pixels, at the node. A NaN is ignored. `node` may also be first - 1 or
  // last + 1, which has no effect.
  void add_sample(int node, float y) {
    float& low = m_low[static_cast<std::size_t>(node + 1)];
    float& high = m_high[static_cast<std::size_t>(node + 1)];
    low = fast_min(y, low);
    high = fast_max(y, high);
  }
  // Covers what the pen covers along these nodes. Strips that `occluder`, if any, hides are left
  // out. `run`, if any, gives the line between the nodes, for the rims of the discs.
  void dilate(int first, int last, Subcolumns& subcolumns, const FrontToBackLayer* occluder,
              const DenseRun* run);

 private:
  bool is_occluded(int begin, int end, const Subcolumns& subcolumns,
                   const FrontToBackLayer& occluder) const;
  void dilate_by_discs(int begin, int count);
  void dilate_by_fractional_reach(int begin, int count);
  void dilate_by_fractional_reach_of(const DenseRun& run, int begin, int count);

  int m_reach = 0;  // how many subcolumns on either side of a node its disc covers
  int m_last_node = 0;
  float m_half_width = 0;
  float m_reach_fraction = 0;  // how far a disc extends past the outermost node that it contains
  std::vector<float> m_disc_half_heights;  // by the distance of the subcolumn
  std::vector<float> m_low;                // by node, with one more on either side
  std::vector<float> m_high;
  std::vector<float> m_top;  // of the intervals in the strip that is being dilated
  std::vector<float> m_bottom;
};

}  // namespace kurv::raster
