// A short run of the fuzzer's entry point over texts that are the same each time.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::string_view kPieces[] = {
    "x",    "y",       "[body mass]", "1",     "2.5",  ".",  "e",   "1e3",     "(",    ")",
    "+",    "-",       "*",           "/",     "^",    ",",  "sin", "(",       "max(", "pi",
    "min(", "atan2(",  "log(",        "[",     "]",    " ",  "é",   "\xFF",    "²",    "foo",
    "sqrt", "0",       "\n",          "1e999", "mod(", ")",  ")",   "X",       "\t",   "%",
    "]]",   "[a [b]]", "x)",          "^-",    "--",   "温", "9",   "\xE2\x82"};

void run(const std::string& text) {
  std::string bytes = text;
  EXPECT_EQ(
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0);
}

// std::mt19937 gives the same numbers everywhere; the distributions of the library need not.
std::size_t below(std::mt19937& random, std::size_t bound) {
  return random() % bound;
}

TEST(FuzzerRun, TokensInAnyOrder) {
  std::mt19937 random(1);
  for (int i = 0; i < 60000; ++i) {
    std::string text;
    for (std::size_t n = below(random, 24); n > 0; --n) {
      text += kPieces[below(random, std::size(kPieces))];
    }
    run(text);
  }
}

TEST(FuzzerRun, AnyBytes) {
  std::mt19937 random(2);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    for (std::size_t n = below(random, 40); n > 0; --n)
      text += static_cast<char>(below(random, 256));
    run(text);
  }
}

TEST(FuzzerRun, OneByteWrongInAGoodExpression) {
  const std::string good = "max(x, 2*[body mass]) ^ -1.5e-3 / (sin(x) + log10(pi)) - größe";
  std::mt19937 random(3);
  for (std::size_t at = 0; at < good.size(); ++at) {
    run(good.substr(0, at));
    run(good.substr(at));
    for (int i = 0; i < 64; ++i) {
      std::string text = good;
      text[at] = static_cast<char>(below(random, 256));
      run(text);
    }
  }
}

TEST(FuzzerRun, LongRepetitions) {
  std::mt19937 random(4);
  for (const std::string_view first : kPieces) {
    const std::string_view second = kPieces[below(random, std::size(kPieces))];
    std::string text;
    while (text.size() < 5000) text.append(first).append(second);
    run(text);
    run("1+" + text + "1");
  }
}

}  // namespace
