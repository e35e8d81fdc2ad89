// Where the points of a polyline stand among evenly spaced nodes. It is remembered, because the
// curves of a graph share their x.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace kurv::raster {

struct NodeGrid {
  double nodes_per_unit = 1;  // of x
  int origin = 0;             // that stands at x = 0
  int last = 0;               // they count from 0
  float rim_offset = 0.5F;  // where else between two nodes the line is asked for: so far behind the
                            // first and so far before the second, of the way between them

  friend bool operator==(const NodeGrid&, const NodeGrid&) = default;
};

// Where the line passes a place: on which segment, by the point that ends it, and how much of it
// lies before the place.
struct Crossing {
  int segment = 0;  // none
  float fraction = 0;
};

class XPositions {
 public:
  // False, and what was there stays, where x goes back and forth or is not finite throughout.
  bool set_x(std::span<const float> x);
  // Has to come before any of the questions below. Two sets of nodes are remembered.
  void set_grid(const NodeGrid& grid);

  // Whether x runs downwards. Points are counted in ascending order all the same.
  bool is_reversed() const { return m_is_reversed; }
  // Whether the points are so close together that each node between two of them is the nearest of
  // both, or stands on one.
  bool is_dense() const { return current().is_dense; }
  float position(int point) const { return current().at[static_cast<std::size_t>(point)]; }
  // The node nearest to the point, or one before the first, or one behind the last.
  int nearest_node(int point) const { return current().nearest[static_cast<std::size_t>(point)]; }
  // The same of all points, one after the other.
  const int* nearest_nodes() const { return current().nearest.data(); }
  // On the last segment that passes the node.
  Crossing crossing(int node) const { return at_node(current().crossings, node); }
  // The same so far aside from the node, or before the next one. They are looked for once somebody
  // wants them: find_asides() has to come before.
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

  std::vector<float> m_x;  // as given
  bool m_is_reversed = false;
  std::array<GridPositions, 2> m_cached;
  std::size_t m_current = 0;
};

}  // namespace kurv::raster
