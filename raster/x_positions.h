// The x positions of a polyline's points on a grid of evenly spaced nodes. They are cached, because
// the curves of a graph share their x.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace kurv::raster {

struct NodeGrid {
  double nodes_per_unit = 1;  // of x
  int origin = 0;             // the node at x = 0
  int last = 0;               // nodes are 0..last
  // The line is also evaluated at this offset after each node and at the same offset before the
  // next one, as a part of the distance between them.
  float rim_offset = 0.5F;

  friend bool operator==(const NodeGrid&, const NodeGrid&) = default;
};

// Where the line crosses a vertical line: the segment, by the index of its end point, and the
// fraction of it before the crossing.
struct Crossing {
  int segment = 0;  // 0: no segment
  float fraction = 0;
};

class XPositions {
 public:
  // False where x is not monotonic or not finite throughout; the previous x then stay.
  bool set_x(std::span<const float> x);
  // To be called before any of the getters below. The positions on two grids are cached.
  void set_grid(const NodeGrid& grid);

  // Whether x descends. Points are indexed in ascending order of x all the same.
  bool is_reversed() const { return m_is_reversed; }
  // Whether neighbouring points are at most half a node apart.
  bool is_dense() const { return current().is_dense; }
  float position(int point) const { return current().at[static_cast<std::size_t>(point)]; }
  // The node nearest to the point; -1 before the first node, last + 1 after the last one.
  int nearest_node(int point) const { return current().nearest[static_cast<std::size_t>(point)]; }
  // The same for all points, as an array.
  const int* nearest_nodes() const { return current().nearest.data(); }
  // On the last segment that crosses the node.
  Crossing crossing(int node) const { return at_node(current().crossings, node); }
  // The same at the rim offset after the node, and before the next node. They are computed on
  // demand: find_rim_crossings() has to be called before.
  void find_rim_crossings();
  Crossing crossing_after(int node) const { return at_node(current().after_node, node); }
  Crossing crossing_before_next(int node) const {
    return at_node(current().before_next_node, node);
  }

 private:
  struct GridPositions {
    bool is_known = false;
    bool is_dense = false;
    bool has_rim_crossings = false;
    NodeGrid grid;
    std::vector<float> at;
    std::vector<int> nearest;
    std::vector<Crossing> crossings;
    std::vector<Crossing> after_node;
    std::vector<Crossing> before_next_node;
  };

  static Crossing at_node(const std::vector<Crossing>& crossings, int node) {
    return crossings[static_cast<std::size_t>(node)];
  }
  const GridPositions& current() const { return m_cached[m_current]; }
  void compute_positions(GridPositions& positions) const;
  static std::vector<Crossing> crossings(const GridPositions& positions, float rim_offset);

  std::vector<float> m_x;  // in the order given
  bool m_is_reversed = false;
  std::array<GridPositions, 2> m_cached;
  std::size_t m_current = 0;
};

}  // namespace kurv::raster
