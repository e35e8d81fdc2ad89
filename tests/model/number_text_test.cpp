#include <KurvGraph/number_text.h>
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace kurv {
namespace {

constexpr Double kInf = std::numeric_limits<Double>::infinity();
constexpr Double kNaN = std::numeric_limits<Double>::quiet_NaN();

TEST(NumberToText, WritesTheFewestDigitsInTheUsualForm) {
  const struct {
    Double value;
    const char* text;
  } kTable[] = {
      {0, "0"},
      {-0.0, "0"},
      {1, "1"},
      {-1, "-1"},
      {10, "10"},
      {0.1, "0.1"},
      {-0.25, "-0.25"},
      {0.1 + 0.2, "0.30000000000000004"},
      {1.0 / 3, "0.3333333333333333"},
      {12345.678, "12345.678"},
      {0.00001, "0.00001"},
      {-0.000012345, "-0.000012345"},
      {0.0000099999, "9.9999E-06"},
      {2e-7, "2E-07"},
      {999999999999999, "999999999999999"},
      {999999999999999.9, "999999999999999.9"},
      {1e14, "100000000000000"},
      {1e15, "1E+15"},
      {1.5e20, "1.5E+20"},
      {-1.5e-20, "-1.5E-20"},
      {1e100, "1E+100"},
      {std::numeric_limits<Double>::max(), "1.7976931348623157E+308"},
      {std::numeric_limits<Double>::min(), "2.2250738585072014E-308"},
      {std::numeric_limits<Double>::denorm_min(), "5E-324"},
      {kInf, "Inf"},
      {-kInf, "-Inf"},
      {kNaN, "NaN"},
      {-kNaN, "NaN"},
  };
  for (const auto& row : kTable) EXPECT_EQ(number_to_text(row.value), row.text);
}

TEST(NumberToText, ASingleHasItsOwnFewestDigits) {
  const struct {
    Single value;
    const char* text;
  } kTable[] = {
      {0.1F, "0.1"},
      {-0.0F, "0"},
      {1e-5F, "0.00001"},
      {9e-6F, "9E-06"},
      {16777216.0F, "16777216"},
      {123456790528.0F, "123456790000"},
      {1e15F, "1E+15"},
      {std::numeric_limits<Single>::max(), "3.4028235E+38"},
      {std::numeric_limits<Single>::denorm_min(), "1E-45"},
      {std::numeric_limits<Single>::infinity(), "Inf"},
      {-std::numeric_limits<Single>::infinity(), "-Inf"},
      {std::numeric_limits<Single>::quiet_NaN(), "NaN"},
  };
  for (const auto& row : kTable) EXPECT_EQ(number_to_text(row.value), row.text);
}

TEST(TextToNumber, ReadsEveryFormOfANumber) {
  const struct {
    const char* text;
    Double value;
  } kTable[] = {
      {"3", 3},
      {".5", 0.5},
      {"5.", 5},
      {"-1e-3", -0.001},
      {"1E3", 1000},
      {"1e+3", 1000},
      {"+2", 2},
      {"+.5e1", 5},
      {"  7\t", 7},
      {"007", 7},
      {"-0", 0},
      {"0.000", 0},
      {"0e999999999999999999999", 0},
      {"1e0000000000000000000000000002", 100},
      {"0.1", 0.1},
      {"9007199254740993", 9007199254740992},
      {"9007199254740993.0000000000000000000000000000000000001", 9007199254740994},
      {"1.7976931348623157e308", std::numeric_limits<Double>::max()},
      {"5e-324", std::numeric_limits<Double>::denorm_min()},
      {"inf", kInf},
      {"INF", kInf},
      {" -Inf ", -kInf},
  };
  for (const auto& row : kTable) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(text_to_number(row.text), row.value);
  }
}

TEST(TextToNumber, ReadsNaNInAnyLetterCase) {
  for (const char* text : {"NaN", "nan", " NAN "}) {
    SCOPED_TRACE(text);
    ASSERT_TRUE(text_to_number(text).has_value());
    EXPECT_TRUE(std::isnan(*text_to_number(text)));
  }
}

TEST(TextToNumber, AnythingElseIsNoNumber) {
  const std::string_view kTable[] = {
      "",
      " ",
      ".",
      "+",
      "-",
      "e5",
      ".e5",
      "1e",
      "1e+",
      "1e1.5",
      "1.2.3",
      "--1",
      "+-1",
      "- 1",
      "1 2",
      "1,5",
      "1,000",
      "0x10",
      "1f",
      "1d5",
      "infinity",
      "nan(1)",
      "-nan",
      "1e5x",
      "\xC2\xB5",
      "1\xC2\xA0",
      "\xEF\xBC\x91",
      "$1",
      "(1)",
      "1-",
      "True",
      "1_000",
      std::string_view("1\0", 2),
      std::string_view("\0", 1),
  };
  for (const std::string_view text : kTable) {
    SCOPED_TRACE(text);
    EXPECT_EQ(text_to_number(text), std::nullopt);
  }
}

TEST(TextToNumber, TooLargeIsInfiniteAndTooSmallIsZero) {
  for (const char* text : {"1e309", "1.8e308", "1e999999999999999999999", "123e99999"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(text_to_number(text), kInf);
    EXPECT_EQ(text_to_number(std::string("-") + text), -kInf);
  }
  for (const char* text : {"1e-324", "2e-324", "1e-400", "1e-999999999999999999999"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(text_to_number(text), 0.0);
    EXPECT_EQ(text_to_number(std::string("-") + text), 0.0);
  }
}

TEST(TextToNumber, ReadsAMillionDigitsExactly) {
  constexpr std::size_t kMany = 1'000'000;
  const std::string zeros(kMany, '0');
  EXPECT_EQ(text_to_number(zeros), 0.0);
  EXPECT_EQ(text_to_number(zeros + "7"), 7.0);
  EXPECT_EQ(text_to_number("7." + zeros), 7.0);
  EXPECT_EQ(text_to_number("1" + zeros), kInf);
  EXPECT_EQ(text_to_number("." + zeros + "1"), 0.0);
  EXPECT_EQ(text_to_number(std::string(kMany, '9')), kInf);
  EXPECT_EQ(text_to_number("0." + std::string(kMany, '9')), 1.0);
  // Half-way between two Doubles, and a hair above it.
  EXPECT_EQ(text_to_number("9007199254740993." + zeros), 9007199254740992.0);
  EXPECT_EQ(text_to_number("9007199254740993." + zeros + "1"), 9007199254740994.0);
}

TEST(TextToNumber, AnExponentMayMakeUpForAMillionDigits) {
  const std::string zeros(1'000'000, '0');
  EXPECT_EQ(text_to_number("25" + zeros + "e-1000001"), 2.5);
  EXPECT_EQ(text_to_number("." + zeros + "25e1000001"), 2.5);
  EXPECT_EQ(text_to_number("1" + zeros + "e-2000000"), 0.0);
}

TEST(TextToNumber, AMillionBytesOfNonsenseAreNoNumber) {
  for (const char c : {'-', '.', 'e', ',', '\0', '\xFF'}) {
    SCOPED_TRACE(static_cast<int>(c));
    EXPECT_EQ(text_to_number(std::string(1'000'000, c)), std::nullopt);
  }
  EXPECT_EQ(text_to_number(std::string(1'000'000, ' ')), std::nullopt);
}

TEST(NumberText, EveryDoubleReadsBackToItself) {
  std::mt19937_64 random(20240229);
  for (int i = 0; i < 200'000; ++i) {
    const auto value = std::bit_cast<Double>(random());
    if (std::isnan(value)) continue;
    ASSERT_EQ(text_to_number(number_to_text(value)), value) << std::hexfloat << value;
  }
}

TEST(NumberText, EveryDoubleOfAnEverydaySizeReadsBackToItself) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<Double> exponent(-8, 17);
  std::uniform_real_distribution<Double> factor(-1, 1);
  for (int i = 0; i < 100'000; ++i) {
    const Double value = factor(random) * std::pow(10, exponent(random));
    const String text = number_to_text(value);
    ASSERT_EQ(text_to_number(text), value) << text;
    const Double magnitude = std::abs(value);
    const bool plain = magnitude >= 1e-5 && magnitude < 1e15;
    ASSERT_EQ(text.find('E') == String::npos, plain) << text;
  }
}

TEST(NumberText, EverySingleReadsBackToItself) {
  std::mt19937 random(20240301);
  for (int i = 0; i < 200'000; ++i) {
    const auto value = std::bit_cast<Single>(static_cast<std::uint32_t>(random()));
    if (std::isnan(value)) continue;
    const std::optional<Double> back = text_to_number(number_to_text(value));
    ASSERT_TRUE(back.has_value());
    ASSERT_EQ(static_cast<Single>(*back), value) << std::hexfloat << value;
  }
}

TEST(NumberText, NoLocaleChangesAnything) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "./test makes the locale";
  EXPECT_EQ(std::localeconv()->decimal_point, std::string(","));
  EXPECT_EQ(number_to_text(1234.5), "1234.5");
  EXPECT_EQ(text_to_number("1234.5"), 1234.5);
  EXPECT_EQ(text_to_number("1234,5"), std::nullopt);
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace kurv
