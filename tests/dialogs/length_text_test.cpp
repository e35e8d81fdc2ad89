#include "dialogs/length_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace kurv {
namespace {

constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

TEST(LengthText, ABareNumberIsTwips) {
  EXPECT_EQ(length_in_twips("480", '.'), 480);
  EXPECT_EQ(length_in_twips(" 4.5 ", '.'), 4.5);
  EXPECT_EQ(length_in_twips("4,5", ','), 4.5);
  EXPECT_EQ(length_in_twips("1e3", '.'), 1000);
  EXPECT_EQ(length_in_twips("Inf", '.'), kInfinity);
  EXPECT_TRUE(std::isnan(length_in_twips("NaN", '.').value_or(0)));
}

TEST(LengthText, ABareNumberHasTheSeparatorOfTheGraph) {
  EXPECT_FALSE(length_in_twips("4,5", '.'));
  EXPECT_FALSE(length_in_twips("4.5", ','));
}

TEST(LengthText, KnowsTheUnits) {
  EXPECT_DOUBLE_EQ(*length_in_twips("25.4 mm", '.'), 1440);
  EXPECT_DOUBLE_EQ(*length_in_twips("2.54cm", '.'), 1440);
  EXPECT_EQ(length_in_twips("0.5 in", '.'), 720);
  EXPECT_EQ(length_in_twips("0.5\"", '.'), 720);
  EXPECT_EQ(length_in_twips("30 pt", '.'), 600);
  EXPECT_EQ(length_in_twips("40 px", '.'), 600);
  EXPECT_EQ(length_in_twips("40 twips", '.'), 40);
  EXPECT_EQ(length_in_twips("\t40  PX  ", '.'), 600);
  EXPECT_EQ(length_in_twips("-2e1pt", '.'), -400);
}

TEST(LengthText, ANumberWithAUnitHasAPointOrAComma) {
  for (const char separator : {'.', ','}) {
    EXPECT_EQ(length_in_twips("0.5 in", separator), 720);
    EXPECT_EQ(length_in_twips("0,5 in", separator), 720);
    EXPECT_FALSE(length_in_twips("1.000,5 in", separator));
  }
}

TEST(LengthText, RefusesWhatIsNoLength) {
  for (const std::string text : {"",
                                 " ",
                                 "mm",
                                 "\"",
                                 " in ",
                                 "abc",
                                 "12 m",
                                 "12 miles",
                                 "12 mm mm",
                                 "12 mm 3",
                                 "mm 12",
                                 "1 2 mm",
                                 "0x1F in",
                                 "--1 pt",
                                 "1e pt",
                                 "NaN mm",
                                 "Inf in",
                                 "-inf px",
                                 "1e999 mm",
                                 "12 m\0m",
                                 "\xff\xfe mm",
                                 "12\u00a0mm",
                                 "\u0661\u0662 mm",
                                 "5 %",
                                 "5''"}) {
    EXPECT_FALSE(length_in_twips(text, '.')) << text;
    EXPECT_FALSE(length_in_twips(text, ',')) << text;
  }
  EXPECT_FALSE(length_in_twips(std::string("12\0mm", 5), '.'));
}

TEST(LengthText, HugeNumbersAreNoTrouble) {
  EXPECT_EQ(length_in_twips("1e308 in", '.'), kInfinity);
  EXPECT_EQ(length_in_twips("-1e308 in", '.'), -kInfinity);
  EXPECT_EQ(length_in_twips("1e-999 in", '.'), 0);
  const std::string digits(100000, '9');
  EXPECT_FALSE(length_in_twips(digits + " mm", '.'));
  EXPECT_EQ(length_in_twips("0." + digits + " twips", '.'), 1);
  EXPECT_FALSE(length_in_twips(std::string(1000000, 'm'), '.'));
}

TEST(LengthText, IsShownInMillimetresAndInches) {
  EXPECT_EQ(in_millimetres(480, '.'), "8.5 mm");
  EXPECT_EQ(in_millimetres(680, '.'), "12.0 mm");
  EXPECT_EQ(in_millimetres(-480, ','), "-8,5 mm");
  EXPECT_EQ(in_inches(480, '.'), "0.33 in");
  EXPECT_EQ(in_inches(720, ','), "0,50 in");
}

}  // namespace
}  // namespace kurv
