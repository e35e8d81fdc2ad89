#include "fonts/characters.h"

#include <gtest/gtest.h>

#include <string>

namespace kurv {
namespace {

std::u32string first_piece(std::string_view line) {
  return take_piece(line);
}

std::string levels(const std::u32string& text) {
  std::string digits;
  for (const std::uint8_t level : levels_of(text)) digits += static_cast<char>('0' + level);
  return digits;
}

TEST(Characters, AreDecoded) {
  EXPECT_EQ(first_piece("a\xC3\xA9\xE2\x88\x9A\xF0\x9D\x84\x9E"), U"a\u00E9\u221A\U0001D11E");
  EXPECT_EQ(first_piece(""), U"");
}

TEST(Characters, BytesThatAreNoCharacterAreReplaced) {
  EXPECT_EQ(first_piece("a\xC3"), U"a\uFFFD");
  EXPECT_EQ(first_piece("\xFF\x80x"), U"\uFFFD\uFFFDx");
}

TEST(Characters, ControlCharactersAreBlanks) {
  EXPECT_EQ(first_piece(std::string_view("a\tb\0c\x7F\xC2\x85\xE2\x80\xA8z", 12)), U"a b c   z");
}

TEST(Characters, PiecesAreBounded) {
  const std::string long_line(1000000, 'x');
  std::string_view rest = long_line;
  EXPECT_EQ(take_piece(rest).size(), 200u);
  EXPECT_EQ(rest.size(), 999800u);
  std::string clefs;
  for (int i = 0; i < 150; ++i) clefs += "\xF0\x9D\x84\x9E";
  rest = clefs;
  EXPECT_EQ(take_piece(rest).size(), 100u);
  EXPECT_EQ(take_piece(rest).size(), 50u);
  EXPECT_TRUE(rest.empty());
}

TEST(Characters, LatinTextRunsToTheRight) {
  EXPECT_EQ(levels(U"x = 1.5 (mm)"), std::string(12, '0'));
  EXPECT_EQ(levels(U""), "");
  EXPECT_EQ(levels(U"1.5"), "000");
}

// Hebrew alef, bet and gimel.
TEST(Characters, HebrewRunsToTheLeft) {
  EXPECT_EQ(levels(U"\u05D0\u05D1 \u05D2"), "1111");
  EXPECT_EQ(levels(U"ab \u05D0\u05D1 cd"), "00011000");
  EXPECT_EQ(levels(U"\u05D0 ab \u05D1"), "112211");
}

TEST(Characters, NumbersInHebrewRunToTheRight) {
  EXPECT_EQ(levels(U"\u05D0 12.5 \u05D1"), "11222211");
  EXPECT_EQ(levels(U"a \u05D0 12"),
            "00112"
            "2");
}

TEST(Characters, MarksGoWithTheirLetter) {
  EXPECT_EQ(levels(U"\u05D0\u05B8 a"), "1112");
  EXPECT_EQ(levels(U"e\u0301"), "00");
}

}  // namespace
}  // namespace kurv
