#include "control/read_out_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kurv {
namespace {

TEST(ReadOutText, HasAtLeastTheDecimalsOfTheLabelFormat) {
  EXPECT_EQ(place_text(3, "0.00", 0.5), "3.00");
  EXPECT_EQ(value_text(3, "0.00", 0.5), "3.00");
  EXPECT_EQ(place_text(1234.5, "#,##0", 2), "1,235");
}

TEST(ReadOutText, TellsPlacesApartThatAreAPixelApart) {
  EXPECT_EQ(place_text(315.7, "0", 0.125), "315.7");
  EXPECT_EQ(place_text(315.7, "0", 1), "316");
  EXPECT_EQ(place_text(315, "0", 0.125), "315.0");
  EXPECT_EQ(place_text(0.12345, "0.0", 0.001), "0.123");
  EXPECT_EQ(place_text(12345.678, "#,##0", 0.1), "12,345.7");
  EXPECT_NE(place_text(5, "0", 0.03), place_text(5.03, "0", 0.03));
}

TEST(ReadOutText, ShowsAValueAsTheDataHaveIt) {
  EXPECT_EQ(value_text(315.71, "0", 0.125), "315.71");
  EXPECT_EQ(value_text(315, "0", 0.125), "315");
  EXPECT_EQ(value_text(1.0 / 3, "0", 0.125), "0.333");
  EXPECT_EQ(value_text(-2.5, "0", 10), "-2.5");
}

TEST(ReadOutText, KeepsExponentsAndTheDigitsThatAreNeeded) {
  EXPECT_EQ(value_text(1.5e-12, "0.00E+0", 1e-14), "1.5E-12");
  EXPECT_EQ(value_text(123456, "0.00E+0", 1), "1.23456E+5");
  EXPECT_EQ(value_text(2e-12, "0", 1e-14), "2E-12");
  EXPECT_EQ(place_text(1.2345e-12, "0", 1e-14), "1.23E-12");
}

TEST(ReadOutText, LeavesAFormatOutThatTellsTooLittle) {
  EXPECT_EQ(value_text(0.25, "0%", 0.1), "25%");
  EXPECT_EQ(value_text(0.255, "0%", 0.001), "0.255");
  EXPECT_EQ(place_text(3, "0 \"km\"", 1), "3 km");
  EXPECT_EQ(place_text(2.5, "0 \"km\"", 0.1), "2.5");
}

TEST(ReadOutText, ShowsAMissingValueByItsName) {
  EXPECT_EQ(value_text(std::nan(""), "0", 1), "NaN");
}

}  // namespace
}  // namespace kurv
