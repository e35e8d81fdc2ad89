// Where the points of a polyline stand among evenly spaced nodes. It is remembered, because the
// curves of a graph share their x.
#pragma once

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
  // How many of them are within low..high.
  std::ptrdiff_t count_within(float low, float high) const;
  // Has to come before any of the questions below. Points are counted in ascending order,
  // whichever way x runs.
  void place(const Nodes& nodes);

  // Whether the points are those of a descending x, from the last to the first.
  bool is_reversed() const { return m_is_reversed; }
  float at(int point) const { return m_at[static_cast<std::size_t>(point)]; }
  // The node nearest to the point, or one before the first, or one behind the last.
  int nearest(int point) const { return m_nearest[static_cast<std::size_t>(point)]; }
  // The last segment that passes a node between two points, by the point that ends it, and how much
  // of it lies before the node.
  int segment(int node) const { return m_segment[static_cast<std::size_t>(node)]; }
  float fraction(int node) const { return m_fraction[static_cast<std::size_t>(node)]; }

 private:
  void meet_nodes(int point);

  Nodes m_nodes;
  bool m_is_placed = false;
  std::vector<float> m_x;  // as given
  bool m_is_reversed = false;
  std::vector<float> m_at;
  std::vector<int> m_nearest;
  std::vector<int> m_segment;
  std::vector<float> m_fraction;
};

}  // namespace kurv::raster
