#include "dialogs/field_rules.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace kurv {

namespace {

constexpr Integer kNone = std::numeric_limits<Integer>::min();

struct Case {
  std::string text;
  Integer accepted;  // kNone: refused
};

using Rule = std::optional<Integer> (*)(std::string_view, char);

void expect_all(Rule rule, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(rule(c.text, '.').value_or(kNone), c.accepted) << '"' << c.text << '"';
  }
}

TEST(FieldRules, ChecksTicksBeforeItRoundsThem) {
  expect_all(tick_count, {{"5", 5},
                          {"100", 100},
                          {"40", 40},
                          {"4", kNone},
                          {"101", kNone},
                          {"4.9", kNone},
                          {"5.4", 5},
                          {"99.5", 100},
                          {"100.4", kNone},
                          {"10.5", 10},
                          {"11.5", 12}});
}

TEST(FieldRules, ReadsTicksAsAnyOtherNumber) {
  expect_all(tick_count, {{"1e1", 10},
                          {" 12 ", 12},
                          {"+7", 7},
                          {"", kNone},
                          {" ", kNone},
                          {"NaN", kNone},
                          {"Inf", kNone},
                          {"-Inf", kNone},
                          {"1e999", kNone},
                          {"-10", kNone},
                          {"0x10", kNone},
                          {"10a", kNone},
                          {"1 0", kNone},
                          {"10,5", kNone},
                          {"\xD9\xA1\xD9\xA0", kNone},
                          {std::string("10\0", 3), kNone},
                          {std::string(100000, '9'), kNone}});
}

TEST(FieldRules, TakesMarkersOfTenToTwoHundredTwips) {
  expect_all(marker_size, {{"10", 10},
                           {"200", 200},
                           {"9.9", kNone},
                           {"250", kNone},
                           {"200.1", kNone},
                           {"199.5", 200},
                           {"12.5", 12},
                           {"x", kNone}});
}

TEST(FieldRules, TakesLinesOfOneToFourPixels) {
  expect_all(line_width,
             {{"1", 1}, {"4", 4}, {"0", kNone}, {"5", kNone}, {"0.6", kNone}, {"", kNone}});
}

TEST(FieldRules, ReadsTheGraphsOwnSeparatorAlone) {
  EXPECT_EQ(tick_count("10,4", ','), 10);
  EXPECT_EQ(tick_count("10.4", ','), std::nullopt);
  EXPECT_EQ(axis_limit("2,5", "2,5", "3,5", ','), 2.5);
  EXPECT_EQ(margin_twips("480,2", ','), 480);
}

TEST(FieldRules, BringsMarginsIntoTheRangeOfAnInteger) {
  const std::vector<Case> cases = {{"480", 480},       {"0.6", 1},         {"-5", -5},
                                   {"32767", 32767},   {"32767.4", 32767}, {"32767.9", 32767},
                                   {"32768", 32767},   {"1e300", 32767},   {"Inf", 32767},
                                   {"-32768", -32768}, {"-1e300", -32768}, {"-Inf", -32768}};
  for (const Case& c : cases) EXPECT_EQ(margin_twips(c.text, '.'), c.accepted) << c.text;
}

TEST(FieldRules, MakesAMarginThatIsNoNumberZeroWhichIsRefused) {
  for (const char* text : {"", " ", "abc", "NaN", "1 2", "12,5"}) {
    EXPECT_EQ(margin_twips(text, '.'), 0) << text;
  }
}

TEST(FieldRules, TakesALimitWhileTheMinimumIsBelowTheMaximum) {
  EXPECT_EQ(axis_limit("1", "1", "2", '.'), 1);
  EXPECT_EQ(axis_limit("2", "1", "2", '.'), 2);
  EXPECT_EQ(axis_limit("-1e300", "-1e300", "1e300", '.'), -1e300);
  EXPECT_EQ(axis_limit("2", "2", "2", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("3", "3", "2", '.'), std::nullopt);
  // As numbers, not as texts.
  EXPECT_EQ(axis_limit("10", "9", "10", '.'), 10);
}

TEST(FieldRules, TakesNoLimitThatIsNoFiniteNumber) {
  EXPECT_EQ(axis_limit("", "", "2", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("-", "-", "2", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("NaN", "NaN", "2", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("-Inf", "-Inf", "2", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("1e999", "1", "1e999", '.'), std::nullopt);
}

TEST(FieldRules, NeedsTheOtherLimitToBeANumberToo) {
  EXPECT_EQ(axis_limit("1", "1", "abc", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("1", "1", "NaN", '.'), std::nullopt);
  EXPECT_EQ(axis_limit("1", "1", "Inf", '.'), 1);
}

TEST(FieldRules, AMarkerSizeMayHaveAUnit) {
  expect_all(marker_size, {{"1 mm", 57},
                           {"3pt", 60},
                           {"0.1 in", 144},
                           {"10 px", 150},
                           {"40 twips", 40},
                           {"0.1 mm", kNone},
                           {"1 in", kNone},
                           {"1e308 in", kNone},
                           {"NaN mm", kNone},
                           {"mm", kNone},
                           {"1 mile", kNone}});
}

TEST(FieldRules, AMarginMayHaveAUnitAndIsClamped) {
  EXPECT_EQ(margin_twips("12 mm", '.'), 680);
  EXPECT_EQ(margin_twips("0,5 in", '.'), 720);
  EXPECT_EQ(margin_twips("1e308 in", '.'), 32767);
  EXPECT_EQ(margin_twips("-1e308 cm", '.'), -32768);
  EXPECT_EQ(margin_twips("Inf mm", '.'), 0);
  EXPECT_EQ(margin_twips("12 furlongs", '.'), 0);
}

TEST(FieldRules, SaysWhyLimitsAreRefused) {
  EXPECT_EQ(limits_refusal("1", "2", '.'), "");
  EXPECT_EQ(limits_refusal("", "2", '.'), "Minimum: not a number");
  EXPECT_EQ(limits_refusal("NaN", "x", '.'), "Minimum: not a number");
  EXPECT_EQ(limits_refusal("1,5", "2", '.'), "Minimum: not a number");
  EXPECT_EQ(limits_refusal("1,5", "2", ','), "");
  EXPECT_EQ(limits_refusal("1", "abc", '.'), "Maximum: not a number");
  EXPECT_EQ(limits_refusal("1", "Inf", '.'), "Maximum: too large a number");
  EXPECT_EQ(limits_refusal("-1e999", "1", '.'), "Minimum: too large a number");
  EXPECT_EQ(limits_refusal("2", "2", '.'), "Minimum must be below maximum");
  EXPECT_EQ(limits_refusal("3", "2", '.'), "Minimum must be below maximum");
}

TEST(FieldRules, TakesFormatsThatShowNumbers) {
  for (const char* format : {"0", "#", "#,##0.0", "0.00E+0", "0 %", "\"about \"0", "0,,", "0,,,,",
                             "0;-0;none", "0.0 m", ".0", ";"}) {
    EXPECT_EQ(format_refusal(format), "") << format;
  }
  for (const char* format : {"abc", "\"0.00\"", " ", "E+", "\\0", ".", "%", "\xff"}) {
    EXPECT_EQ(format_refusal(format), "Shows no number: use 0 and #") << format;
  }
  EXPECT_EQ(format_refusal(""), "Type a format such as 0.00");
}

}  // namespace

}  // namespace kurv
