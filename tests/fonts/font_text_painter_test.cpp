#include <KurvGraph/font_text_painter.h>

#include <gtest/gtest.h>

#include <KurvGraph/pixel_picture.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <string>

namespace kurv {
namespace {

constexpr Single kNaN = std::numeric_limits<Single>::quiet_NaN();
constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
constexpr const char* kSans = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";
constexpr const char* kMono = "/usr/share/fonts/truetype/liberation/LiberationMono-Regular.ttf";

Font sized(Single points, bool bold = false, bool italic = false) {
  return {"Liberation Sans", points, bold, italic};
}

std::string file(const char* path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct Drawn : PixelPicture {
  explicit Drawn(std::string_view text, const Font& font = {}, Single x = 150, Single y = 150,
                 std::shared_ptr<TextPainter> painter = std::make_shared<FontTextPainter>(),
                 double ratio = 1)
      : PixelPicture(std::move(painter), 200, 60, ratio) {
    set_font(font);
    Print(x, y, text);
  }
  std::vector<std::uint32_t> all() const {
    const PixelView view = pixels();
    return {view.pixels, view.pixels + view.stride * view.height};
  }
  // The bounds of what is not white.
  PixelBox ink() const {
    const PixelView view = pixels();
    PixelBox box{view.width, view.height, 0, 0};
    for (int y = 0; y < view.height; ++y) {
      for (int x = 0; x < view.width; ++x) {
        if (view.row(y)[x] == 0xFFFFFFFF) continue;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
               std::max(box.bottom, y + 1)};
      }
    }
    return box;
  }
};

TEST(FontTextPainter, ExtentsGrowWithTheFont) {
  FontTextPainter texts;
  const double width = texts.text_width(sized(100), "Kurve") / 100;
  const double height = texts.text_height(sized(100), "Kurve") / 100;
  EXPECT_GT(width, 0);
  for (const Single points : {0.3F, 6.1F, 8.26F, 72.0F, 500.0F, 1638.0F}) {
    EXPECT_NEAR(texts.text_width(sized(points), "Kurve") / points, width, 0.02 * width);
    EXPECT_NEAR(texts.text_height(sized(points), "Kurve") / points, height,
                1 / points + 0.01 * height);
  }
}

TEST(FontTextPainter, UnusableSizesCountAsEight) {
  FontTextPainter texts;
  for (const Single size : {0.0F, -3.0F, -kInfinity, kNaN}) {
    EXPECT_EQ(texts.text_width(sized(size), "Kurve"), texts.text_width(sized(8), "Kurve"));
  }
  EXPECT_EQ(texts.text_width(sized(kInfinity), "Kurve"), texts.text_width(sized(1638), "Kurve"));
}

TEST(FontTextPainter, BoldIsWiderAndItalicLooksDifferent) {
  FontTextPainter texts;
  EXPECT_GT(texts.text_width(sized(8, true), "Legend"), texts.text_width(sized(8), "Legend"));
  EXPECT_NE(Drawn("Legend", sized(8, false, true)).all(), Drawn("Legend", sized(8)).all());
}

TEST(FontTextPainter, AFamilyWithoutTheStyleIsMadeBoldAndItalic) {
  const auto texts = std::make_shared<FontTextPainter>(FontTextPainter::Source::kAddedOnly);
  ASSERT_TRUE(texts->add_font_file(kSans));
  EXPECT_GT(texts->text_width(sized(8, true), "Legend"), texts->text_width(sized(8), "Legend"));
  const auto plain = Drawn("Legend", sized(8), 150, 150, texts).all();
  EXPECT_NE(Drawn("Legend", sized(8, true), 150, 150, texts).all(), plain);
  EXPECT_NE(Drawn("Legend", sized(8, false, true), 150, 150, texts).all(), plain);
}

TEST(FontTextPainter, AnEmptyTextHasNoWidthAndTheHeightOfALine) {
  FontTextPainter texts;
  EXPECT_EQ(texts.text_width(sized(8), ""), 0);
  EXPECT_EQ(texts.text_height(sized(8), ""), texts.text_height(sized(8), "x"));
  EXPECT_EQ(texts.text_height(sized(8), "a\r\nb"), 2 * texts.text_height(sized(8), "x"));
  EXPECT_EQ(texts.text_width(sized(8), "a\nwider\rb"), texts.text_width(sized(8), "wider"));
  EXPECT_TRUE(Drawn("").ink().is_empty());
}

TEST(FontTextPainter, PairsAreKerned) {
  FontTextPainter texts;
  EXPECT_LT(texts.text_width(sized(20), "AV"),
            texts.text_width(sized(20), "A") + texts.text_width(sized(20), "V"));
}

TEST(FontTextPainter, InkIsInsideTheExtents) {
  const Drawn drawn("IIII", sized(20));
  const PixelBox ink = drawn.ink();
  EXPECT_GE(ink.left, 10);
  EXPECT_GE(ink.top, 10);
  EXPECT_LE(ink.right, 10 + drawn.TextWidth("IIII") / 15);
  EXPECT_LE(ink.bottom, 10 + drawn.TextHeight("IIII") / 15);
  EXPECT_GT(ink.height(), 15);
}

TEST(FontTextPainter, ExtentsAreTheSameAtEveryRatio) {
  const Drawn plain("Absorbance");
  for (const double ratio : {0.5, 1.25, 2.0, 3.7}) {
    const Drawn dense("Absorbance", {}, 150, 150, std::make_shared<FontTextPainter>(), ratio);
    EXPECT_EQ(dense.TextWidth("Absorbance"), plain.TextWidth("Absorbance"));
    EXPECT_NEAR(dense.ink().width() / ratio, plain.ink().width(), 1.5 / ratio + 1);
  }
}

TEST(FontTextPainter, ControlCharactersAreBlanks) {
  const std::string text("a\tb\0c", 5);
  EXPECT_EQ(Drawn(text).all(), Drawn("a b c").all());
}

TEST(FontTextPainter, AMissingCharacterIsTakenFromAnotherFont) {
  const auto sans_alone = std::make_shared<FontTextPainter>(FontTextPainter::Source::kAddedOnly);
  ASSERT_TRUE(sans_alone->add_font_file(kSans));
  // A letter of the Coptic alphabet, or a chess queen, which Liberation Sans lacks.
  const std::string queen = "\xE2\x99\x95";
  const Drawn with_box(queen, sized(20), 150, 150, sans_alone);
  const Drawn with_queen(queen, sized(20));
  EXPECT_FALSE(with_box.ink().is_empty()) << "the box of a missing character";
  EXPECT_NE(with_box.all(), with_queen.all());
}

TEST(FontTextPainter, WhatNoFontHasIsABox) {
  const Drawn drawn("\xF3\xBF\xBF\xBD", sized(20));  // of the private use
  EXPECT_FALSE(drawn.ink().is_empty());
}

// The text begins with alef, the rightmost letter, and ends with lamed, the tallest one.
TEST(FontTextPainter, HebrewBeginsAtTheRight) {
  const Drawn drawn("\xD7\x90\xD7\x90\xD7\x9C", sized(20));
  const PixelBox ink = drawn.ink();
  const PixelView view = drawn.pixels();
  int top_at = 0;
  for (int x = ink.left; x < ink.right; ++x) {
    if (view.row(ink.top)[x] != 0xFFFFFFFF) top_at = x;
  }
  EXPECT_LT(top_at, ink.left + ink.width() / 2);
}

TEST(FontTextPainter, ArabicLettersAreJoined) {
  FontTextPainter texts;
  const std::string beh = "\xD8\xA8", text = beh + beh + beh;
  EXPECT_NE(texts.text_width(sized(20), text), 3 * texts.text_width(sized(20), beh));
}

TEST(FontTextPainter, MarksStandOnTheirLetter) {
  FontTextPainter texts;
  EXPECT_NEAR(texts.text_width(sized(20), "e\xCC\x81"), texts.text_width(sized(20), "e"), 1);
}

TEST(FontTextPainter, LettersAreGrey) {
  const Drawn drawn("Wavelength / nm");
  for (const std::uint32_t pixel : drawn.all()) {
    const std::uint32_t grey = pixel & 0xFF;
    ASSERT_EQ(pixel, 0xFF000000 | grey << 16 | grey << 8 | grey);
  }
}

TEST(FontTextPainter, AMegabyteTakesBoundedTime) {
  const std::string text(1 << 20, 'x');
  const auto begin = std::chrono::steady_clock::now();
  const Drawn drawn(text);
  EXPECT_EQ(drawn.ink().right, 200);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
  FontTextPainter texts;
  EXPECT_NEAR(texts.text_width(sized(8), text), texts.text_width(sized(8), "xxxx") * (1 << 18),
              4000);
}

// Twenty thousand characters, most of which no font has.
TEST(FontTextPainter, ManyDifferentCharactersTakeBoundedTime) {
  std::string text;
  for (int i = 0; i < 20000; ++i) {
    const int character = 0x4E00 + i;
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  }
  FontTextPainter texts;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_GT(texts.text_width(sized(8), text), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}

TEST(FontTextPainter, FarAndHugeTextsDrawWhatIsVisible) {
  for (const Single at : {kInfinity, -kInfinity, kNaN, 3e38F, -3e38F}) {
    EXPECT_TRUE(Drawn("far", sized(8), at, 100).ink().is_empty());
    EXPECT_TRUE(Drawn("far", sized(8), 100, at).ink().is_empty());
  }
  EXPECT_FALSE(Drawn("M", sized(1638), -5000, -9000).ink().is_empty());
  for (const double ratio : {50.0, 1e6}) {
    Drawn dense("M", sized(1638), -5000, -9000, std::make_shared<FontTextPainter>(), ratio);
    dense.pixels();
  }
}

TEST(FontTextPainter, FontsCanBeBytes) {
  const auto texts = std::make_shared<FontTextPainter>(FontTextPainter::Source::kAddedOnly);
  EXPECT_TRUE(texts->add_font(file(kSans)));
  EXPECT_EQ(Drawn("Kurve", sized(12), 150, 150, texts).all(), Drawn("Kurve", sized(12)).all());
}

TEST(FontTextPainter, AnAddedFontIsFoundByItsFamily) {
  FontTextPainter texts(FontTextPainter::Source::kAddedOnly);
  const int before = texts.generation();
  ASSERT_TRUE(texts.add_font_file(kSans));
  ASSERT_TRUE(texts.add_font_file(kMono));
  EXPECT_NE(texts.generation(), before);
  const Font mono{"liberation mono", 8, false, false};
  EXPECT_EQ(texts.text_width(mono, "iiii"), texts.text_width(mono, "MMMM"));
  EXPECT_NE(texts.text_width(sized(8), "iiii"), texts.text_width(sized(8), "MMMM"));
}

TEST(FontTextPainter, WhatIsNoFontIsRefused) {
  FontTextPainter texts(FontTextPainter::Source::kAddedOnly);
  EXPECT_FALSE(texts.add_font(""));
  EXPECT_FALSE(texts.add_font("no font"));
  EXPECT_FALSE(texts.add_font(file(kSans).substr(0, 300)));
  EXPECT_FALSE(texts.add_font_file("/nowhere/font.ttf"));
  EXPECT_FALSE(texts.add_font_file("/usr"));
}

TEST(FontTextPainter, ADamagedFontDoesNoHarm) {
  const std::string whole = file(kSans);
  for (std::size_t size = whole.size() / 8; size < whole.size(); size += whole.size() / 8) {
    const auto texts = std::make_shared<FontTextPainter>(FontTextPainter::Source::kAddedOnly);
    std::string damaged = whole;
    for (std::size_t at = size; at < size + 4000 && at < damaged.size(); at += 7) damaged[at] ^= 85;
    texts->add_font(damaged);
    Drawn("Kurve, fjords and 12.5 %", sized(12), 150, 150, texts).pixels();
  }
}

TEST(FontTextPainter, WithoutAFontTheExtentsAreEstimated) {
  const auto texts = std::make_shared<FontTextPainter>(FontTextPainter::Source::kAddedOnly);
  EXPECT_EQ(texts->text_width(sized(10), "xxxx"), 400);
  EXPECT_GT(texts->text_height(sized(10), "x"), 200);
  EXPECT_TRUE(Drawn("Kurve", sized(10), 150, 150, texts).ink().is_empty());
}

TEST(FontTextPainter, AFamilyThatDoesNotExistHasAnother) {
  EXPECT_FALSE(Drawn("Kurve", {"No Such Family", 12, false, false}).ink().is_empty());
  EXPECT_FALSE(Drawn("Kurve", {"", 12, false, false}).ink().is_empty());
}

}  // namespace
}  // namespace kurv
