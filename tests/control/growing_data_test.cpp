#include "control/growing_data.h"

#include <gmock/gmock.h>

#include "control/control_state.h"
#include "control/curve_edits.h"
#include "control/table_edits.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

using testing::ElementsAre;

class GrowingData : public testing::Test {
 protected:
  void SetUp() override {
    const Matrix<Double> data = rows({{1, 10, 100}, {2, 20, 200}});
    control.scatter_graph2("Title", data, names({"t", "up", "down"}), 2, 2,
                           List<Boolean>(1, {true, true}), 0, {}, true, false);
  }

  static Matrix<Double> rows(const std::vector<std::vector<Double>>& table) {
    Matrix<Double> result(1, static_cast<int>(table.front().size()), 1,
                          static_cast<int>(table.size()));
    for (int i = 1; const std::vector<Double>& row : table) {
      for (int c = 1; const Double value : row) result(c++, i) = value;
      ++i;
    }
    return result;
  }
  static List<String> names(std::vector<String> texts) { return {1, std::move(texts)}; }
  std::vector<Double> values(int column) const {
    std::vector<Double> found;
    for (int i = 1; i <= document.NumData; ++i) found.push_back(document.xyArrUnsorted(column, i));
    return found;
  }

  test::TestHost host;
  Control& control = host.control;
  GraphDocument& document = host.document();
};

TEST_F(GrowingData, PointsAreAppendedAndTheLimitsFollow) {
  control.append_points(rows({{3, 30, 300}, {4, 40, 400}}));
  EXPECT_EQ(document.NumData, 4);
  EXPECT_THAT(values(1), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(values(3), ElementsAre(100, 200, 300, 400));
  EXPECT_EQ(document.xmax, 4);
  EXPECT_FALSE(document.GraphSaved);
}

TEST_F(GrowingData, WhatTheUserHasSetStays) {
  control.set_Title("Mine");
  control.set_Autoscale(false);
  control.set_xmax(10);
  control.set_AxisLabelFormatX("0.000");
  ASSERT_EQ(control.add_function("x^2"), std::nullopt);
  document.yVarName(3) = "renamed";
  set_curve_visible(control.state(), 1, false);
  control.append_points(rows({{30, 30, 300}}));
  EXPECT_EQ(document.Title, "Mine");
  EXPECT_EQ(document.xmax, 10);
  EXPECT_EQ(document.AxisLabelFormatX, "0.000");
  EXPECT_THAT(control.functions(), ElementsAre("x^2"));
  EXPECT_EQ(document.yVarName(3), "renamed");
  EXPECT_FALSE(static_cast<bool>(document.y_visible(1)));
}

TEST_F(GrowingData, LabelFormatsFollowTheLimitsUnlessTheUserHasSetThem) {
  EXPECT_EQ(document.AxisLabelFormatX, "0.00");
  control.append_points(rows({{20000, 1, 1}}));
  EXPECT_EQ(document.AxisLabelFormatX, "0.00E+0");
  control.replace_points(rows({{1, 1, 1}, {5, 2, 2}}), names({"t", "up", "down"}));
  EXPECT_EQ(document.AxisLabelFormatX, "0.00");
}

TEST_F(GrowingData, ColumnsReachTheirPlacesAlsoWhereTheUserHasChosenAnotherX) {
  choose_x(control.state(), "down");
  control.append_points(rows({{3, 30, 300}}));
  EXPECT_THAT(values(1), ElementsAre(100, 200, 300));
  EXPECT_THAT(values(2), ElementsAre(10, 20, 30));
  EXPECT_THAT(values(3), ElementsAre(1, 2, 3));
  EXPECT_EQ(document.yVarName(1), "down");
}

TEST_F(GrowingData, DerivedCurvesAreComputedForTheNewPoints) {
  ASSERT_EQ(control.derive("sum", "up+down"), std::nullopt);
  ASSERT_EQ(control.derive("twice", "2*sum"), std::nullopt);
  document.yVarName(2) = "renamed";
  choose_x(control.state(), "sum");
  control.append_points(rows({{3, 30, 300}}));
  EXPECT_THAT(values(1), ElementsAre(110, 220, 330));
  EXPECT_THAT(values(5), ElementsAre(220, 440, 660));
}

TEST_F(GrowingData, EditedCellsStayAndAreCounted) {
  EXPECT_EQ(control.cell_edits(), 0U);
  ASSERT_EQ(apply_table_edits(control.state(), {{1, 2, 15}}), std::nullopt);
  EXPECT_EQ(control.cell_edits(), 1U);
  control.append_points(rows({{3, 30, 300}}));
  EXPECT_THAT(values(2), ElementsAre(15, 20, 30));
  EXPECT_EQ(control.cell_edits(), 1U);
}

TEST_F(GrowingData, TheFirstPointsAreDroppedBeyondTheMost) {
  Matrix<Double> many(1, 3, 1, kMaxPoints - 1);
  for (int i = 1; i <= many.upper_point(); ++i) many(1, i) = 2 + i;
  control.append_points(many);
  EXPECT_EQ(document.NumData, kMaxPoints);
  EXPECT_EQ(document.xyArrUnsorted(1, 1), 2);
  EXPECT_EQ(document.xmin, 2);
  Matrix<Double> more(1, 3, 1, kMaxPoints + 10);
  for (int i = 1; i <= more.upper_point(); ++i) more(1, i) = i;
  control.append_points(more);
  EXPECT_EQ(document.NumData, kMaxPoints);
  EXPECT_EQ(document.xyArrUnsorted(1, 1), 11);
}

TEST_F(GrowingData, SortedPointsStaySorted) {
  control.set_SortXY(true);
  control.append_points(rows({{1.5, 15, 150}}));
  EXPECT_EQ(document.xyArr(1, 2), 1.5);
  EXPECT_THAT(values(1), ElementsAre(1, 2, 1.5));
}

TEST_F(GrowingData, ReplacedPointsKeepTheNamesThatTheUserHasChanged) {
  document.yVarName(2) = "renamed";
  control.replace_points(rows({{5, 1, 2}, {6, 3, 4}, {7, 5, 6}}), names({"minutes", "u", "d"}));
  EXPECT_EQ(document.NumData, 3);
  EXPECT_THAT(values(1), ElementsAre(5, 6, 7));
  EXPECT_EQ(document.yVarName(1), "minutes");
  EXPECT_EQ(document.yVarName(2), "renamed");
  EXPECT_EQ(document.yVarName(3), "d");
}

TEST_F(GrowingData, LimitsStayWhereAllValuesOfXHaveBecomeTheSame) {
  control.replace_points(rows({{5, 1, 2}, {5, 3, 4}}), names({"t", "up", "down"}));
  EXPECT_EQ(document.xmin, 1);
  EXPECT_EQ(document.xmax, 2);
}

TEST_F(GrowingData, AnotherNumberOfColumnsIsRefusedAndNothingChanges) {
  EXPECT_THROW(control.append_points(rows({{3, 30}})), Fault);
  EXPECT_EQ(document.NumData, 2);
}

}  // namespace
}  // namespace kurv
