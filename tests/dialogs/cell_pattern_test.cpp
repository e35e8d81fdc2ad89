// Which cells a text finds.
#include "dialogs/cell_pattern.h"

#include <gtest/gtest.h>

#include <limits>

namespace kurv::test {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

bool finds(const char* text, Double value, char separator = '.') {
  return CellPattern(QString::fromUtf8(text), separator).matches(value);
}

TEST(CellPattern, ANumberFindsItsValueAndMoreDecimalsOfIt) {
  EXPECT_TRUE(finds("12", 12));
  EXPECT_TRUE(finds("12", 12.5));
  EXPECT_TRUE(finds("12.", 12.5));
  EXPECT_TRUE(finds(" 12.50 ", 12.5));
  EXPECT_TRUE(finds("12.50", 12.503));
  EXPECT_TRUE(finds("0.333", 1.0 / 3));
  EXPECT_TRUE(finds(".333", 1.0 / 3));
  EXPECT_TRUE(finds("+3", 3.25));
  EXPECT_FALSE(finds("12", 13));
  EXPECT_FALSE(finds("12", 120));
  EXPECT_FALSE(finds("12", 1.2));
  EXPECT_FALSE(finds("12.50", 12.51));
  EXPECT_FALSE(finds("0.28", 0.29));
  EXPECT_TRUE(finds("0.29", 0.29));
}

TEST(CellPattern, TheSignCountsAlsoAtZero) {
  EXPECT_TRUE(finds("-12", -12.5));
  EXPECT_FALSE(finds("-12", -11.5));
  EXPECT_FALSE(finds("12", -12));
  EXPECT_TRUE(finds("0", 0.5));
  EXPECT_FALSE(finds("0", -0.5));
  EXPECT_TRUE(finds("-0", -0.5));
  EXPECT_FALSE(finds("-0", 0.5));
}

TEST(CellPattern, AnExponentIsExact) {
  EXPECT_TRUE(finds("1e20", 1e20));
  EXPECT_TRUE(finds("0.0000002", 2e-7));
  EXPECT_FALSE(finds("2", 2e-7));
  EXPECT_FALSE(finds("1e1", 10.5));
  EXPECT_FALSE(finds("100000000000000000000", 1.5e20));
}

TEST(CellPattern, HasTheSeparatorOfTheControl) {
  EXPECT_TRUE(finds("0,5", 0.5, ','));
  EXPECT_TRUE(finds("12", 12.5, ','));
  EXPECT_FALSE(finds("0.5", 0.5, ','));
}

TEST(CellPattern, MissingValuesAreNotFoundAndInfinitiesByTheirNames) {
  EXPECT_FALSE(finds("0", kNaN));
  EXPECT_FALSE(finds("nan", kNaN));
  EXPECT_TRUE(finds("inf", kInf));
  EXPECT_TRUE(finds("-Inf", -kInf));
  EXPECT_FALSE(finds("inf", -kInf));
  EXPECT_FALSE(finds("12", kInf));
  EXPECT_FALSE(finds("n/a", 0.5));
}

TEST(CellPattern, AnyTextIsFoundInTexts) {
  EXPECT_TRUE(CellPattern("N/A", '.').matches(QString("value n/a")));
  EXPECT_TRUE(CellPattern("12", '.').matches(QString("12 mm")));
  EXPECT_FALSE(CellPattern("12", '.').matches(QString("1 2")));
}

TEST(CellPattern, OnlyAFiniteNumberIsOne) {
  EXPECT_EQ(CellPattern("-1.5", '.').number(), -1.5);
  EXPECT_EQ(CellPattern("inf", '.').number(), std::nullopt);
  EXPECT_EQ(CellPattern("nan", '.').number(), std::nullopt);
  EXPECT_EQ(CellPattern("n/a", '.').number(), std::nullopt);
}

}  // namespace
}  // namespace kurv::test
