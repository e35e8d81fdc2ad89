#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <random>
#include <utility>

#include "model/data_set.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kInf = std::numeric_limits<Double>::infinity();

class CountingSwap final : public SwapService {
 public:
  void exchange(Double& first, Double& second) const override {
    ++calls;
    std::swap(first, second);
  }
  mutable long calls = 0;
};

GraphDocument document_with(const std::vector<Double>& x) {
  GraphDocument document;
  document.NumData = static_cast<Integer>(x.size());
  document.NumY = 2;
  document.xyArr = Matrix<Double>(0, 150, 0, document.NumData);
  for (int i = 1; i <= document.NumData; ++i) {
    document.xyArr(1, i) = x[static_cast<std::size_t>(i - 1)];
    document.xyArr(2, i) = i;
    document.xyArr(3, i) = -i;
  }
  return document;
}

// The reference: a plain selection sort in O(n^2).
void sort_by_selection(GraphDocument& document) {
  const auto x = document.xyArr.column(1);
  for (int i = 1; i <= document.NumData - 1; ++i) {
    int m = i;
    for (int j = i + 1; j <= document.NumData; ++j) {
      if (x(j) < x(m)) m = j;
    }
    if (m == i) continue;
    for (int c = 1; c <= document.NumY + 1; ++c) {
      std::swap(document.xyArr(c, i), document.xyArr(c, m));
    }
  }
}

void expect_same_order(const std::vector<Double>& x) {
  GraphDocument expected = document_with(x);
  sort_by_selection(expected);
  GraphDocument actual = document_with(x);
  Sort_xy(actual, *library_services().swap);
  for (int i = 1; i <= actual.NumData; ++i) {
    // Column 2 holds where the point came from, so it also distinguishes equal values.
    ASSERT_EQ(actual.xyArr(2, i), expected.xyArr(2, i)) << "at place " << i;
    ASSERT_EQ(actual.xyArr(3, i), expected.xyArr(3, i)) << "at place " << i;
  }
}

TEST(SortXy, MovesPointsWhole) {
  test::TestHost host;
  host.load({3, 1, 2}, {30, 10, 20});
  host.surface.clear_log();
  host.control.Sort_xy();
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(host.document().xyArr(1, i), i);
    EXPECT_EQ(host.document().xyArr(2, i), 10 * i);
  }
  EXPECT_EQ(host.surface.log(), "") << "sorting does not redraw";
}

TEST(SortXy, EqualsSelectionSortOnSmallCases) {
  // All sequences of length 6 over four values and NaN: ties in every arrangement.
  const Double values[] = {-kInf, 0, 1, kInf, kNaN};
  for (int code = 0; code < 15625; ++code) {
    std::vector<Double> x;
    for (int rest = code, n = 0; n < 6; ++n, rest /= 5) x.push_back(values[rest % 5]);
    SCOPED_TRACE(code);
    expect_same_order(x);
    if (HasFatalFailure()) return;
  }
}

TEST(SortXy, EqualsSelectionSortOnRandomDataWithTiesNanAndInfinities) {
  std::mt19937 generator(20261121);
  for (const int distinct : {2, 5, 40, 1000000}) {
    for (const int length : {1, 2, 17, 300, 1500}) {
      std::uniform_int_distribution<int> pick(0, distinct + 2);
      std::vector<Double> x;
      for (int i = 0; i < length; ++i) {
        const int value = pick(generator);
        x.push_back(value == distinct       ? kNaN
                    : value == distinct + 1 ? kInf
                    : value == distinct + 2 ? -kInf
                                            : value);
      }
      SCOPED_TRACE(testing::Message() << distinct << " values, length " << length);
      expect_same_order(x);
      if (HasFatalFailure()) return;
    }
  }
}

TEST(SortXy, EqualsSelectionSortOnNumbersOfEveryMagnitude) {
  std::mt19937_64 generator(11);
  std::vector<Double> x{5e-324, -5e-324, 0, -0.0, 1e308, -1e308, kNaN, -kNaN, kInf, -kInf};
  while (x.size() < 1500) x.push_back(std::bit_cast<Double>(generator()));
  std::shuffle(x.begin(), x.end(), generator);
  expect_same_order(x);
}

