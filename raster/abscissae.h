// Where the points of a polyline stand among evenly spaced nodes. It is remembered, because the
// curves of a graph share their x.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace kurv::raster {

struct Nodes {
  double per_unit = 1;  // of x
  int of_zero = 0;      // that stands at x = 0
  int last = 0;         // they count from 0

  friend bool operator==(const Nodes&, const Nodes&) = default;
};

class Abscissae {
 public:
  // False, and what was there stays, where x goes back and forth or is not finite throughout.
  bool take(std::span<const float> x);
  // Has to come before any of the questions below. Two sets of nodes are remembered.
  void place(const Nodes& nodes);

  // Whether x runs downwards. Points are counted in ascending order all the same.
  bool is_reversed() const { return m_is_reversed; }
  // Whether the points are so close together that each node between two of them is the nearest of
  // both, or stands on one.
  bool is_dense() const { return current().is_dense; }
  float at(int point) const { return current().at[static_cast<std::size_t>(point)]; }
  // The node nearest to the point, or one before the first, or one behind the last.
  int nearest(int point) const { return current().nearest[static_cast<std::size_t>(point)]; }
  // The same of all points, one after the other.
  const int* nearest_of_all() const { return current().nearest.data(); }
  // The last segment that passes a node between two points, by the point that ends it, and how much
  // of it lies before the node.
  int segment(int node) const { return current().segment[static_cast<std::size_t>(node)]; }
  float fraction(int node) const { return current().fraction[static_cast<std::size_t>(node)]; }

 private:
  struct Placement {
    bool is_known = false;
    bool is_dense = false;
    Nodes nodes;
    std::vector<float> at;
    std::vector<int> nearest;
    std::vector<int> segment;
    std::vector<float> fraction;
  };

  const Placement& current() const { return m_placements[m_current]; }
  void place_points(Placement& placement) const;
  static void meet_nodes(Placement& placement, std::size_t point);

  std::vector<float> m_x;  // as given
  bool m_is_reversed = false;
  std::array<Placement, 2> m_placements;
  std::size_t m_current = 0;
};

}  // namespace kurv::raster
