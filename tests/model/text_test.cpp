
#include <KurvGraph/text.h>

#include <gtest/gtest.h>

namespace kurv {
namespace {

TEST(Text, TrimmingTakesBlanksOrLineEndsToo) {
  EXPECT_EQ(trim_blanks(" \ta b\t "), "a b");
  EXPECT_EQ(trim_blanks("\r\na\n"), "\r\na\n");
  EXPECT_EQ(trim_whitespace(" \r\n\ta b\t\r\n "), "a b");
  for (const char* nothing : {"", " ", "\t \t"}) {
    EXPECT_EQ(trim_blanks(nothing), "");
    EXPECT_EQ(trim_whitespace(nothing), "");
  }
}

TEST(Text, OnlyAsciiLettersHaveTwoCases) {
  EXPECT_EQ(to_lower("AZ az_[@ \xC3\x84"), "az az_[@ \xC3\x84");
  EXPECT_TRUE(equals_ignoring_case("GDF", "gdF"));
  EXPECT_TRUE(equals_ignoring_case("", ""));
  EXPECT_FALSE(equals_ignoring_case("gdf", "gd"));
  EXPECT_FALSE(equals_ignoring_case("\xC3\x84", "\xC3\xA4"));
  EXPECT_FALSE(equals_ignoring_case("@", "`"));
}

TEST(Text, WordsOfTruth) {
  EXPECT_STREQ(boolean_to_text(true), "True");
  EXPECT_STREQ(boolean_to_text(false), "False");
  EXPECT_EQ(word_to_boolean("\tTRUE "), Boolean(true));
  EXPECT_EQ(word_to_boolean("false"), Boolean(false));
  for (const char* other : {"", "tru", "1", "0", "true\r"}) EXPECT_FALSE(word_to_boolean(other));
}

TEST(Text, LengthOfTheFirstUtf8Character) {
  EXPECT_EQ(utf8_length(""), 0U);
  EXPECT_EQ(utf8_length("ab"), 1U);
  EXPECT_EQ(utf8_length("\xC3\xA4z"), 2U);
  EXPECT_EQ(utf8_length("\xE2\x82\xAC"), 3U);
  EXPECT_EQ(utf8_length("\xF0\x9F\x93\x88"), 4U);
  EXPECT_EQ(utf8_length("\xA4"), 0U) << "continues another character";
}

TEST(Text, ValidUtf8StaysAsItIs) {
  for (const char* text :
       {"", "plain",
        "Gr\xC3\xB6\xC3\x9F"
        "e \xE2\x82\xAC",
        "\xF0\x9F\x93\x88", "\xEF\xBF\xBF", "\xED\x9F\xBF", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(to_utf8(text), text);
  }
  const std::string with_zero("a\0b", 3);
  EXPECT_EQ(to_utf8(with_zero), with_zero);
}

TEST(Text, OtherBytesAreSingleByteWesternText) {
  EXPECT_EQ(to_utf8("Gr\xF6\xDF"
                    "e \x80\x96\xFF"),
            "Gr\xC3\xB6\xC3\x9F"
            "e \xE2\x82\xAC\xE2\x80\x93\xC3\xBF");
  EXPECT_EQ(to_utf8("\x8A\x9F\xA0"), "\xC5\xA0\xC5\xB8\xC2\xA0");
  EXPECT_EQ(to_utf8("\x81"), "\xC2\x81") << "no character of the code page";
}

TEST(Text, WhatOnlyLooksLikeUtf8IsWesternToo) {
  const std::pair<const char*, const char*> kTable[] = {
      {"\xC3", "\xC3\x83"},                                      // cut off
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                          // too long a form
      {"\xE0\x80\xA0", "\xC3\xA0\xE2\x82\xAC\xC2\xA0"},          // too long a form
      {"\xED\xA0\xA0", "\xC3\xAD\xC2\xA0\xC2\xA0"},              // a surrogate
      {"\xF4\xA0\xA0\xA0", "\xC3\xB4\xC2\xA0\xC2\xA0\xC2\xA0"},  // beyond the last
      {"\xF0\x90\xA0", "\xC3\xB0\xC2\x90\xC2\xA0"},              // cut off
      {"\xC3\xA4\xE4", "\xC3\x83\xC2\xA4\xC3\xA4"},              // a line has one encoding
  };
  for (const auto& [bytes, text] : kTable) EXPECT_EQ(to_utf8(bytes), text);
}

TEST(Text, EveryByteComesOutAsValidUtf8) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = to_utf8(std::string(1, static_cast<char>(byte)));
    EXPECT_EQ(to_utf8(text), text) << byte;
    EXPECT_LE(text.size(), 3U);
  }
}

}  // namespace
}  // namespace kurv
