// A short run of the fuzzer's entry point over tables that are the same each time.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::string_view kCells[] = {
    "0",        "-1",       "1.5",      "1,5",        "1.001",      "1.234,5", "1 234",
    "1'234",    "12 %",     "\u20AC 3", "(5)",        "< 0.5",      "NA",      "-",
    "",         "word",     "\"a\nb\"", "\"a\"\"b\"", "31.12.2012", "1/2/3",   "2012-01-31",
    "12:30 PM", "Jan 2012", "\xE4",     "20120131",   "1e999",      "#DIV/0!", "time [s]",
    "Total",    "#",        "x,y",      "9"};
constexpr std::string_view kEnds[] = {"\n", "\r\n", "\r", "\n\n", "\n---+---\n"};

void run(const std::string& bytes) {
  EXPECT_EQ(
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
}

// std::mt19937 gives the same numbers everywhere; the distributions of the library need not.
std::size_t below(std::mt19937& random, std::size_t bound) {
  return random() % bound;
}

std::string some_table(std::mt19937& random) {
  constexpr std::string_view kSeparators = ",;\t| ";
  const char separator = kSeparators[below(random, kSeparators.size())];
  const std::string_view end = kEnds[below(random, std::size(kEnds))];
  const std::size_t width = 1 + below(random, 5);
  std::string bytes;
  for (std::size_t row = below(random, 12); row > 0; --row) {
    const std::size_t fields = below(random, 5) == 0 ? below(random, 7) : width;
    for (std::size_t field = 0; field < fields; ++field) {
      if (field > 0) bytes += separator;
      bytes += kCells[below(random, std::size(kCells))];
    }
    bytes += end;
  }
  return bytes;
}

TEST(TableFuzzerRun, TablesOfAnyCells) {
  std::mt19937 random(1);
  for (int i = 0; i < 10000; ++i) run(some_table(random));
}

TEST(TableFuzzerRun, OneByteWrongInATable) {
  std::mt19937 random(2);
  for (int i = 0; i < 5000; ++i) {
    std::string bytes = some_table(random);
    if (bytes.empty()) continue;
    bytes[below(random, bytes.size())] = static_cast<char>(below(random, 256));
    run(bytes);
  }
}

TEST(TableFuzzerRun, AnyBytes) {
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
