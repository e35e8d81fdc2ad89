// A short run of the fuzzer's entry point over files that are the same each time.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "tests/support/graph_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::string_view kPieces[] = {
    "0",   "-1", "1",    "32767", "32768", "1e999", "nan", ".5", " 7 ", ",",   ",,", "1,2,3",
    "1;2", "",   "True", "False", "\xF6",  "é",     "\"",  "\r", "\t",  "x^2", "x",  "-"};

void run(const std::string& bytes) {
  EXPECT_EQ(
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
}

// std::mt19937 gives the same numbers everywhere; the distributions of the library need not.
std::size_t below(std::mt19937& random, std::size_t bound) {
  return random() % bound;
}

TEST(GraphFileFuzzerRun, LinesReplacedInAGoodFile) {
  std::mt19937 random(1);
  for (int i = 0; i < 10000; ++i) {
    std::vector<std::string> lines = kurv::test::sample_lines();
    for (std::size_t n = 1 + below(random, 3); n > 0; --n) {
      lines[below(random, lines.size())] = kPieces[below(random, std::size(kPieces))];
    }
    run(kurv::test::joined(lines, i % 2 == 0 ? "\r\n" : "\n"));
  }
}

TEST(GraphFileFuzzerRun, CountsThatClaimTooMuch) {
  constexpr std::string_view kCounts[] = {"-32768", "-1", "0", "1", "32766", "32767", "1e300"};
  std::vector<std::string> lines = kurv::test::sample_lines();
  for (const std::string_view points : kCounts) {
    for (const std::string_view curves : kCounts) {
      for (const std::string_view functions : kCounts) {
        lines[2] = points;
        lines[3] = curves;
        lines[4] = functions;
        run(kurv::test::joined(lines));
      }
    }
  }
}

TEST(GraphFileFuzzerRun, OneByteWrongInAGoodFile) {
  const std::string good = kurv::test::joined(kurv::test::sample_lines());
  std::mt19937 random(2);
  for (std::size_t at = 0; at < good.size(); ++at) {
    run(good.substr(0, at));
    for (int i = 0; i < 8; ++i) {
      std::string bytes = good;
      bytes[at] = static_cast<char>(below(random, 256));
      run(bytes);
    }
  }
}

TEST(GraphFileFuzzerRun, AnyBytes) {
  std::mt19937 random(3);
  for (int i = 0; i < 5000; ++i) {
    std::string bytes;
    for (std::size_t n = below(random, 200); n > 0; --n) {
      bytes += static_cast<char>(below(random, 256));
    }
    run(bytes);
  }
}

}  // namespace
