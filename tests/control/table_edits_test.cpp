#include "control/table_edits.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdio>
#include <limits>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();
constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr const char* kAllTheSame = "Graph cannot be plotted when all x values are the same.";

class TableEdits : public testing::Test {
 protected:
  void SetUp() override {
    host.load({3, 1, 2}, {30, 10, 20});
    redraws();
  }
  std::optional<String> apply(std::vector<CellEdit> edits) {
    return apply_table_edits(host.control.state(), std::move(edits));
  }
  void sort(bool on) {
    host.control.set_SortXY(on);
    host.control.build_the_graph();
    redraws();
  }
  int redraws() {
    const std::string log = host.surface.log();
    host.surface.clear_log();
    int count = 0;
    for (std::size_t at = log.find("cls\n"); at != log.npos; at = log.find("cls\n", at + 1)) {
      ++count;
    }
    return count;
  }
  std::vector<Double> values(const Matrix<Double>& matrix, int c) {
    std::vector<Double> found;
    for (int i = 1; i <= document.NumData; ++i) found.push_back(matrix(c, i));
    return found;
  }

  test::TestHost host;
  GraphDocument& document = host.document();
};

TEST_F(TableEdits, AValueGoesIntoBothOrdersAndIsDrawnOnce) {
  EXPECT_EQ(apply({{1, 2, 35}, {2, 2, 15}}), std::nullopt);
  EXPECT_THAT(values(document.xyArrUnsorted, 2), ElementsAre(35, 15, 20));
  EXPECT_THAT(values(document.xyArrSorted, 2), ElementsAre(15, 20, 35));
  EXPECT_THAT(values(document.xyArr, 2), ElementsAre(35, 15, 20));
  EXPECT_EQ(redraws(), 1);
  EXPECT_FALSE(document.GraphSaved);
}

TEST_F(TableEdits, ARowOfTheSortedTableFindsItsPoint) {
  sort(true);
  EXPECT_EQ(point_of_row(document, 1), 2);
  EXPECT_EQ(point_of_row(document, 2), 3);
  EXPECT_EQ(point_of_row(document, 3), 1);
  apply({{point_of_row(document, 1), 2, 11}});
  EXPECT_THAT(values(document.xyArrUnsorted, 2), ElementsAre(30, 11, 20));
  EXPECT_THAT(values(document.xyArr, 2), ElementsAre(11, 20, 30));
  sort(false);
  EXPECT_EQ(point_of_row(document, 1), 1);
  EXPECT_THAT(values(document.xyArr, 2), ElementsAre(30, 11, 20));
}

TEST_F(TableEdits, AnEditedXMovesItsRowAndNoOtherPoint) {
  sort(true);
  apply({{point_of_row(document, 1), 1, 9}});
  EXPECT_THAT(values(document.xyArrUnsorted, 1), ElementsAre(3, 9, 2));
  EXPECT_THAT(values(document.xyArr, 1), ElementsAre(2, 3, 9));
  EXPECT_THAT(values(document.xyArr, 2), ElementsAre(20, 30, 10));
  EXPECT_EQ(point_of_row(document, 3), 2);
}

TEST_F(TableEdits, LimitsFollowAutoscaleAlone) {
  const Double old_ymax = document.ymax;
  document.Autoscale = false;
  apply({{1, 2, 500}, {1, 1, 7}});
  EXPECT_EQ(document.ymax, old_ymax);
  EXPECT_EQ(document.xmax, 3);
  document.Autoscale = true;
  apply({{1, 2, 600}});
  EXPECT_GE(document.ymax, 600);
  EXPECT_EQ(document.xmax, 7);
}

TEST_F(TableEdits, AMissingValueStretchesNoAxis) {
  EXPECT_EQ(apply({{1, 2, kNaN}}), std::nullopt);
  EXPECT_TRUE(std::isnan(document.xyArr(2, 1)));
  EXPECT_EQ(document.ymax, 20);
  EXPECT_EQ(redraws(), 1);
}

TEST_F(TableEdits, WhatIsThereAlreadyCausesNoRedraw) {
  apply({{1, 2, kNaN}});
  redraws();
  document.GraphSaved = true;
  EXPECT_EQ(apply({{1, 1, 3}, {1, 2, kNaN}}), std::nullopt);
  EXPECT_EQ(apply({}), std::nullopt);
  EXPECT_EQ(redraws(), 0);
  EXPECT_TRUE(document.GraphSaved);
}

TEST_F(TableEdits, EqualXAreUndoneAndReportedWithTheValidationsMessage) {
  const Double old_xmax = document.xmax;
  EXPECT_EQ(apply({{1, 1, 5}, {1, 2, 99}, {2, 1, 5}, {3, 1, 5}}), kAllTheSame);
  EXPECT_THAT(values(document.xyArrUnsorted, 1), ElementsAre(3, 1, 2));
  EXPECT_THAT(values(document.xyArrUnsorted, 2), ElementsAre(30, 10, 20));
  EXPECT_THAT(values(document.xyArr, 1), ElementsAre(3, 1, 2));
  EXPECT_EQ(document.xmax, old_xmax);
  EXPECT_EQ(redraws(), 0);
}

