#include "app/csv/row_thinning.h"

#include <KurvGraph/limits.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "tests/app/csv/thinned_pictures.h"

namespace kurv::app {
namespace {

TEST(RowThinning, KeepsThePictureOfOneCurve) {
  constexpr int kRows = 300'000;
  expect_same_picture(table_of(kRows, {noise(1)}), "noise");
  expect_same_picture(table_of(40'000, {noise(2)}), "a little more noise than fits");
  for (const double cycles : {1.0, 20.0, 300.0, 2000.0, 20'000.0}) {
    expect_same_picture(table_of(kRows, {[&](int row) { return sine(row, cycles, kRows); }}),
                        std::to_string(cycles) + " cycles");
  }
  expect_same_picture(table_of(kRows, {[](int row) { return row % 71'234 == 5000 ? 1.0 : 0; }}),
                      "spikes");
  expect_same_picture(table_of(kRows, {[low = noise(3)](int row) mutable {
                                 return row % 71'234 == 5000 ? 1.0 : 0.01 * low(row);
                               }}),
                      "spikes in noise");
  expect_same_picture(table_of(kRows, {[](int row) { return row / 7919 % 5; }}), "steps");
  expect_same_picture(table_of(kRows, {[n = noise(4)](int row) mutable {
                                 return row / 1500 % 7 == 0 ? n(row) : 0;
                               }}),
                      "bursts");
  expect_same_picture(
      table_of(kRows, {[n = noise(5)](int row) mutable { return row * 1e-3 + 0.2 * n(row); }}),
      "noise on a slope");
  expect_same_picture(
      table_of(kRows, {[n = noise(6)](int row) mutable { return std::round(n(row) * 3); }}),
      "noise of few levels");
}

TEST(RowThinning, KeepsThePictureOfSeveralCurves) {
  constexpr int kRows = 200'000;
  expect_same_picture(table_of(kRows, curves_of_noise(3)), "three curves of noise");
  expect_same_picture(table_of(kRows, curves_of_noise(12)), "many curves of noise");
  expect_same_picture(table_of(kRows, {random_walk(1), random_walk(2), random_walk(3)}),
                      "random walks");
  expect_same_picture(table_of(kRows, {noise(1), [](int row) { return sine(row, 50, kRows); },
                                       [](int row) { return row % 50'000 == 77 ? 1.0 : 0; },
                                       [](int row) { return row / 10'000 % 3; }}),
                      "curves of each kind");
}

std::set<Values> rows_of(const Matrix<Double>& table) {
  std::set<Values> rows;
  for (int i = 1; i <= table.upper_point(); ++i) {
    Values row;
    for (int c = 1; c <= table.upper_column(); ++c) row.push_back(table(c, i));
    rows.insert(std::move(row));
  }
  return rows;
}

bool has_only_rows_of(const Matrix<Double>& all, const Matrix<Double>& kept) {
  const std::set<Values> known = rows_of(all);
  const std::set<Values> used = rows_of(kept);
  return std::includes(known.begin(), known.end(), used.begin(), used.end());
}

int count_gaps(const Matrix<Double>& table, int curve) {
  int gaps = 0;
  for (int i = 2; i <= table.upper_point(); ++i) {
    gaps += std::isnan(table(curve, i)) && !std::isnan(table(curve, i - 1));
  }
  return gaps;
}

TEST(RowThinning, TakesRowsOfTheTable) {
  for (const unsigned curves : {1u, 2u, 3u}) {
    const Matrix<Double> table = table_of(50'000, curves_of_noise(curves));
    const ThinnedRows kept = thinned(table);
    EXPECT_FALSE(kept.are_mixed);
    EXPECT_EQ(kept.values.upper_point(), kMaxPoints);
    EXPECT_TRUE(has_only_rows_of(table, kept.values)) << curves;
  }
}

TEST(RowThinning, MixesRowsWhereManyCurvesHaveExtremesInDifferentOnes) {
  const Matrix<Double> table = table_of(60'000, curves_of_noise(12));
  const ThinnedRows kept = thinned(table);
  EXPECT_TRUE(kept.are_mixed);
  EXPECT_LE(kept.values.upper_point(), kMaxPoints);
  const double width = 59'999.0 / 8191;
  std::vector<std::multiset<double>> known(8191);
  for (int i = 1; i <= table.upper_point(); ++i) {
    known[static_cast<std::size_t>(std::min(8190.0, (table(1, i) - 1) / width))].insert(
        table(13, i));
  }
  std::size_t bucket = 0;
  for (int i = 1; i <= kept.values.upper_point(); i += 4) {
    double least = kMissing;
    double largest = kMissing;
    for (int k = i; k < i + 4; ++k) {
      least = std::fmin(least, kept.values(13, k));
      largest = std::fmax(largest, kept.values(13, k));
    }
    ASSERT_EQ(least, *known[bucket].begin()) << bucket;
    ASSERT_EQ(largest, *known[bucket].rbegin()) << bucket;
    ++bucket;
  }
  EXPECT_EQ(bucket, 8191u);
}

TEST(RowThinning, KeepsGapsOfMixedRows) {
  Matrix<Double> table = table_of(100'000, curves_of_noise(12));
  for (int i = 20'000; i < 21'000; ++i) table(2, i) = kMissing;
  for (int i = 30'000; i < 40'000; i += 7) table(2, i) = kMissing;
  const ThinnedRows kept = thinned(table);
  EXPECT_TRUE(kept.are_mixed);
  EXPECT_EQ(count_gaps(kept.values, 2), 1);
  EXPECT_EQ(count_gaps(kept.values, 3), 0);
}

TEST(RowThinning, TakesTrueRowsOfManyCurvesThatAreAlike) {
  std::vector<Curve> curves;
  for (int c = 0; c < 149; ++c) {
    curves.push_back([c](int row) { return sine(row, 7, 40'000) + c; });
  }
  const Matrix<Double> table = table_of(40'000, curves);
  const ThinnedRows kept = thinned(table);
  EXPECT_FALSE(kept.are_mixed);
  EXPECT_TRUE(has_only_rows_of(table, kept.values));
}

// Pixel columns are stretches of x, not of rows.
TEST(RowThinning, KeepsThePictureOfUnevenRows) {
  Matrix<Double> table = table_of(200'000, {noise(1)});
  const Column<Double> x = table.column(1);
  for (int i = 1; i <= 200'000; ++i) x(i) = std::pow(i, 4);
  expect_same_picture(table, "more and more distant rows");
  for (int i = 1; i <= 200'000; ++i) x(i) = -i;
  expect_same_picture(table, "x that descends");
}

TEST(RowThinning, KeepsGapsThatCanBeSeen) {
  const auto with_gap = [](int row) {
    const bool is_wide = row > 30'000 && row <= 31'000;
    return is_wide || row % 501 == 500 ? kMissing : sine(row, 3, 100'000);
  };
  const Matrix<Double> table = table_of(100'000, {with_gap, noise(1)});
  const ThinnedRows kept = thinned(table);
  EXPECT_EQ(count_gaps(kept.values, 2), 1) << "a missing row is no wider than a line";
  expect_same_picture(table, "a gap");
  bool has_begin = false;
  bool has_end = false;
  for (int i = 1; i <= kept.values.upper_point(); ++i) {
    has_begin = has_begin || kept.values(1, i) == 30'000;
    has_end = has_end || kept.values(1, i) == 31'001;
  }
  EXPECT_TRUE(has_begin && has_end);
}

TEST(RowThinning, LeavesOutRowsWithoutX) {
  Matrix<Double> table = table_of(100'000, {noise(1)});
  for (int i = 7; i <= 100'000; i += 10) table(1, i) = kMissing;
  for (int i = 50'000; i <= 52'000; ++i) table(1, i) = kMissing;
  const ThinnedRows kept = thinned(table);
  EXPECT_EQ(count_gaps(kept.values, 1), 1);
}

// A cloud that is a disc: its edge, and as dense inside as before.
TEST(RowThinning, KeepsACloudOfPoints) {
  Noise source(9);
  Matrix<Double> table(1, 2, 1, 200'000);
  for (int i = 1; i <= 200'000; ++i) {
    const double angle = 2 * kPi * source.uniform();
    const double radius = std::sqrt(source.uniform());
    table(1, i) = radius * std::cos(angle);
    table(2, i) = radius * std::sin(angle);
  }
  const ThinnedRows kept = thinned(table);
  EXPECT_TRUE(has_only_rows_of(table, kept.values));
  int inside = 0;
  double extremes[4] = {0, 0, 0, 0};
  double expected[4] = {0, 0, 0, 0};
  const auto extend = [](double(&limits)[4], double x, double y) {
    limits[0] = std::min(limits[0], x);
    limits[1] = std::max(limits[1], x);
    limits[2] = std::min(limits[2], y);
    limits[3] = std::max(limits[3], y);
  };
  for (int i = 1; i <= kept.values.upper_point(); ++i) {
    inside += std::hypot(kept.values(1, i), kept.values(2, i)) < 0.5;
    extend(extremes, kept.values(1, i), kept.values(2, i));
  }
  for (int i = 1; i <= 200'000; ++i) extend(expected, table(1, i), table(2, i));
  EXPECT_TRUE(std::equal(extremes, extremes + 4, expected));
  EXPECT_GT(inside, kept.values.upper_point() / 6) << "a quarter of the disc";
}

TEST(RowThinning, TakesAnyValues) {
  for (const double large : {1e308, 1e-308, 0.0}) {
    const Matrix<Double> table =
        table_of(40'000, {[&](int row) { return row % 2 == 0 ? large : -large; }});
    EXPECT_EQ(thinned(table).values.upper_point(), kMaxPoints) << large;
  }
  Matrix<Double> one_x = table_of(40'000, {noise(1)});
  for (int i = 1; i <= 40'000; ++i) one_x(1, i) = 5;
  EXPECT_EQ(thinned(one_x).values.upper_point(), kMaxPoints);
  for (int i = 1; i <= 40'000; ++i) one_x(1, i) = kMissing;
  EXPECT_EQ(thinned(one_x).values.upper_point(), 0);
  const Matrix<Double> missing = table_of(40'000, {[](int) { return kMissing; }});
  EXPECT_EQ(thinned(missing).values.upper_point(), kMaxPoints);
}

// Beyond half a million rows, extremes are searched in buckets first.
TEST(RowThinning, KeepsThePictureOfAMillionRows) {
  expect_same_picture(table_of(1'000'000, {noise(1)}), "a million rows");
}

}  // namespace
}  // namespace kurv::app
