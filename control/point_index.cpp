#include "control/point_index.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "model/data_set.h"

namespace kurv {

namespace {

// Smaller blocks would have more ranges than spare looks at points, larger ones would be looked
// through for few points.
constexpr int kBlock = 64;
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

int blocks_of(int points) {
  return (points + kBlock - 1) / kBlock;
}

// How far a range is from a value; 0 inside of it.
Double distance_from_range(Double low, Double high, Double value) {
  return std::max({Double{0}, low - value, value - high});
}

Double squared(Double value) {
  return value * value;
}

int points_of(const GraphDocument& document) {
  return std::min(points_in(document, document.xyArrSorted), document.sorted_places.upper());
}

}  // namespace

void PointIndex::follow(const GraphDocument& document) {
  const int points = std::max(points_of(document), 0);
  const int curves = points > 0 ? curves_in(document, document.xyArrSorted) : 0;
  if (m_revision == document.data_revision && m_points == points && m_curves == curves) return;
  m_order.clear();
  if (curves > 0) {
    const Column<const Double> x = document.xyArrSorted.column(1);
    for (int i = 1; i <= points; ++i) {
      if (!std::isnan(x(i))) m_order.push_back(i);
    }
    // A missing value of x leaves the others unsorted.
    const auto is_less = [&x](int left, int right) { return x(left) < x(right); };
    if (!std::is_sorted(m_order.begin(), m_order.end(), is_less))
      std::stable_sort(m_order.begin(), m_order.end(), is_less);
  }
  m_ranges.assign(static_cast<std::size_t>(curves) * static_cast<std::size_t>(blocks_of(count())),
                  {kNaN, kNaN});
  m_revision = document.data_revision;
  m_points = points;
  m_curves = curves;
}

int PointIndex::point(const GraphDocument& document, int rank) const {
  return document.sorted_places(m_order.at(static_cast<std::size_t>(rank)));
}

DataPoint PointIndex::value(const GraphDocument& document, int curve, int rank) const {
  const int i = m_order.at(static_cast<std::size_t>(rank));
  return {document.xyArrSorted(1, i), document.xyArrSorted(curve + 1, i)};
}

// One search: from the block around the centre outwards, as far as the nearest point so far.
class PointIndex::Search {
 public:
  Search(PointIndex& index, const GraphDocument& document, const Mapping& mapping,
         const NearestQuery& query)
      : m_index(index),
        m_mapping(mapping),
        m_query(query),
        m_x(&document.xyArrSorted.column(1)(0)),
        m_best(squared(query.reach)) {
    for (int k = 1; k <= index.curves(); ++k) {
      if (document.y_visible(k)) m_curves.push_back({k, &document.xyArrSorted.column(k + 1)(0)});
    }
  }

  std::optional<NearestPlace> run() {
    const auto& order = m_index.m_order;
    const auto middle = std::lower_bound(order.begin(), order.end(), m_query.centre.x,
                                         [this](int i, Double x) { return m_x[i] < x; });
    const int rank = static_cast<int>(middle - order.begin());
    const int home = std::min(rank, m_index.count() - 1) / kBlock;
    const int last = blocks_of(m_index.count()) - 1;
    // The points are in ascending order of x: behind a block that is too far are only such blocks.
    for (int block = home; block >= 0 && look_at(block); --block) continue;
    for (int block = home + 1; block <= last && look_at(block); ++block) continue;
    if (m_place.curve == 0) return std::nullopt;
    m_place.distance = std::sqrt(m_best);
    return m_place;
  }

 private:
  struct Curve {
    int number;
    const Double* values;
  };

  Double x_at(int rank) const { return m_x[m_index.m_order[static_cast<std::size_t>(rank)]]; }

  // Returns whether the block is near enough for a point in it.
  bool look_at(int block) {
    const int first = block * kBlock;
    const int end = std::min(first + kBlock, m_index.count());
    const Double across = squared(
        distance_from_range(x_at(first), x_at(end - 1), m_query.centre.x) * m_query.x_scale);
    if (!(across <= m_best)) return false;
    for (const Curve& curve : m_curves) {
      const Range& range = range_of(curve, block, first, end);
      const Double up =
          distance_from_range(range.low, range.high, m_query.centre.y) * m_query.y_scale;
      if (across + squared(up) <= m_best) look_at(curve, first, end);
    }
    return true;
  }

  void look_at(const Curve& curve, int first, int end) {
    const int* const order = m_index.m_order.data();
    for (int rank = first; rank < end; ++rank) {
      const Double x = m_x[order[rank]], y = curve.values[order[rank]];
      const Double distance = squared((x - m_query.centre.x) * m_query.x_scale) +
                              squared((y - m_query.centre.y) * m_query.y_scale);
      // False for a missing value.
      if (!(distance <= m_best)) continue;
      // Of the same distance, that of the later curve is on top.
      if (distance == m_best && curve.number < m_place.curve) continue;
      if (!m_mapping.InPlot({x, y})) continue;
      m_best = distance;
      m_place.curve = curve.number;
      m_place.rank = rank;
    }
  }

  const Range& range_of(const Curve& curve, int block, int first, int end) {
    const auto blocks = static_cast<std::size_t>(blocks_of(m_index.count()));
    Range& range = m_index.m_ranges[static_cast<std::size_t>(curve.number - 1) * blocks +
                                    static_cast<std::size_t>(block)];
    if (!std::isnan(range.low)) return range;
    range = {kInfinity, -kInfinity};
    const int* const order = m_index.m_order.data();
    for (int rank = first; rank < end; ++rank) {
      const Double y = curve.values[order[rank]];
      if (y < range.low) range.low = y;
      if (y > range.high) range.high = y;
    }
    return range;
  }

  PointIndex& m_index;
  const Mapping& m_mapping;
  const NearestQuery& m_query;
  const Double* m_x;  // by the points of the sorted copy, as the values of the curves are
  std::vector<Curve> m_curves;
  Double m_best;  // the square of the distance
  NearestPlace m_place;
};

std::optional<NearestPlace> PointIndex::nearest(const GraphDocument& document,
                                                const Mapping& mapping, const NearestQuery& query) {
  if (count() == 0) return std::nullopt;
  return Search(*this, document, mapping, query).run();
}

}  // namespace kurv
