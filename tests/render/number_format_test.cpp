#include "render/number_format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <KurvGraph/number_text.h>

namespace kurv {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

struct Row {
  Double value;
  std::string pattern;
  std::string text;
};

void expect_rows(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(format_number(row.value, row.pattern), row.text)
        << number_to_text(row.value) << " with " << row.pattern;
  }
}

TEST(NumberFormat, RoundsHalfAwayFromZeroOnFifteenDigits) {
  expect_rows({
      {2.5, "0", "3"},
      {-2.5, "0", "-3"},
      {0.5, "0", "1"},
      {1.005, "0.00", "1.01"},
      {2.675, "0.00", "2.68"},
      {0.125, "0.00", "0.13"},
      {-0.125, "0.00", "-0.13"},
      {0.1 + 0.2, "0.0000000000000000", "0.3000000000000000"},
      {0.4999, "0", "0"},
      {0.49999999999999994, "0", "1"},
      {999.9996, "0.000", "1000.000"},
      {99.95, "0.0", "100.0"},
      {9.5, "0", "10"},
      {0.05, "0.0", "0.1"},
      {0.04, "0.0", "0.0"},
      {0.004, "0.0", "0.0"},
      {1.0, "0.00", "1.00"},
      {12.0, "000.0", "012.0"},
  });
}

TEST(NumberFormat, AValueThatRoundsToZeroHasNoSign) {
  expect_rows({
      {-0.001, "0.00", "0.00"},
      {-0.0, "0.00", "0.00"},
      {-0.4, "0", "0"},
      {-5e-324, "0.0", "0.0"},
      {-0.001, "0.00;-0.00", "0.00"},
      {-0.001, "0.00;(0.00)", "0.00"},
      {-0.001, "0.00;(0.00);nil", "nil"},
      {0.001, "0.00;(0.00);nil", "nil"},
      {-0.001, "#", ""},
  });
}

TEST(NumberFormat, OptionalPlacesShowOnlyDigitsThatAreThere) {
  expect_rows({
      {0.5, "#.##", ".5"},
      {0.5, "0.##", "0.5"},
      {1.0, "0.##", "1."},
      {0, "#", ""},
      {0, "#.##", "."},
      {0, "0.0#", "0.0"},
      {1.23, "0.0#", "1.23"},
      {1.2, "0.0#", "1.2"},
      {7, "###", "7"},
      {7, "#00", "07"},
      {12345, "#", "12345"},
      {12.5, "#.0", "12.5"},
  });
}

TEST(NumberFormat, ZerosReachFromTheFirstZeroPlaceToTheLast) {
  expect_rows({{5, "0##", "005"}, {1, "0.#0", "1.00"}, {1.5, "0.##0#", "1.500"}});
}

TEST(NumberFormat, IntegerDigitsWithoutAPlaceStandBeforeThePoint) {
  expect_rows({{12.345, ".00", "12.35"}, {0.5, ".00", ".50"}, {-12.5, "x.0", "-x12.5"}});
}

TEST(NumberFormat, WritesLargeAndTinyNumbersOut) {
  expect_rows({
      {1e300, "0", "1" + std::string(300, '0')},
      {-1.25e20, "0.0", "-125000000000000000000.0"},
      {123456789012345678.0, "0", "123456789012346000"},
      {1.7976931348623157e308, "0", "179769313486232" + std::string(294, '0')},
      {5e-324, "0", "0"},
      {1e-10, "0.0000000000", "0.0000000001"},
  });
}

TEST(NumberFormat, GroupsThousandsAtACommaBetweenPlaces) {
  expect_rows({
      {1234567, "#,##0", "1,234,567"},
      {123, "#,##0", "123"},
      {1000, "#,##0", "1,000"},
      {-1234.5, "#,##0.00", "-1,234.50"},
      {0, "#,##0", "0"},
      {5, "0,000", "0,005"},
      {1e15, "0,0", "1,000,000,000,000,000"},
      {999999.5, "#,##0", "1,000,000"},
      {12345.678, "#,#.#", "12,345.7"},
  });
}

TEST(NumberFormat, DividesByAThousandForEachCommaAtTheEnd) {
  expect_rows({
      {1234567, "0,", "1235"},
      {1234567, "0,,", "1"},
      {1234567, "0.0,", "1234.6"},
      {1234567, "0,.00", "1234.57"},
      {1234567890, "#,##0,", "1,234,568"},
      {12500, "0.0,\"k\"", "12.5k"},
      {499, "0,", "0"},
      {-499, "0,", "0"},
      {1500000, "0.0,,E+0", "1.5E+0"},
  });
}

TEST(NumberFormat, ACommaBeforeAnyPlaceIsLiteral) {
  expect_rows({{5, ",0", ",5"}, {5, "a, 0", "a, 5"}, {5, ",", ","}});
}

