#include "app/csv/mixed_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "app/csv/cell_value.h"

namespace kurv::app {

namespace {

constexpr int kPerBucket = 4;

// Rows that follow one another.
struct RowBucket {
  int first;
  int last;
  // How many points it becomes.
  int points() const { return std::min(kPerBucket, last - first + 1); }
};

// Rows without x are in no bucket, unless they are inside of one.
std::vector<RowBucket> row_buckets(const RowPositions& at, int count) {
  const double scale = count / at.extent();
  std::vector<RowBucket> buckets;
  double current = -1;
  for (int row = 0; row < at.rows(); ++row) {
    if (std::isnan(at(row))) continue;
    // The last position begins no bucket.
    const double bucket = std::min(std::floor((at(row) - at.first()) * scale), count - 1.0);
    if (bucket != current) buckets.push_back({row, row});
    current = bucket;
    buckets.back().last = row;
  }
  return buckets;
}

// Where the rows themselves do not fit. Missing where there is no value.
std::array<Double, kPerBucket> four_values(const Double* values, const Double* x,
                                           const RowBucket& bucket) {
  std::array<int, kPerBucket> rows{-1, -1, -1, -1};
  auto& [first, least, largest, last] = rows;
  for (int row = bucket.first; row <= bucket.last; ++row) {
    if (std::isnan(values[row]) || std::isnan(x[row])) continue;
    if (first < 0) rows.fill(row);
    if (values[row] < values[least]) least = row;
    if (values[row] > values[largest]) largest = row;
    last = row;
  }
  if (first < 0) return {kNoValue, kNoValue, kNoValue, kNoValue};
  if (largest < least) std::swap(least, largest);
  return {values[first], values[least], values[largest], values[last]};
}

// x of the first and the last row, and of two rows between.
std::array<Double, kPerBucket> four_positions(const Double* x, const RowBucket& bucket) {
  std::array<Double, kPerBucket> result{};
  for (int i = 0; i < kPerBucket; ++i) {
    int row = bucket.first + static_cast<int>(std::int64_t{i} * (bucket.last - bucket.first) / 3);
    while (std::isnan(x[row])) ++row;  // the last one has x
    result[static_cast<std::size_t>(i)] = x[row];
  }
  return result;
}

}  // namespace

Matrix<Double> mixed_rows(const Matrix<Double>& values, const RowPositions& at, int points) {
  const std::vector<RowBucket> buckets = row_buckets(at, points / kPerBucket);
  int count = 0;
  for (const RowBucket& bucket : buckets) count += bucket.points();
  Matrix<Double> result(1, values.upper_column(), 1, count);
  const Double* const x = &values(1, 1);
  for (int column = 1; column <= values.upper_column(); ++column) {
    const Double* const source = &values(column, 1);
    const Column<Double> target = result.column(column);
    int point = 0;
    for (const RowBucket& bucket : buckets) {
      if (bucket.last - bucket.first < kPerBucket) {
        for (int row = bucket.first; row <= bucket.last; ++row) target(++point) = source[row];
        continue;
      }
      const auto four = column == 1 ? four_positions(x, bucket) : four_values(source, x, bucket);
      for (const Double value : four) target(++point) = value;
    }
  }
  return result;
}

}  // namespace kurv::app
