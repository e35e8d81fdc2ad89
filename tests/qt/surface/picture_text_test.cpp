#include <gtest/gtest.h>

#include <KurvGraph/picture.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
constexpr Single kNaN = std::numeric_limits<Single>::quiet_NaN();

Font sized(Single points) {
  Font font;
  font.FontSize = points;
  return font;
}

TEST(PictureText, ExtentsAreTheSameAtEveryRatio) {
  const Picture plain({400, 100});
  for (const double ratio : {0.5, 1.25, 1.5, 2.0, 3.7}) {
    const Picture picture({400, 100}, ratio);
    EXPECT_EQ(picture.TextWidth("Absorbance (a.u.)"), plain.TextWidth("Absorbance (a.u.)"));
    EXPECT_EQ(picture.TextHeight("Absorbance (a.u.)"), plain.TextHeight("Absorbance (a.u.)"));
  }
  EXPECT_GT(plain.TextWidth("Absorbance (a.u.)"), 500);
}

// The letter H has upright stems at both ends, so its ink shows where the text begins and ends.
TEST(PictureText, InkIsAsWideAsMeasuredAtEveryRatioAndSize) {
  const std::string text = "HAVANNA to 0.125, fill WAVE H";
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    for (const Single points : {6.0F, 8.0F, 8.25F, 9.75F, 12.0F, 31.3F}) {
      Picture picture({900, 80}, ratio);
      picture.set_font(sized(points));
      picture.Print(300, 300, text);
      const QRect ink = ink_of(picture.image());
      const double twips = picture.twips_per_device_pixel();
      const double bearing = 0.079 * points * 20 / twips;  // beside the stems of an H
      EXPECT_NEAR(ink.width(), picture.TextWidth(text) / twips - 2 * bearing, 2.01)
          << ratio << ' ' << points;
      EXPECT_NEAR(ink.left(), 300 / twips + bearing, 1.6) << ratio << ' ' << points;
    }
  }
}

TEST(PictureText, BaselineIsCrispAtEveryHeight) {
  for (int offset = 0; offset < 30; ++offset) {
    Picture picture({60, 60}, 1.5);
    picture.Print(150, static_cast<Single>(200 + offset), "HHHHH");
    const QImage image = picture.image();
    const QRect ink = ink_of(image);
    // The stems are as dark in the last row as in the row above.
    for (int x = ink.left(); x <= ink.right(); ++x) {
      EXPECT_EQ(image.pixel(x, ink.bottom()), image.pixel(x, ink.bottom() - 1));
    }
  }
}

TEST(PictureText, HasTheTextColourAndStaysInItsExtents) {
  Picture picture({200, 60});
  picture.set_font(sized(20));
  picture.set_ForeColor(9);
  picture.Print(150, 150, "IIII");
  const QImage image = picture.image();
  const QRect ink = ink_of(image);
  EXPECT_GE(ink.left(), 10);
  EXPECT_GE(ink.top(), 10);
  EXPECT_LE(ink.right(), 10 + picture.TextWidth("IIII") / 15);
  EXPECT_LE(ink.bottom(), 10 + picture.TextHeight("IIII") / 15);
  bool pure = false;
  for (int x = ink.left(); x <= ink.right(); ++x)
    pure = pure || is_palette(image, x, ink.center().y(), 9);
  EXPECT_TRUE(pure);
}

TEST(PictureText, IsGreyWithoutColourFringes) {
  Picture picture({300, 40});
  picture.Print(50, 50, "Wavelength / nm");
  const QImage image = picture.image();
  ASSERT_FALSE(ink_of(image).isNull());
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      ASSERT_TRUE(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel));
    }
  }
}

TEST(PictureText, EveryKindOfLineEndBeginsANewLine) {
  const Picture picture({10, 10});
  const double line = picture.TextHeight("x");
  EXPECT_GT(line, 160);
  EXPECT_EQ(picture.TextHeight(""), line);
  EXPECT_EQ(picture.TextWidth(""), 0);
  EXPECT_EQ(picture.TextHeight("a\nb"), 2 * line);
  EXPECT_EQ(picture.TextHeight("a\rb"), 2 * line);
  EXPECT_EQ(picture.TextHeight("a\r\nb"), 2 * line);
  EXPECT_EQ(picture.TextHeight("a\n\rb"), 3 * line);
  EXPECT_EQ(picture.TextHeight("a\r\n"), 2 * line);
  EXPECT_EQ(picture.TextHeight("\n"), 2 * line);
  EXPECT_EQ(picture.TextWidth("a\nwider\rb"), picture.TextWidth("wider"));
}

TEST(PictureText, LinesAreDrawnOneBelowTheOther) {
  Picture both({100, 100}), apart({100, 100});
  both.Print(150, 150, "first\r\nsecond");
  apart.Print(150, 150, "first");
  apart.Print(150, 150 + static_cast<Single>(apart.TextHeight("x")), "second");
  EXPECT_EQ(both.image(), apart.image());
}