TEST(NumberFormat, MultipliesByAHundredForPercent) {
  expect_rows({
      {0.5, "0%", "50%"},
      {0.12345, "0.00%", "12.35%"},
      {-0.005, "0%", "-1%"},
      {1, "%0", "%100"},
      {0.5, "0\\%", "1%"},
      {0.5, "0\"%\"", "1%"},
      {0, "0%", "0%"},
  });
}

TEST(NumberFormat, SeveralPercentSignsMultiplyOnce) {
  expect_rows({{0.5, "0%%", "50%%"}});
}

TEST(NumberFormat, WritesExponents) {
  expect_rows({
      {9.995, "0.00E+0", "1.00E+1"},
      {0, "0.00E+0", "0.00E+0"},
      {-0.0, "0.00E+0", "0.00E+0"},
      {12345, "0.00E+0", "1.23E+4"},
      {12350, "0.00E+00", "1.24E+04"},
      {-12345, "0.00E-0", "-1.23E4"},
      {0.00012, "0.00E-0", "1.20E-4"},
      {0.00012, "0.00E+0", "1.20E-4"},
      {0.00012, "0.00e+000", "1.20e-004"},
      {1, "0.00e-00", "1.00e00"},
      {1e100, "0E+0", "1E+100"},
      {5e-324, "0.0E+0", "4.9E-324"},
      {1.7976931348623157e308, "0.00E+0", "1.80E+308"},
      {1.5, "0.##E+0", "1.5E+0"},
      {0.5, "0.0%E+0", "5.0%E+1"},
      {1.5, "0.0E+0 m", "1.5E+0 m"},
      {1e-5, "0E+0000000000", "1E-0000000005"},
      {1.0 / 3, "0.00000000000000000000E+0", "3.33333333333333000000E-1"},
  });
}

TEST(NumberFormat, TheMantissaHasAsManyIntegerDigitsAsPlaces) {
  expect_rows({
      {12345, "00.0E+0", "12.3E+3"},
      {12345, "##0.0E+0", "123.5E+2"},
      {99.96, "00.0E+0", "10.0E+1"},
      {5, "##0.0E+0", "500.0E-2"},
      {0, "##0.0E+0", "0.0E+0"},
      {12345, ".00E+0", ".12E+5"},
      {0.996, ".00E+0", ".10E+1"},
      {1234, "0,000E+0", "1,234E+0"},
  });
}

TEST(NumberFormat, WhatIsNoExponentIsLiteral) {
  expect_rows({
      {5, "0E", "5E"},
      {5, "0E+", "5E+"},
      {5, "0E0", "0E5"},
      {5, "E+", "E+"},
      {5, "E+0", "E+5"},
      {5, "0E+#", "0E+5"},
      {5, "0E+0E+0", "5E+0E+0"},
      {5, "0E+0.0#,", "5E+0.0#,"},
  });
  EXPECT_EQ(format_number(5, "eV 0.0"), "eV 5.0");
}

TEST(NumberFormat, LiteralsStandWhereThePatternHasThem) {
  expect_rows({
      {5551234, "000-0000", "555-1234"},
      {12345551234, "000-0000", "1234555-1234"},
      {5, "000-0000", "000-0005"},
      {-5, "$0.00", "-$5.00"},
      {5, "0 \"m/s\"", "5 m/s"},
      {5, "\"0#.\"0", "0#.5"},
      {5, "\\00\\#", "05#"},
      {5, "0.0.0", "5.0.0"},
      {5.25, "0.0x0", "5.2x5"},
      {20,
       "0 \xC2\xB0"
       "C",
       "20 \xC2\xB0"
       "C"},
      {5, "\"\"", ""},
      {5, "\"a;b\"0", "a;b5"},
      {5, "0\\;", "5;"},
      {5, "\"", ""},
      {5, "0\"open;", "5open;"},
      {5, "0\\", "5\\"},
      {5, "\\", "\\"},
  });
}

TEST(NumberFormat, APatternWithoutPlacesPrintsItsLiterals) {
  expect_rows({
      {5, "abc", "abc"},
      {-5, "abc", "-abc"},
      {-0.2, "abc", "-abc"},
      {0, "abc", "abc"},
      {5, ".", "."},
      {5, "%%%", "%%%"},
      {-5, "up;down", "down"},
      {0.1, "up;down;flat", "up"},
  });
}

TEST(NumberFormat, PicksTheSectionBySign) {
  expect_rows({
      {1.5, "0.0;(0.0)", "1.5"},
      {-1.5, "0.0;(0.0)", "(1.5)"},
      {0, "0.0;(0.0)", "0.0"},
      {1.5, "0.0;(0.0);nil", "1.5"},
      {-1.5, "0.0;(0.0);nil", "(1.5)"},
      {0, "0.0;(0.0);nil", "nil"},
      {-1.5, "0.0;0.0", "1.5"},
      {-1.5, "0.0;\"\"", ""},
      {5, "0;0;0;rest", "5"},
  });
}

