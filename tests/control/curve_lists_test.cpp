// What the lists of a window offer.
#include <algorithm>

#include "tests/control/curve_edits_fixture.h"

namespace kurv {
namespace {

using test::kNaN;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Double kInf = std::numeric_limits<Double>::infinity();

using CurveLists = test::CurveEdits;

// -- What can be x --------------------------------------------------------------------------------

TEST_F(CurveLists, XChoicesAreTheColumnsThatAreNotConstantWithXFirst) {
  load_three();
  EXPECT_THAT(x_choices(document()), ElementsAre("x", "a", "b"));
}

TEST_F(CurveLists, XChoicesLeaveOutColumnsWithoutTwoDifferentValues) {
  load({{1, 2, 3},
        {kNaN, kNaN, kNaN},
        {kNaN, 4, 4},
        {kNaN, 4, 5},
        {4, kNaN, 5},
        {kInf, kInf, kInf},
        {-0.0, 0.0, 0.0},
        {1e305, 1e305, 1e305},
        {1e305, 2e305, kNaN}},
       {"x", "empty", "flat", "late", "gap", "infinite", "zero", "huge flat", "huge"});
  EXPECT_THAT(x_choices(document()), ElementsAre("x", "late", "gap", "huge"));
}

TEST_F(CurveLists, XChoicesKeepNamesThatAreAlikeOrEmpty) {
  load({{1, 2}, {3, 4}, {5, 6}, {7, 8}}, {"a", "", "a", "b"});
  EXPECT_THAT(x_choices(document()), ElementsAre("a", "", "a", "b"));
}

TEST_F(CurveLists, TheListsOfAFreshControlShowItsDemonstrationData) {
  EXPECT_EQ(x_choices(document()).front(), "x");
  EXPECT_EQ(listed_curves(document()).size(), 3u);
  EXPECT_THAT(listed_functions(document()), IsEmpty());
}

TEST_F(CurveLists, TheListsHoldWhatIsThereAfterAnIntakeThatFailed) {
  load_three();
  // Names for fewer columns than there are; and more curves than the matrix has columns.
  EXPECT_THROW(load({{1, 2}, {3, 4}, {5, 6}}, {"x", "only"}), Fault);
  EXPECT_THAT(x_choices(document()), ElementsAre("x", "only"));
  EXPECT_THAT(listed_curves(document()), ElementsAre(ListedCurve{1, "only", true}));
  EXPECT_THROW(host.control.scatter_graph(Matrix<Double>(1, 200, 1, 2), test::points({1, 2}), 2,
                                          200, String(), "x", test::names({}), 0, {}),
               Fault);
  EXPECT_THAT(x_choices(document()).size(), 1u);
  EXPECT_THAT(listed_curves(document()), IsEmpty());
  document().NumY = -3;
  EXPECT_THAT(x_choices(document()), IsEmpty());
  EXPECT_THAT(listed_curves(document()), IsEmpty());
  document() = GraphDocument();
  EXPECT_THAT(x_choices(document()), IsEmpty());
  EXPECT_THAT(listed_curves(document()), IsEmpty());
}

// -- Which curves there are -----------------------------------------------------------------------

TEST_F(CurveLists, CurvesWithoutANameAreNotListed) {
  load({{1, 2}, {3, 4}, {5, 6}, {7, 8}}, {"x", "a", "", "c"});
  document().y_visible(3) = Boolean::from_bits(2);
  EXPECT_THAT(listed_curves(document()),
              ElementsAre(ListedCurve{1, "a", true}, ListedCurve{3, "c", true}));
}

TEST_F(CurveLists, AtMost149CurvesAreListed) {
  load_three();
  document().xyArr = Matrix<Double>(0, 250, 0, 3);
  document().yVarName = List<String>(0, 201);
  for (int c = 1; c <= 201; ++c) document().yVarName(c) = "c" + std::to_string(c);
  document().y_visible = List<Boolean>(0, 200);
  for (const int count : {148, 149, 150, 200}) {
    document().NumY = static_cast<Integer>(count);
    EXPECT_EQ(static_cast<int>(listed_curves(document()).size()), std::min(count, 149)) << count;
  }
}

TEST_F(CurveLists, FunctionsAreListedFromTheirSlots) {
  load({{1, 2}, {3, 4}}, {"x", "a"}, {"x", "", "x*x"});
  document().y_func(3).visible = false;
  EXPECT_THAT(listed_functions(document()),
              ElementsAre(ListedCurve{1, "x", true}, ListedCurve{3, "x*x", false}));
}

TEST_F(CurveLists, ACurveThatIsNotThereHasNoName) {
  load_three();
  EXPECT_EQ(curve_name(document(), 3), "flat");
  for (const int curve : {-1, 0, 4, 32767}) EXPECT_EQ(curve_name(document(), curve), "");
}

}  // namespace
}  // namespace kurv
