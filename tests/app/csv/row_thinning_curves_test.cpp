#include <gtest/gtest.h>

#include <vector>

#include "tests/app/csv/thinned_pictures.h"

namespace kurv::app {
namespace {

std::vector<Curve> random_walks(unsigned count) {
  std::vector<Curve> curves;
  for (unsigned seed = 1; seed <= count; ++seed) curves.push_back(random_walk(seed));
  return curves;
}

// Each with its own phase, so that their extremes are in different rows.
std::vector<Curve> noisy_sines(unsigned count, int rows) {
  std::vector<Curve> curves;
  for (unsigned seed = 1; seed <= count; ++seed) {
    curves.push_back([n = Noise(seed), seed, rows](int row) mutable {
      return sine(row, 5, rows) + seed + 0.1 * n.normal();
    });
  }
  return curves;
}

class RowThinningOfCurves : public testing::TestWithParam<unsigned> {};

TEST_P(RowThinningOfCurves, KeepsThePicture) {
  constexpr int kRows = 200'000;
  expect_same_picture(table_of(kRows, curves_of_noise(GetParam())), "noise");
  expect_same_picture(table_of(kRows, random_walks(GetParam())), "random walks");
  expect_same_picture(table_of(kRows, noisy_sines(GetParam(), kRows)), "noisy sines");
}

INSTANTIATE_TEST_SUITE_P(FromFourToSeven, RowThinningOfCurves, testing::Range(4u, 8u));

}  // namespace
}  // namespace kurv::app