TEST(SortXy, ZerosOfBothSignsAreEqual) {
  expect_same_order({0.0, -0.0, 1, -0.0, 0.0, -1});
}

TEST(SortXy, EveryExchangeOfEveryColumnGoesThroughTheService) {
  GraphDocument document = document_with({3, 1, 2});
  const CountingSwap swap;
  Sort_xy(document, swap);
  EXPECT_EQ(swap.calls, 2 * 3) << "two exchanges of three columns";
}

// The built-in service has different code for many exchanges and for few.
TEST(SortXy, PointsAreExchangedAsOneByOneWhereFewOrManyMove) {
  for (const int moved : {0, 1, 2, 24, 25, 26, 60, 100}) {
    Matrix<Double> expected(0, 3, 0, 100);
    for (int c = 1; c <= 3; ++c) {
      for (int i = 0; i <= 100; ++i) expected(c, i) = 1000 * c + i;
    }
    Matrix<Double> actual = expected;
    const Matrix<Double> before = expected;
    std::mt19937 generator(static_cast<unsigned>(moved));
    std::vector<Exchange> pairs;
    for (int i = 1; i <= moved; ++i) pairs.push_back({i, 1 + static_cast<int>(generator() % 100)});

    CountingSwap().exchange_points(expected, 2, pairs);
    library_services().swap->exchange_points(actual, 2, pairs);
    for (int c = 1; c <= 2; ++c) {
      for (int i = 0; i <= 100; ++i) ASSERT_EQ(actual(c, i), expected(c, i)) << moved;
    }
    EXPECT_EQ(actual(3, 1), before(3, 1)) << "what lies beyond stays";
    EXPECT_EQ(before(1, 1), 1001) << "and so does a copy";
  }
}

TEST(SortXy, NoPairsExchangeNothingOfNothing) {
  Matrix<Double> values(0, 2, 1, 0);
  library_services().swap->exchange_points(values, 2, {});
  EXPECT_EQ(values.upper_point(), 0);
}

// A host's service that overrides exchange_all() is called once for each column.
TEST(SortXy, AServiceThatExchangesColumnsIsAskedForEachInTurn) {
  struct ByColumns final : SwapService {
    void exchange(Double& a, Double& b) const override { std::swap(a, b); }
    void exchange_all(const Column<Double>& values,
                      std::span<const Exchange> pairs) const override {
      firsts.push_back(values(1));
      SwapService::exchange_all(values, pairs);
    }
    mutable std::vector<Double> firsts;
  };
  GraphDocument document = document_with({3, 1, 2});
  const std::vector<Double> before = {document.xyArr(1, 1), document.xyArr(2, 1),
                                      document.xyArr(3, 1)};
  const ByColumns service;
  Sort_xy(document, service);
  EXPECT_EQ(service.firsts, before);
  EXPECT_EQ(document.xyArr(1, 1), 1);
}

TEST(SortXy, SortedDataNeedNoExchange) {
  GraphDocument document = document_with({-kInf, 1, kNaN, 1, 2, kInf});
  const CountingSwap swap;
  Sort_xy(document, swap);
  EXPECT_EQ(swap.calls, 0);
}

TEST(SortXy, LargestDataSetReversedTakesHalfAsManyExchanges) {
  std::vector<Double> x;
  for (int i = 32767; i >= 1; --i) x.push_back(i);
  GraphDocument document = document_with(x);
  const CountingSwap swap;
  Sort_xy(document, swap);
  EXPECT_EQ(swap.calls, 3L * (32767 / 2));
  for (int i = 1; i <= 32767; ++i) ASSERT_EQ(document.xyArr(1, i), i);
}

TEST(SortXy, EmptyDocumentHasNothingToSort) {
  GraphDocument document;
  EXPECT_NO_THROW(Sort_xy(document, *library_services().swap));
}

}  // namespace
}  // namespace kurv
