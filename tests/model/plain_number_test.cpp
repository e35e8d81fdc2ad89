#include "model/plain_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace kurv {
namespace {

constexpr Double kUntouched = 12345;

struct Case {
  std::string text;
  Double value;
  std::size_t length;
};

void expect_read(const Case& expected) {
  Double value = kUntouched;
  EXPECT_EQ(read_plain_number(expected.text, value), expected.length) << expected.text;
  // By the bits, because -0 equals 0.
  EXPECT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected.value))
      << expected.text;
}

TEST(PlainNumber, ReadsDigitsPointAndExponent) {
  const std::vector<Case> cases = {{"0", 0, 1},
                                   {"-0", -0.0, 2},
                                   {"7", 7, 1},
                                   {"-7", -7, 2},
                                   {"0.5", 0.5, 3},
                                   {"-0.25", -0.25, 5},
                                   {"3.", 3, 2},
                                   {".5", 0.5, 2},
                                   {"1.5e3", 1500, 5},
                                   {"1E-3", 0.001, 4},
                                   {"2e+2", 200, 4},
                                   {"00012.50", 12.5, 8},
                                   {"9007199254740992", 9007199254740992.0, 16},
                                   {"9007199254740993", 9007199254740992.0, 16},
                                   {"9007199254740995", 9007199254740996.0, 16},
                                   {"99999999999999999999", 1e20, 20},
                                   {"0.0000000000000000001", 1e-19, 21},
                                   {"0.1", 0x1.999999999999ap-4, 3},
                                   {"-1.7976931348623157e308", -0x1.fffffffffffffp1023, 23},
                                   {"5e-324", 0x1p-1074, 6}};
  for (const Case& one : cases) expect_read(one);
}

TEST(PlainNumber, EndsAtWhatIsNoPartOfIt) {
  const std::vector<std::string> rests = {",", ",5",       "x",         " ",    "/", ":",  "..",
                                          "-", "\xFF\xFF", ",12345678", ";1.5", "e", "e+", ".x"};
  for (const std::string& rest : rests) {
    expect_read({"12" + rest, 12, rest.front() == '.' ? 3U : 2U});
    expect_read({"-0.0625" + rest, -0.0625, 7});
    expect_read({"1e5" + rest, 1e5, 3});
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
