// A line on its way to what its pen covers.
//
// How low and how high the line runs is kept at nodes, which stand on the edges of the cells. A
// line with round joints covers one interval of each vertical line across it: from the lowest to
// the highest of the discs that its pen passes through.
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

  // Where it is at a crossing; not a number where it is not.
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
  // For cells like these, and a pen of this half width in pixels.
  void configure(const Subcolumns& subcolumns, double half_width);

  // The node on the left edge of cell 0. Before it and behind the right edge of the last cell there
  // are as many nodes as the pen reaches.
  int origin_node() const { return m_reach; }
  int last_node() const { return m_last_node; }
  // How far behind a node the rim of a disc is, of the way to the next node.
  float rim_offset() const { return 1 - m_rim; }

  // Nodes first..last, and no other, are passed until the dilation of the same nodes.
  void reset(int first, int last);
  // The line passes a node at y, in pixels; what is not a number is no place. The nodes right
  // before the first and right behind the last may be passed as well, for nothing.
  void add_sample(int node, float y) {
    float& low = m_low[static_cast<std::size_t>(node + 1)];
    float& high = m_high[static_cast<std::size_t>(node + 1)];
    low = fast_min(y, low);
    high = fast_max(y, high);
  }
  // Covers what the pen covers on its way along these nodes, except for what `above` hides, if
  // there is any. Where the line is known between the nodes, too, it comes with its run.
  void dilate(int first, int last, Subcolumns& subcolumns, const FrontToBackLayer* occluder,
              const DenseRun* run);

 private:
  bool is_occluded(int begin, int end, const Subcolumns& subcolumns,
                   const FrontToBackLayer& occluder) const;
  void dilate_by_discs(int begin, int count);
  void dilate_by_rims(int begin, int count);
  void dilate_by_rims_of(const DenseRun& run, int begin, int count);

  int m_reach = 0;  // how many cells on either side of a node its disc covers
  int m_last_node = 0;
  float m_half_width = 0;
  float m_rim = 0;             // how far a disc reaches beyond the outermost node on its side
  std::vector<float> m_discs;  // half the height of a disc, by the distance of the cell
  std::vector<float> m_low;    // of the line at each node, and at one more on either side
  std::vector<float> m_high;
  std::vector<float> m_top;  // of what a piece of the cells covers
  std::vector<float> m_bottom;
};

}  // namespace kurv::raster
