#include "core/plain_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

namespace kurv {
namespace {

constexpr Double kUntouched = 12345;

// The standard library reads all that is plain, and rounds as it should.
void expect_as_the_library(const std::string& text) {
  Double expected = kUntouched, value = kUntouched;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), expected);
  const bool is_number = result.ec == std::errc();
  const auto length = is_number ? result.ptr - text.data() : 0;
  ASSERT_EQ(read_plain_number(text, value), static_cast<std::size_t>(length)) << text;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(value),
            std::bit_cast<std::uint64_t>(is_number ? expected : kUntouched))
      << text;
}

TEST(PlainNumber, SmallCases) {
  for (const char* text : {"0",
                           "-0",
                           "7",
                           "-7",
                           "10",
                           "0.5",
                           "-0.25",
                           "3.",
                           "3.x",
                           "1.5e",
                           "1.5e3",
                           "1E-3",
                           "2e",
                           "00012.50",
                           "9007199254740992",
                           "9007199254740993",
                           "9007199254740995",
                           "9999999999999999999",
                           "99999999999999999999",
                           "0.0000000000000000001",
                           "0.000000000000000000",
                           "12345678",
                           "123456789",
                           "1234567.8",
                           "12345678.9",
                           "1.2345678",
                           "1.23456789",
                           "-1.7976931e308"}) {
    expect_as_the_library(text);
  }
}

TEST(PlainNumber, EndsAtWhatIsNoPartOfIt) {
  for (const char* rest :
       {",", ",5", "x", " ", "/", ":", "..", "-", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF", ",12345678",
        "\x80"
        "12345678",
        ";1.5;1.5;1.5"}) {
    for (const char* number : {"1", "12", "1234567", "12345678", "123456789", "1.25", "-0.0625",
                               "3.14159265358979", "0.12345678901234567"}) {
      expect_as_the_library(std::string(number) + rest);
    }
  }
}

TEST(PlainNumber, RefusesWhatIsNotPlain) {
  for (const char* text : {"", "-", ".", "-.", "+1", "--1", " 1", "x", ",", "nan", "inf", "-inf",
                           "1e999", "-1e999", "1e-999"}) {
    Double value = kUntouched;
    EXPECT_EQ(read_plain_number(text, value), 0U) << text;
    EXPECT_EQ(value, kUntouched) << text;
  }
}

}  // namespace
}  // namespace kurv
