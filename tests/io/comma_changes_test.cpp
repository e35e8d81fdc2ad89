// What a graph file does not keep: exactly what another graph has after it was written and read.
#include "io/comma_changes.h"

#include <gmock/gmock.h>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;
using Kind = CommaChange::Kind;

struct CommaChangesTest : testing::Test {
  CommaChangesTest() {
    document.NumData = 2;
    document.NumY = 2;
    document.NumYFunc = 2;
    document.xyArr = Matrix<Double>(0, 150, 0, 2);
    document.xyArr(1, 2) = 1;
    document.yVarName = test::names({"x", "y", "z"});
    document.y_func(1).expression = "x^2";
    document.y_func(2).expression = "2*x";
  }

  GraphDocument document;
};

TEST_F(CommaChangesTest, AreNoneWithoutCommas) {
  document.xyArr(2, 1) = 1.5;
  EXPECT_THAT(comma_changes(document, '.'), IsEmpty());
}

TEST_F(CommaChangesTest, OfACurveMoveTheNamesAfterIt) {
  document.yVarName(2) = "a,b";
  const std::vector<CommaChange> changes = comma_changes(document, '.');
  EXPECT_THAT(changes,
              ElementsAre(FieldsAre(Kind::kCurve, "a,b", "a"), FieldsAre(Kind::kCurve, "z", "b")));
  EXPECT_TRUE(changes[0].is_split());
  EXPECT_FALSE(changes[1].is_split());
}

TEST_F(CommaChangesTest, OfXMoveAllNames) {
  document.yVarName(1) = "a,b,";
  EXPECT_THAT(comma_changes(document, '.'),
              ElementsAre(FieldsAre(Kind::kVariable, "a,b,", "a"),
                          FieldsAre(Kind::kCurve, "y", "b"), FieldsAre(Kind::kCurve, "z", "")));
}

TEST_F(CommaChangesTest, OfTheLastNameAreItsOwn) {
  document.yVarName(3) = ",z";
  EXPECT_THAT(comma_changes(document, '.'), ElementsAre(FieldsAre(Kind::kCurve, ",z", "")));
}

TEST_F(CommaChangesTest, OfAFunctionMoveTheFunctionsAfterIt) {
  document.y_func(1).expression = "max(x,2)";
  EXPECT_THAT(comma_changes(document, '.'),
              ElementsAre(FieldsAre(Kind::kFunction, "max(x,2)", "max(x"),
                          FieldsAre(Kind::kFunction, "2*x", "2)")));
}

TEST_F(CommaChangesTest, ALineBreakIsNone) {
  document.yVarName(2) = "a\r\nb";
  EXPECT_THAT(comma_changes(document, '.'), IsEmpty());
}

TEST_F(CommaChangesTest, NameTheFirstNumberThatADecimalCommaSplits) {
  EXPECT_THAT(comma_changes(document, ','), IsEmpty());
  document.xyArr(2, 1) = 1.5;
  document.xyArr(3, 1) = 2.5;
  EXPECT_THAT(comma_changes(document, ','), ElementsAre(FieldsAre(Kind::kNumber, "1,5", "1")));
}

}  // namespace
}  // namespace kurv