TEST(PictureText, ControlCharactersShowAsBlanks) {
  Picture with_controls({200, 30}), blank({200, 30});
  const std::string text(
      "a\tb\0c\x7f"
      "d\x1b"
      "e\xc2\x85"
      "f",
      12);
  with_controls.Print(50, 50, text);
  blank.Print(50, 50, "a b c d e f");
  EXPECT_EQ(with_controls.TextWidth(text), blank.TextWidth("a b c d e f"));
  EXPECT_EQ(with_controls.image(), blank.image());
}

TEST(PictureText, UnusableFontSizesCountAsEightAndHugeOnesAsTheLargest) {
  Picture picture({10, 10});
  const double eight = picture.TextWidth("Kurve");
  for (const Single size : {0.0F, -3.0F, -kInfinity, kNaN}) {
    picture.set_font(sized(size));
    EXPECT_EQ(picture.TextWidth("Kurve"), eight) << size;
  }
  picture.set_font(sized(1638));
  const double largest = picture.TextWidth("Kurve");
  EXPECT_NEAR(picture.TextHeight("Kurve"), 1638 * 20 * 1.117, 20);
  EXPECT_NEAR(largest / eight, 1638 / 8.0, 0.5);
  picture.set_font(sized(kInfinity));
  EXPECT_EQ(picture.TextWidth("Kurve"), largest);
}

TEST(PictureText, ExtentsGrowInProportionToTheFont) {
  Picture picture({10, 10});
  picture.set_font(sized(100));
  const double width = picture.TextWidth("Kurve") / 100, height = picture.TextHeight("Kurve") / 100;
  for (const Single points : {0.3F, 6.1F, 8.26F, 72.0F, 500.0F, 1000.0F, 1638.0F}) {
    picture.set_font(sized(points));
    EXPECT_NEAR(picture.TextWidth("Kurve") / points, width, 0.02 * width) << points;
    // Ascent and descent are whole numbers of font pixels.
    EXPECT_NEAR(picture.TextHeight("Kurve") / points, height, 1 / points + 0.01 * height) << points;
  }
}

TEST(PictureText, BoldAndItalicAreDifferentFaces) {
  Picture picture({100, 40});
  const double plain = picture.TextWidth("Legend");
  picture.Print(50, 50, "Legend");
  const QImage upright = picture.image();
  picture.set_font({"Liberation Sans", 8, true, false});
  EXPECT_GT(picture.TextWidth("Legend"), plain);
  picture.set_font({"Liberation Sans", 8, false, true});
  picture.Cls();
  picture.Print(50, 50, "Legend");
  EXPECT_NE(picture.image(), upright);
}

TEST(PictureText, AnUnknownFontIsReplaced) {
  Picture picture({100, 40});
  const double plain = picture.TextWidth("Legend");
  for (const char* name : {"No Such Family", "", ",,,", "\xff\xfe"}) {
    Font font;
    font.FontName = name;
    picture.set_font(font);
    EXPECT_EQ(picture.TextWidth("Legend"), plain) << name;
  }
}

TEST(PictureText, LongLinesAreDrawnWhereTheyAreVisible) {
  Picture picture({300, 40});
  const std::string text(20'000, 'H');
  const double width = picture.TextWidth(text);
  EXPECT_NEAR(width, 20'000 * picture.TextWidth("H"), 0.01 * width);
  // Its very end is in the middle of the picture.
  picture.Print(static_cast<Single>(2250 - width), 150, text);
  const QRect ink = ink_of(picture.image());
  EXPECT_LE(ink.left(), 1);
  EXPECT_NEAR(ink.right(), 150, 2);
}

TEST(PictureText, HostileTextIsHarmless) {
  Picture picture({60, 40}, 1.25);
  std::string mixed;
  for (int i = 0; i < 200'000; ++i) mixed += static_cast<char>(i * 7919 % 256);
  std::string wide;
  for (int i = 0; i < 50'000; ++i) wide += "\xf0\x9f\x98\x80";
  for (const std::string& text :
       {mixed, wide, std::string(1 << 20, 'W'), std::string(1 << 20, '\n')}) {
    EXPECT_GE(picture.TextWidth(text), 0);
    EXPECT_GT(picture.TextHeight(text), 0);
    picture.Print(0, 0, text);
    picture.Print(-1e6F, -1e6F, text);
  }
  for (const Single far : {kNaN, kInfinity, -kInfinity, 3e38F, -3e38F}) {
    picture.Print(far, 0, "far");
    picture.Print(0, far, "far\nfarther");
  }
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

TEST(PictureText, TheLargestFontIsDrawnInPart) {
  Picture picture({120, 90}, 2);
  picture.set_font(sized(1638));
  picture.Print(-4000, -16000, "HHH");
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

TEST(PictureText, FarAwayIsInvisible) {
  Picture picture({60, 40});
  for (const Single far : {kNaN, kInfinity, -kInfinity, 1e9F, -1e9F}) {
    picture.Print(far, 0, "text");
    picture.Print(0, far, "text");
  }
  EXPECT_TRUE(ink_of(picture.image()).isNull());
}

}  // namespace
}  // namespace kurv
