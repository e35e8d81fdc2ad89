#include <KurvGraph/arrays.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kurv {
namespace {

template <class Action>
void expect_out_of_range(Action action) {
  try {
    action();
    ADD_FAILURE() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kSubscriptOutOfRange);
  }
}

TEST(List, IsEmptyByDefault) {
  List<int> list;
  EXPECT_EQ(list.lower(), 0);
  EXPECT_EQ(list.upper(), -1);
  expect_out_of_range([&] { list(0); });
  expect_out_of_range([&] { list(-1); });
}

TEST(List, StartsWithValueInitialisedElementsAtItsOwnLowerBound) {
  const List<double> list(-2, 3);
  EXPECT_EQ(list.lower(), -2);
  EXPECT_EQ(list.upper(), 3);
  for (int k = -2; k <= 3; ++k) EXPECT_EQ(list(k), 0.0) << k;
}

TEST(List, ChecksEveryIndex) {
  List<int> list(1, 3);
  list(1) = 10;
  list(3) = 30;
  EXPECT_EQ(list(1), 10);
  EXPECT_EQ(list(3), 30);
  for (const int index :
       {0, 4, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    SCOPED_TRACE(index);
    expect_out_of_range([&] { list(index) = 1; });
    expect_out_of_range([&] { static_cast<const List<int>&>(list)(index); });
  }
}

TEST(List, MayHaveNoElementsButNotFewer) {
  const List<int> none(1, 0);
  EXPECT_EQ(none.upper(), 0);
  expect_out_of_range([&] { none(0); });
  expect_out_of_range([&] { none(1); });
  expect_out_of_range([] { List<int>(1, -1); });
  expect_out_of_range([] { List<int>(0, -2); });
}

TEST(List, TakesElementsOverFromAVector) {
  const List<std::string> list(1, std::vector<std::string>{"a", "b"});
  EXPECT_EQ(list.upper(), 2);
  EXPECT_EQ(list(1), "a");
  EXPECT_EQ(list(2), "b");
}

template <class T>
T only_element(const List<T>& list) {
  EXPECT_EQ(list.lower(), 1);
  EXPECT_EQ(list.upper(), 1);
  return list(1);
}

TEST(List, ElementsInBracesAreElementsAlsoWhereThereIsOne) {
  EXPECT_EQ(only_element<double>({1, {5}}), 5);
  EXPECT_EQ(only_element<double>({1, {2.5}}), 2.5);
  EXPECT_EQ(only_element<int>({1, {5}}), 5);
  EXPECT_EQ(only_element<std::string>({1, {"a"}}), "a");
  EXPECT_EQ((List<double>{1, {5, 6}}).upper(), 2);
  EXPECT_EQ((List<double>{1, {}}).upper(), 0);
  EXPECT_EQ((List<std::string>{0, {}}).upper(), -1);
  EXPECT_EQ((List<double>{1, 5}).upper(), 5) << "bounds";
}

TEST(List, BoundsAreIntegersThatFit) {
  static_assert(std::is_constructible_v<List<double>, int, short>);
  static_assert(!std::is_constructible_v<List<double>, int, long long>);
  static_assert(!std::is_constructible_v<List<double>, int, double>);
}

TEST(List, ResizeKeepsTheElementsThatFit) {
  List<int> list(1, std::vector<int>{10, 20, 30});
  list.resize_keeping(2);
  EXPECT_EQ(list, List<int>(1, std::vector<int>{10, 20}));
  list.resize_keeping(4);
  EXPECT_EQ(list, List<int>(1, std::vector<int>{10, 20, 0, 0}));
  list.resize_keeping(0);
  EXPECT_EQ(list, List<int>(1, 0));
}

TEST(List, ARefusedResizeChangesNothing) {
  List<int> list(1, std::vector<int>{10, 20});
  expect_out_of_range([&] { list.resize_keeping(-1); });
  EXPECT_EQ(list, List<int>(1, std::vector<int>{10, 20}));
}

TEST(List, ListsWithOtherBoundsDiffer) {
  EXPECT_EQ(List<int>(1, 2), List<int>(1, 2));
  EXPECT_NE(List<int>(1, 2), List<int>(0, 1));
}

TEST(Matrix, IsEmptyByDefault) {
  Matrix<int> matrix;
  EXPECT_EQ(matrix.lower_column(), 0);
  EXPECT_EQ(matrix.upper_column(), -1);
  EXPECT_EQ(matrix.lower_point(), 0);
  EXPECT_EQ(matrix.upper_point(), -1);
  expect_out_of_range([&] { matrix(0, 0); });
  expect_out_of_range([&] { matrix.column(0); });
}

TEST(Matrix, KeepsEveryElementApart) {
  Matrix<int> matrix(1, 3, 0, 4);
  for (int column = 1; column <= 3; ++column) {
    for (int point = 0; point <= 4; ++point) matrix(column, point) = 100 * column + point;
  }
  const Matrix<int> copy = matrix;
  matrix(2, 2) = -1;
  for (int column = 1; column <= 3; ++column) {
    for (int point = 0; point <= 4; ++point) {
      EXPECT_EQ(copy(column, point), 100 * column + point);
    }
  }
  EXPECT_NE(copy, matrix);
}

TEST(Matrix, ChecksBothIndices) {
  Matrix<int> matrix(1, 2, 1, 3);
  const Matrix<int>& constant = matrix;
  const std::pair<int, int> kOutside[] = {{0, 1}, {3, 1}, {1, 0}, {1, 4}, {2, 0}, {-1, -1}};
  for (const auto& [column, point] : kOutside) {
    SCOPED_TRACE(testing::Message() << column << ", " << point);
    const int c = column;
    const int p = point;
    expect_out_of_range([&] { matrix(c, p) = 1; });
    expect_out_of_range([&] { constant(c, p); });
  }
}

TEST(Matrix, ColumnsAreContiguousAndWriteThrough) {
  Matrix<double> matrix(1, 2, 1, 4);
  const Column<double> column = matrix.column(2);
  EXPECT_EQ(column.lower(), 1);
  EXPECT_EQ(column.upper(), 4);
  for (int point = 1; point <= 4; ++point) {
    EXPECT_EQ(&column(point), &column(1) + (point - 1));
    EXPECT_EQ(&column(point), &matrix(2, point));
  }
  column(3) = 2.5;
  EXPECT_EQ(matrix(2, 3), 2.5);
  EXPECT_EQ(matrix(1, 3), 0.0);
  expect_out_of_range([&] { column(0); });
  expect_out_of_range([&] { column(5); });
}

const double* data_of(const Matrix<double>& matrix, int column) {
  return &matrix(column, matrix.lower_point());
}

TEST(Matrix, CopiesShareAColumnUntilOneMayWriteIt) {
  Matrix<double> matrix(1, 3, 1, 4);
  for (int column = 1; column <= 3; ++column) matrix(column, 2) = column;
  Matrix<double> copy = matrix;
  for (int column = 1; column <= 3; ++column) {
    EXPECT_EQ(data_of(matrix, column), data_of(copy, column));
  }
  copy(2, 2) = -2;
  EXPECT_EQ(matrix(2, 2), 2);
  EXPECT_EQ(data_of(matrix, 1), data_of(copy, 1));
  EXPECT_NE(data_of(matrix, 2), data_of(copy, 2));
  EXPECT_EQ(data_of(matrix, 3), data_of(copy, 3));
}

TEST(Matrix, WritingTheOriginalLeavesItsCopies) {
  Matrix<double> matrix(1, 1, 1, 3);
  matrix(1, 1) = 5;
  const Matrix<double> first = matrix;
  const Matrix<double> second = first;
  matrix(1, 1) = 6;
  EXPECT_EQ(first(1, 1), 5);
  EXPECT_EQ(second(1, 1), 5);
  EXPECT_EQ(data_of(first, 1), data_of(second, 1));
  Matrix<double> assigned(1, 1, 1, 3);
  assigned = matrix;
  assigned(1, 1) = 7;
  EXPECT_EQ(matrix(1, 1), 6);
}

TEST(Matrix, AColumnThatIsItsOwnIsWrittenWhereItIs) {
  Matrix<double> matrix(1, 1, 1, 3);
  matrix(1, 1) = 1;
  const double* const place = data_of(matrix, 1);
  {
    const Matrix<double> copy = matrix;
    EXPECT_EQ(data_of(copy, 1), place);
  }
  matrix(1, 2) = 2;
  EXPECT_EQ(data_of(matrix, 1), place);
}

TEST(Matrix, ReadingAConstantOneKeepsItShared) {
  Matrix<double> matrix(1, 2, 1, 3);
  matrix(1, 1) = 4;
  const Matrix<double> copy = matrix;
  EXPECT_EQ(copy(1, 1), 4);
  EXPECT_EQ(copy.column(1)(1), 4);
  EXPECT_EQ(std::as_const(matrix)(1, 1), 4);
  EXPECT_EQ(copy, matrix);
  EXPECT_EQ(data_of(copy, 1), data_of(matrix, 1));
}

// A column that was never accessed is not allocated; each copy allocates its own.
TEST(Matrix, ColumnsNeverAccessedStaySeparate) {
  Matrix<double> matrix(1, 2, 1, 3);
  Matrix<double> copy = matrix;
  copy(1, 2) = 8;
  EXPECT_EQ(matrix(1, 2), 0);
  matrix(2, 2) = 9;
  EXPECT_EQ(copy(2, 2), 0);
}

TEST(Matrix, EqualityIsThatOfTheValuesHoweverTheyAreKept) {
  Matrix<double> matrix(1, 2, 1, 3);
  EXPECT_EQ(matrix, Matrix<double>(1, 2, 1, 3));
  Matrix<double> copy = matrix;
  matrix(1, 1) = 1;
  EXPECT_NE(copy, matrix);
  copy(1, 1) = 1;
  EXPECT_EQ(copy, matrix) << "equal values in columns of their own";
  EXPECT_NE(matrix, Matrix<double>(0, 1, 1, 3));
  EXPECT_NE(matrix, Matrix<double>(1, 2, 0, 2));
  EXPECT_NE(matrix, Matrix<double>(1, 3, 1, 3));
  EXPECT_NE(matrix, Matrix<double>(1, 2, 1, 4));
}

TEST(Matrix, TakesAColumnOverFromAVector) {
  Matrix<double> matrix(0, 2, 0, 3);
  std::vector<double> values{0, 1, 2, 3};
  const double* const where = values.data();
  matrix.set_column(2, std::move(values));
  EXPECT_EQ(&std::as_const(matrix).column(2)(0), where);
  EXPECT_EQ(matrix(2, 3), 3);
  EXPECT_EQ(matrix(1, 3), 0);
}

TEST(Matrix, RefusesAColumnOfAnotherLengthOrPlace) {
  Matrix<double> matrix(0, 2, 0, 3);
  const Matrix<double> before = matrix;
  EXPECT_THROW(matrix.set_column(2, {1, 2, 3}), Fault);
  EXPECT_THROW(matrix.set_column(3, {0, 1, 2, 3}), Fault);
  EXPECT_EQ(matrix, before);
}

TEST(Matrix, ACopiedColumnIsOutOfReachOfViewsOfItsSource) {
  Matrix<double> source(0, 1, 0, 3);
  const Column<double> view = source.column(1);
  for (int point = 0; point <= 3; ++point) view(point) = point;
  Matrix<double> matrix(0, 2, 0, 3);
  matrix.copy_column(2, source, 1);
  EXPECT_EQ(matrix(2, 3), 3);
  EXPECT_NE(data_of(matrix, 2), data_of(source, 1));
  view(3) = -3;
  source(1, 2) = -2;
  EXPECT_EQ(matrix(2, 3), 3);
  EXPECT_EQ(matrix(2, 2), 2);
}

TEST(Matrix, AColumnIsCopiedAlsoBetweenOtherBounds) {
  Matrix<double> source(1, 1, 1, 4);
  for (int point = 1; point <= 4; ++point) source(1, point) = point;
  Matrix<double> matrix(0, 2, 0, 3);
  matrix.copy_column(1, source, 1);
  EXPECT_EQ(matrix(1, 0), 0);
  for (int point = 1; point <= 3; ++point) EXPECT_EQ(matrix(1, point), point);
  Matrix<double> longer(0, 2, 0, 5);
  expect_out_of_range([&] { longer.copy_column(1, source, 1); });
  expect_out_of_range([&] { matrix.copy_column(1, source, 2); });
  expect_out_of_range([&] { matrix.copy_column(3, source, 1); });
}

TEST(Matrix, ASharedColumnIsCopiedWhenOneOfTheTwoMayWriteIt) {
  Matrix<double> source(1, 1, 1, 3);
  source(1, 2) = 2;
  Matrix<double> matrix(0, 2, 1, 3);
  matrix.share_column(2, source, 1);
  EXPECT_EQ(data_of(matrix, 2), data_of(source, 1));
  source(1, 2) = -2;
  EXPECT_EQ(matrix(2, 2), 2);
}

TEST(Matrix, SharesNoColumnBetweenOtherBounds) {
  const Matrix<double> source(1, 1, 1, 3);
  Matrix<double> matrix(1, 1, 0, 2);
  expect_out_of_range([&] { matrix.share_column(1, source, 1); });
  Matrix<double> longer(1, 1, 1, 4);
  expect_out_of_range([&] { longer.share_column(1, source, 1); });
  Matrix<double> alike(1, 1, 1, 3);
  expect_out_of_range([&] { alike.share_column(1, source, 2); });
  expect_out_of_range([&] { alike.share_column(2, source, 1); });
}

TEST(Matrix, MovedOneTakesItsColumnsAlong) {
  Matrix<double> matrix(1, 1, 1, 3);
  matrix(1, 3) = 3;
  const double* const place = data_of(matrix, 1);
  const Matrix<double> taken = std::move(matrix);
  EXPECT_EQ(data_of(taken, 1), place);
  EXPECT_EQ(taken(1, 3), 3);
}

TEST(Matrix, MayHaveColumnsWithoutPointsAndPointsWithoutColumns) {
  const Matrix<int> no_points(1, 3, 1, 0);
  EXPECT_EQ(no_points.column(3).upper(), 0);
  expect_out_of_range([&] { no_points(1, 1); });
  const Matrix<int> no_columns(1, 0, 1, 3);
  expect_out_of_range([&] { no_columns(1, 1); });
}

TEST(Matrix, RefusesBoundsBelowZeroElements) {
  expect_out_of_range([] { Matrix<int>(1, -1, 1, 3); });
  expect_out_of_range([] { Matrix<int>(1, 3, 1, -1); });
}

}  // namespace
}  // namespace kurv