TEST(NumberFormat, AnEmptySectionLeavesItsNumbersToTheFirst) {
  expect_rows({
      {-1.5, "0.0;", "-1.5"},
      {-1.5, "0.0;;nil", "-1.5"},
      {0, "0.0;(0.0);", "0.0"},
      {1.5, ";0.00", "1.5"},
      {-1.5, ";0.00", "1.50"},
      {-1.5, ";;;", "-1.5"},
  });
}

TEST(NumberFormat, AnEmptyPatternGivesTheShortestForm) {
  expect_rows({{0.1, "", "0.1"}, {-2e-7, "", "-2E-07"}, {0, "", "0"}, {-0.0, "", "0"}});
}

TEST(NumberFormat, NumbersThatAreNoneKeepTheirNames) {
  for (const char* pattern : {"", "0.00", "0.00E+0", "#;#;#", "abc", "0%"}) {
    expect_rows({{kNaN, pattern, "NaN"}, {kInf, pattern, "Inf"}, {-kInf, pattern, "-Inf"}});
  }
}

TEST(NumberFormat, AMillionByteIsAPatternLikeAnyOther) {
  constexpr std::size_t kMany = 1'000'000;
  const std::string zeros(kMany, '0');
  const std::string places(kMany, '#');
  expect_rows({{12, places, "12"}, {1.5, "0." + places, "1.5"}, {0, places, ""}});
  EXPECT_EQ(format_number(7, zeros), std::string(kMany - 1, '0') + "7");
  EXPECT_EQ(format_number(7, "0." + zeros), "7." + zeros);
  EXPECT_EQ(format_number(7, "0E+" + zeros), "7E+" + zeros);
  EXPECT_EQ(format_number(7, zeros + "E+0"), "7" + zeros.substr(1) + "E-999999");
  EXPECT_EQ(format_number(7, "0" + std::string(kMany, ',')), "0");
  EXPECT_EQ(format_number(7, "0" + std::string(kMany, '%')), "700" + std::string(kMany, '%'));
  EXPECT_EQ(format_number(7, std::string(kMany, ';')), "7");
  EXPECT_EQ(format_number(7, std::string(kMany, '.')), std::string(kMany, '.'));
  EXPECT_EQ(format_number(7, std::string(kMany, '\\')), std::string(kMany / 2, '\\'));
  EXPECT_EQ(format_number(7, std::string(kMany, '"')), "");
  EXPECT_EQ(format_number(7, "\"" + zeros), zeros);
  EXPECT_EQ(format_number(7, std::string(kMany, '\0')), std::string(kMany, '\0'));
}

TEST(NumberFormat, AnyBytesGiveATextOfBoundedLength) {
  const std::string alphabet("00##..,,%%EEee++--;;\"\\ x\0\xC3\xA4\xFF", 28);
  const Double values[] = {0, 1, -1, 0.5, -9.995, 1e300, -1e-300, 123456.789, 5e-324};
  constexpr std::size_t kWidestNumber = 450;
  std::mt19937 random(42);
  for (int i = 0; i < 20'000; ++i) {
    std::string pattern(random() % 24, ' ');
    for (char& c : pattern) c = alphabet[random() % alphabet.size()];
    for (const Double value : values) {
      ASSERT_LE(format_number(value, pattern).size(), kWidestNumber + 2 * pattern.size())
          << pattern;
    }
  }
}

// Scaled integers make every tie exact, so that the expected digits come from whole numbers alone.
TEST(NumberFormat, RoundsEveryThousandthAsWholeNumbersDo) {
  for (int thousandths = -20'000; thousandths <= 20'000; ++thousandths) {
    const int hundredths = (std::abs(thousandths) + 5) / 10;
    const std::string digits = std::to_string(100 + hundredths % 100).substr(1);
    const std::string sign = thousandths < 0 && hundredths > 0 ? "-" : "";
    ASSERT_EQ(format_number(thousandths / 1000.0, "0.00"),
              sign + std::to_string(hundredths / 100) + "." + digits);
  }
}

TEST(NumberFormat, AScientificPatternReadsBackToFifteenDigits) {
  std::mt19937_64 random(11);
  std::uniform_real_distribution<Double> exponent(-300, 300);
  for (int i = 0; i < 20'000; ++i) {
    const Double value = std::pow(10, exponent(random));
    const std::optional<Double> back = text_to_number(format_number(-value, "0.00000000000000E+0"));
    ASSERT_TRUE(back.has_value());
    ASSERT_LE(std::abs(*back + value), 6e-15 * value) << number_to_text(value);
  }
}

TEST(NumberFormat, NoLocaleChangesAnything) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "./test makes the locale";
  EXPECT_EQ(format_number(1234.5, "#,##0.00"), "1,234.50");
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace kurv
