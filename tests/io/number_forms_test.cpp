#include <KurvGraph/number_text.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace kurv {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST(PrintedNumber, HasABlankForTheSignAndOneBehindAndNoLeadingZero) {
  const struct {
    Double value;
    const char* text;
  } kTable[] = {
      {0.5, " .5 "},
      {-0.5, "-.5 "},
      {500, " 500 "},
      {-3, "-3 "},
      {0, " 0 "},
      {-0.0, " 0 "},
      {1.25, " 1.25 "},
      {0.00001, " .00001 "},
      {1.5e20, " 1.5E+20 "},
      {-2e-7, "-2E-07 "},
      {1e15, " 1E+15 "},
      {10, " 10 "},
      {1.0 / 3, " .3333333333333333 "},
      {kInf, " Inf "},
      {-kInf, "-Inf "},
      {kNaN, " NaN "},
  };
  for (const auto& row : kTable) EXPECT_EQ(printed_number(row.value), row.text);
}

TEST(PrintedNumber, ASingleHasItsOwnFewestDigits) {
  EXPECT_EQ(printed_number(0.1F), " .1 ");
  EXPECT_EQ(printed_number(-8.25F), "-8.25 ");
  EXPECT_EQ(printed_number(123456790528.0F), " 123456790000 ");
}

TEST(PrintedNumber, TakesTheCallersDecimalSeparator) {
  EXPECT_EQ(printed_number(-0.5, ','), "-,5 ");
  EXPECT_EQ(printed_number(1.5e20, ','), " 1,5E+20 ");
  EXPECT_EQ(printed_number(2.5F, ','), " 2,5 ");
}

TEST(AppendNumber, AppendsWhatNumberToTextGives) {
  std::mt19937_64 random(5);
  for (int i = 0; i < 20'000; ++i) {
    const auto value = std::bit_cast<Double>(random());
    String text = "x";
    append_number(text, value);
    ASSERT_EQ(text, "x" + number_to_text(value));
  }
  String text;
  append_number(text, -12.5, ',');
  append_number(text, 0.25, ',');
  append_number(text, 1.5e-9, ',');
  EXPECT_EQ(text, "-12,50,251,5E-09");
}

TEST(TextToNumber, ReadsTheCallersDecimalSeparatorAndNoOther) {
  EXPECT_EQ(text_to_number(" -1,5 ", ','), -1.5);
  EXPECT_EQ(text_to_number(",5", ','), 0.5);
  EXPECT_EQ(text_to_number("1,5E+20", ','), 1.5e20);
  EXPECT_EQ(text_to_number("7", ','), 7);
  for (const char* text : {"1.5", "1,5,2", "1.000,5", "", ","}) {
    EXPECT_EQ(text_to_number(text, ','), std::nullopt) << text;
  }
  EXPECT_EQ(text_to_number("1,5", '.'), std::nullopt);
}

TEST(TextToBoolean, IsAWordOrANumber) {
  for (const char* text : {"True", "TRUE", " true ", "-1", "1", "0.5", "nan"}) {
    EXPECT_EQ(text_to_boolean(text), Boolean(true)) << text;
  }
  for (const char* text : {"False", "fAlSe", "0", "-0", " 0.0 "}) {
    EXPECT_EQ(text_to_boolean(text), Boolean(false)) << text;
  }
  for (const char* text : {"", " ", "yes", "Tru", "True.", "0,5"}) {
    EXPECT_EQ(text_to_boolean(text), std::nullopt) << text;
  }
  EXPECT_EQ(text_to_boolean("0,5", ','), Boolean(true));
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatCannotContinueIt) {
  const struct {
    const char* text;
    Double value;
  } kTable[] = {
      {"3", 3},
      {"1 2 3", 123},
      {" 1\t5 ", 15},
      {"12 points", 12},
      {"12e", 12},
      {"12e+", 12},
      {"12e+x", 12},
      {"1e3", 1000},
      {"1 e 3", 1000},
      {"1E-2x", 0.01},
      {"-4", -4},
      {"- 4", -4},
      {"+4", 4},
      {"--4", 0},
      {"4-2", 4},
      {".5", 0.5},
      {"5.", 5},
      {"1.2.3", 1.2},
      {".", 0},
      {"-", 0},
      {"", 0},
      {"abc", 0},
      {"True", 0},
      {"NaN", 0},
      {"Inf", 0},
      {"&H10", 0},
      {"0x10", 0},
      {"1,000", 1},
      {"1,5", 1},
      {"e5", 0},
      {"1d5", 1},
      {"\xC2\xA0"
       "5",
       0},
      {"-.e5", 0},
  };
  for (const auto& row : kTable) EXPECT_EQ(leading_number(row.text), row.value) << row.text;
}

TEST(LeadingNumber, TooLargeIsInfinite) {
  EXPECT_EQ(leading_number("1e999"), kInf);
  EXPECT_EQ(leading_number(std::string(100'000, '9')), kInf);
}

TEST(LeadingNumber, ReadsNothingOfALongTextBehindIt) {
  const std::string text = "17x" + std::string(1'000'000, '1');
  EXPECT_EQ(leading_number(text), 17);
  EXPECT_EQ(leading_number(std::string(1'000'000, ' ') + "2"), 2);
}

}  // namespace
}  // namespace kurv