TEST_F(TableEdits, MissingAndInfiniteXDoNotCountAsDifferent) {
  EXPECT_EQ(apply({{1, 1, kNaN}, {2, 1, kNaN}}), kAllTheSame);
  EXPECT_EQ(apply({{1, 1, kInf}, {2, 1, -kInf}}), kAllTheSame);
  EXPECT_EQ(apply({{1, 1, kNaN}, {2, 1, kNaN}, {3, 1, kNaN}}), kAllTheSame);
  EXPECT_EQ(apply({{1, 1, kNaN}}), std::nullopt) << "two are left";
  EXPECT_EQ(document.xmax, 2);
}

TEST_F(TableEdits, TwoEditsOfOneCellAreUndoneInReverse) {
  EXPECT_EQ(apply({{1, 1, 4}, {1, 1, 1}, {3, 1, 1}}), kAllTheSame);
  EXPECT_THAT(values(document.xyArrUnsorted, 1), ElementsAre(3, 1, 2));
}

TEST_F(TableEdits, ACellOutsideTheDataIsAFault) {
  EXPECT_THROW(apply({{4, 1, 1}}), Fault);
  EXPECT_THROW(apply({{1, 151, 1}}), Fault);
}

TEST_F(TableEdits, DataThatWereRefusedStayUndrawn) {
  host.load({4}, {7});
  host.shell.messages.clear();
  redraws();
  EXPECT_THAT(apply({{1, 2, 8}}).value_or(""), HasSubstr("1 or less x axis values."));
  EXPECT_EQ(document.xyArr(2, 1), 7);
  host.load({4, 4}, {7, 8});
  redraws();
  document.GraphSaved = true;
  EXPECT_EQ(apply({{2, 1, 5}}), std::nullopt);
  EXPECT_EQ(redraws(), 0) << "until an intake accepts data";
  EXPECT_FALSE(document.GraphSaved);
}

TEST_F(TableEdits, ADerivedCurveIsComputedFromWhatWasEdited) {
  sort(true);
  apply({{point_of_row(document, 1), 1, 9}});
  EXPECT_EQ(host.control.derive("d", "x+y"), std::nullopt);
  EXPECT_THAT(values(document.xyArrUnsorted, 1), ElementsAre(2, 3, 9))
      << "the sorted points are the host's order from now on";
  for (int row = 1; row <= 3; ++row) EXPECT_EQ(point_of_row(document, row), row);
  apply({{point_of_row(document, 2), 3, 0.5}});
  EXPECT_THAT(values(document.xyArr, 3), ElementsAre(22, 0.5, 19));
}

TEST_F(TableEdits, GoIntoTheFileAndComeBack) {
  const std::string path = testing::TempDir() + "edited.gdf";
  apply({{1, 2, 1.0 / 3}, {2, 1, 1e-7}});
  document.FileName = path;
  host.control.Save_graph();
  test::TestHost other;
  other.control.file_load(path);
  EXPECT_EQ(other.document().xyArrUnsorted(2, 1), 1.0 / 3);
  EXPECT_EQ(other.document().xyArrUnsorted(1, 2), 1e-7);
  EXPECT_EQ(other.document().sorted_places(1), 2);
  std::remove(path.c_str());
}

TEST_F(TableEdits, TheDemonstrationGraphTakesThemToo) {
  test::TestHost fresh;
  EXPECT_EQ(table_size(fresh.document()), (TableSize{10, 4}));
  apply_table_edits(fresh.control.state(), {{10, 4, 1.5}});
  EXPECT_EQ(fresh.document().xyArr(4, 10), 1.5);
  EXPECT_EQ(fresh.surface.log(), "");
}

TEST_F(TableEdits, AFailedRedrawLeavesTheValue) {
  document.NumTicks = 0;
  EXPECT_THROW(apply({{1, 2, 77}}), Fault);
  EXPECT_EQ(document.xyArrUnsorted(2, 1), 77);
}

TEST(TableData, FollowSortXYBeforeTheNextRedraw) {
  test::TestHost host;
  host.load({3, 1, 2}, {30, 10, 20});
  host.control.set_SortXY(true);
  EXPECT_EQ(table_data(host.document())(1, 1), 1);
  EXPECT_EQ(point_of_row(host.document(), 1), 2);
  host.control.set_SortXY(false);
  host.control.Sort_xy();
  EXPECT_EQ(table_data(host.document())(1, 1), 3) << "the next redraw brings the host's order back";
}

TEST(TableSizes, AreNeverLargerThanTheData) {
  GraphDocument document;
  EXPECT_EQ(table_size(document), TableSize());
  test::TestHost host;
  host.load({3, 1, 2}, {30, 10, 20});
  EXPECT_EQ(table_size(host.document()), (TableSize{3, 2}));
  // The arrays are too short, and the counts are stored by then.
  EXPECT_THROW(host.load({3, 1, 2, 4}, {1}), Fault);
  EXPECT_EQ(host.document().NumData, 4);
  EXPECT_EQ(table_size(host.document()).rows, 3);
}

TEST(TableSizes, EndWithTheLastColumnThatThereIs) {
  test::TestHost host;
  host.load({1, 2}, {3, 4});
  host.document().NumY = 150;
  EXPECT_EQ(table_size(host.document()).columns, 150);
}

}  // namespace
}  // namespace kurv
