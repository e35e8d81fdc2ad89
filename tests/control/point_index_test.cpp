#include "control/point_index.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

constexpr Double kMissing = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kReach = 120;

enum class Order { kAscending, kRandom, kFewValues, kMissingX };

// Random data, of which some values are missing, with some points outside the limits.
class RandomGraph {
 public:
  RandomGraph(Order order, int points, int curves, unsigned seed) : m_random(seed) {
    std::vector<std::vector<Double>> values(static_cast<std::size_t>(curves) + 1);
    for (int i = 0; i < points; ++i) {
      values[0].push_back(x_of(order, i, points));
      for (std::size_t k = 1; k < values.size(); ++k)
        values[k].push_back(between(0, 10) < 1 ? kMissing : between(-20, 120));
    }
    std::vector<Boolean> visible(static_cast<std::size_t>(curves), Boolean(true));
    if (curves > 2) visible[1] = false;
    std::vector<String> names(values.size(), "name");
    host.control.scatter_graph2(String("Title"), test::columns(values), test::names(names),
                                static_cast<Integer>(points), static_cast<Integer>(curves),
                                test::flags(visible), 0, {}, true, true);
    host.control.set_xmin(0);
    host.control.set_xmax(100);
    host.control.set_ymin(100);  // the other way round
    host.control.set_ymax(0);
    host.control.build_the_graph();
  }

  Double between(Double low, Double high) {
    return std::uniform_real_distribution<Double>(low, high)(m_random);
  }

  // The distance of the nearest point, by looking at all of them in the order of the host.
  std::optional<Double> least_distance(const NearestQuery& query) {
    const GraphDocument& document = host.document();
    const Mapping mapping(document, host.layout().plot);
    Double least = query.reach;
    bool is_found = false;
    for (int k = 1; k <= document.NumY; ++k) {
      if (!document.y_visible(k)) continue;
      for (int i = 1; i <= document.NumData; ++i) {
        const DataPoint point{document.xyArrUnsorted(1, i), document.xyArrUnsorted(k + 1, i)};
        const Double distance = distance_of(point, query);
        if (!mapping.InPlot(point) || !(distance <= least)) continue;
        least = distance;
        is_found = true;
      }
    }
    return is_found ? std::optional(least) : std::nullopt;
  }

  static Double distance_of(DataPoint point, const NearestQuery& query) {
    return std::hypot((point.x - query.centre.x) * query.x_scale,
                      (point.y - query.centre.y) * query.y_scale);
  }

  TestHost host;

 private:
  Double x_of(Order order, int i, int points) {
    if (order == Order::kAscending) return i * 110.0 / points;
    if (order == Order::kFewValues) return std::floor(between(0, 5)) * 20;
    if (order == Order::kMissingX && between(0, 10) < 2) return kMissing;
    return between(-10, 110);
  }

  std::mt19937 m_random;
};

void compare(Order order, int points, int curves) {
  RandomGraph graph(order, points, curves, static_cast<unsigned>(points));
  const GraphDocument& document = graph.host.document();
  const Mapping mapping(document, graph.host.layout().plot);
  PointIndex index;
  index.follow(document);
  int found = 0;
  for (int search = 0; search < 400; ++search) {
    const NearestQuery query{{graph.between(-5, 105), graph.between(-5, 105)}, 80, 60, kReach};
    const auto place = index.nearest(document, mapping, query);
    const auto expected = graph.least_distance(query);
    ASSERT_EQ(place.has_value(), expected.has_value());
    if (!place) continue;
    ++found;
    ASSERT_NEAR(place->distance, *expected, 1e-9);
    // It is a point of the host.
    const int point = index.point(document, place->rank);
    const DataPoint value{document.xyArrUnsorted(1, point),
                          document.xyArrUnsorted(place->curve + 1, point)};
    ASSERT_NEAR(RandomGraph::distance_of(value, query), *expected, 1e-9);
    ASSERT_TRUE(document.y_visible(place->curve));
    const DataPoint same = index.value(document, place->curve, place->rank);
    ASSERT_EQ(same.x, value.x);
    ASSERT_EQ(same.y, value.y);
  }
  EXPECT_GT(found, 0);
}

TEST(PointIndex, FindsWhatALookAtAllPointsFinds) {
  for (const Order order :
       {Order::kAscending, Order::kRandom, Order::kFewValues, Order::kMissingX}) {
    SCOPED_TRACE(static_cast<int>(order));
    compare(order, 40, 1);
    compare(order, 700, 5);
    compare(order, 5000, 3);
  }
}

TEST(PointIndex, FindsNothingWhereThereIsNothing) {
  const GraphDocument document;
  PointIndex index;
  index.follow(document);
  EXPECT_EQ(index.count(), 0);
  EXPECT_FALSE(index.nearest(document, Mapping(document, {}), {{0, 0}, 1, 1, kReach}));
}

TEST(PointIndex, FindsThePointThatIsDrawnOnTopOfAnother) {
  TestHost host;
  host.control.scatter_graph2(String("Title"), test::columns({{1, 2, 3}, {5, 6, 7}, {5, 9, 7}}),
                              test::names({"x", "a", "b"}), 3, 2, test::flags({true, true}), 0, {});
  PointIndex index;
  index.follow(host.document());
  const Mapping mapping(host.document(), host.layout().plot);
  EXPECT_EQ(index.nearest(host.document(), mapping, {{1, 5}, 1, 1, 1})->curve, 2);
  EXPECT_EQ(index.nearest(host.document(), mapping, {{2, 6}, 1, 1, 1})->curve, 1);
}

TEST(PointIndex, FollowsEditedAndAddedPoints) {
  TestHost host;
  host.control.scatter_graph2(String("Title"), test::columns({{1, 2, 3}, {5, 6, 7}}),
                              test::names({"x", "a"}), 3, 1, test::flags({true}), 0, {});
  PointIndex index;
  index.follow(host.document());
  const auto found = [&](Double x, Double y) {
    index.follow(host.document());
    const Mapping mapping(host.document(), host.layout().plot);
    return index.nearest(host.document(), mapping, {{x, y}, 1, 1, 0.25}).has_value();
  };
  EXPECT_TRUE(found(2, 6));
  host.control.append_points(test::columns({{4}, {6.5}}));
  EXPECT_TRUE(found(4, 6.5));
  EXPECT_FALSE(found(2, 5.5));
  host.control.replace_points(test::columns({{1, 2, 3, 4}, {5, 5.5, 7, 6.5}}),
                              test::names({"x", "a"}));
  EXPECT_TRUE(found(2, 5.5));
  EXPECT_FALSE(found(2, 6));
}

}  // namespace
}  // namespace kurv
