// The document's data beside the arrays of the host that they came from.
#include <gtest/gtest.h>

#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::flags;
using test::names;
using test::points;
using test::TestHost;

// A host's array of two columns, each 3, 1, 2, and views of it that were taken before any call. The
// parameter is its lower bound.
class HostArrays : public testing::TestWithParam<int> {
 protected:
  HostArrays() {
    for (const int c : {1, 2}) {
      m_views.push_back(m_matrix.column(c));
      m_views.back()(1) = 3;
      m_views.back()(2) = 1;
      m_views.back()(3) = 2;
    }
  }

  void write_through_views() {
    for (const Column<Double>& view : m_views) {
      for (const int i : {1, 2, 3}) view(i) = -100;
    }
  }

  // Expects all three copies of a column as they were loaded.
  void expect_as_loaded(int column) {
    const GraphDocument& document = m_host.document();
    for (const Matrix<Double>* copy : {&document.xyArr, &document.xyArrUnsorted}) {
      EXPECT_EQ((*copy)(column, 1), 3);
      EXPECT_EQ((*copy)(column, 2), 1);
      EXPECT_EQ((*copy)(column, 3), 2);
    }
    for (const int i : {1, 2, 3}) EXPECT_EQ(document.xyArrSorted(column, i), i);
  }

  Matrix<Double> m_matrix{GetParam(), 2, GetParam(), 3};
  std::vector<Column<Double>> m_views;
  TestHost m_host;
};

TEST_P(HostArrays, ViewsTakenBeforeDoNotReachTheDocument) {
  m_host.control.scatter_graph(m_matrix, points({3, 1, 2}), 3, 2, String("T"), "x",
                               names({"a", "b"}), 0, {});
  write_through_views();
  for (const int column : {1, 2, 3}) expect_as_loaded(column);
}

TEST_P(HostArrays, ViewsOfACombinedMatrixTakenBeforeDoNotReachTheDocument) {
  m_host.control.scatter_graph2("T", m_matrix, names({"x", "a"}), 3, 1, flags({true}), 0, {});
  write_through_views();
  for (const int column : {1, 2}) expect_as_loaded(column);
}

TEST_P(HostArrays, EditsOfTheDocumentDoNotReachThem) {
  m_host.control.scatter_graph2("T", m_matrix, names({"x", "a"}), 3, 1, flags({true}), 0, {});
  m_host.control.set_SortXY(true);
  m_host.control.build_the_graph();
  m_host.document().xyArrUnsorted(2, 1) = 50;
  EXPECT_EQ(m_matrix(2, 1), 3);
  EXPECT_EQ(m_matrix(1, 2), 1);
}

INSTANTIATE_TEST_SUITE_P(LowerBounds, HostArrays, testing::Values(0, 1, -3));

}  // namespace
}  // namespace kurv
