// The points of all scatter curves by ascending x, to find the one that is nearest to a place.
#pragma once

#include <optional>
#include <vector>

#include "model/graph_document.h"
#include "render/mapping.h"

namespace kurv {

// Around which point of the data is searched, and how far.
struct NearestQuery {
  DataPoint centre;
  // Of one unit of each axis, in the unit of `reach`. Finite, and not zero.
  Double x_scale = 1;
  Double y_scale = 1;
  Double reach = 0;  // points at this distance are found
};

struct NearestPlace {
  int curve = 0;
  int rank = 0;         // see PointIndex::point()
  Double distance = 0;  // in the unit of the reach
};

// It keeps no data: the values are those of the document's sorted copy, which is there whether or
// not the points are drawn sorted. So it costs next to nothing to make, also for unsorted x. The
// range of y of each block of points is computed when a search first comes to the block, and spares
// later searches a look at its points.
class PointIndex {
 public:
  // To be called before the functions below whenever the document may have changed. Costs next to
  // nothing where its data have not.
  void follow(const GraphDocument& document);

  // The points that have a value of x, in ascending order of it: their ranks are 0..count() - 1.
  int count() const { return static_cast<int>(m_order.size()); }
  // The curves that have values.
  int curves() const { return m_curves; }
  // The number of the point in the order of the host.
  int point(const GraphDocument& document, int rank) const;
  // NaN for y where it is missing.
  DataPoint value(const GraphDocument& document, int curve, int rank) const;

  // The nearest point of a visible curve inside the plot; of points at the same distance, one that
  // is drawn later.
  std::optional<NearestPlace> nearest(const GraphDocument& document, const Mapping& mapping,
                                      const NearestQuery& query);

 private:
  // Infinities the wrong way round where a block has no values, NaN before it is computed.
  struct Range {
    Double low;
    Double high;
  };
  class Search;

  std::vector<int> m_order;     // by rank: points of the sorted copy
  std::vector<Range> m_ranges;  // of the blocks of each curve, curve by curve
  int m_curves = 0;
  std::optional<unsigned> m_revision;
  int m_points = 0;
};

}  // namespace kurv
