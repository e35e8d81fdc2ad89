#include <gtest/gtest.h>

#include <KurvGraph/picture.h>

#include <limits>

#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

TEST(PictureSize, ALogicalPixelHasFifteenTwips) {
  const Picture picture({400, 300});
  EXPECT_EQ(picture.device_size(), QSize(400, 300));
  EXPECT_DOUBLE_EQ(picture.twips_per_device_pixel(), 15);
  EXPECT_DOUBLE_EQ(picture.ScaleWidth(), 6000);
  EXPECT_DOUBLE_EQ(picture.ScaleHeight(), 4500);
}

TEST(PictureSize, HigherRatioHasMorePixelsAndTheSameTwips) {
  const Picture picture({400, 300}, 1.5);
  EXPECT_EQ(picture.device_size(), QSize(600, 450));
  EXPECT_DOUBLE_EQ(picture.twips_per_device_pixel(), 10);
  EXPECT_DOUBLE_EQ(picture.ScaleWidth(), 6000);
}

TEST(PictureSize, WholeDevicePixelsDecideTheTwips) {
  const Picture picture({3, 5}, 1.25);
  EXPECT_EQ(picture.device_size(), QSize(4, 6));
  EXPECT_DOUBLE_EQ(picture.ScaleWidth(), 48);
  EXPECT_DOUBLE_EQ(picture.ScaleHeight(), 72);
}

TEST(PictureSize, WidePicturesHaveFewerTwipsInBothDirections) {
  const Picture picture({3840, 1080});
  EXPECT_EQ(picture.device_size(), QSize(3840, 1080));
  EXPECT_DOUBLE_EQ(picture.twips_per_device_pixel(), 32767.0 / 3840);
  EXPECT_LE(picture.ScaleWidth(), 32767);
  EXPECT_NEAR(picture.ScaleWidth(), 32767, 1e-6);
  EXPECT_NEAR(picture.ScaleHeight(), 32767.0 * 1080 / 3840, 1e-6);
}

TEST(PictureSize, IsAtLeastOnePixel) {
  EXPECT_EQ(Picture({0, 0}).device_size(), QSize(1, 1));
  EXPECT_EQ(Picture(QSize(-7, 20)).device_size(), QSize(1, 20));
  EXPECT_EQ(Picture({100, 1}, 0.01).device_size(), QSize(1, 1));
  EXPECT_EQ(Picture({100, 1}, std::numeric_limits<double>::denorm_min()).device_size(),
            QSize(1, 1));
}

TEST(PictureSize, AnUnusableRatioCountsAsOne) {
  for (const double ratio : {0.0, -2.0, std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(Picture({40, 30}, ratio).device_size(), QSize(40, 30)) << ratio;
  }
}

TEST(PictureSize, MemoryIsBoundedByALowerResolution) {
  constexpr int kHuge = std::numeric_limits<int>::max();
  Picture picture({kHuge, 2});
  EXPECT_EQ(picture.device_size(), QSize(32767, 1));
  EXPECT_LE(picture.ScaleWidth(), 32767);
  picture.resize({2, 2}, 1e300);
  EXPECT_EQ(picture.device_size(), QSize(11520, 11520));
  EXPECT_NEAR(picture.ScaleWidth(), 30, 1e-9);
  EXPECT_DOUBLE_EQ(picture.image().devicePixelRatio(), 5760);
}

TEST(PictureSize, ImageHasRatioAndResolution) {
  const QImage plain = Picture({40, 30}).image();
  EXPECT_EQ(plain.format(), QImage::Format_RGB32);
  EXPECT_EQ(plain.dotsPerMeterX(), 3780);
  EXPECT_EQ(plain.dotsPerMeterY(), 3780);
  const QImage dense = Picture({40, 30}, 2).image();
  EXPECT_EQ(dense.devicePixelRatio(), 2);
  EXPECT_EQ(dense.dotsPerMeterX(), 7559);
}

TEST(PictureSize, ResizeStartsWhiteAndKeepsPenFontAndColour) {
  Picture picture({40, 40});
  picture.DrawWidth(3);
  picture.set_ForeColor(12);
  const Font font{"Liberation Sans", 17, true, false};
  picture.set_font(font);
  picture.Line({0, 0}, {600, 600}, 4, LineKind::kSegment);
  picture.resize({40, 40}, 1);
  EXPECT_TRUE(ink_of(picture.image()).isNull());
  EXPECT_EQ(picture.font(), font);
  EXPECT_EQ(picture.ForeColor(), 12);
  picture.Line({150, 150}, {300, 150}, 4, LineKind::kRule);
  EXPECT_EQ(ink_of(picture.image()).height(), 3);
}

TEST(PictureSize, AnImageHandedOutDoesNotChangeAfterwards) {
  Picture picture({40, 40});
  const QImage before = picture.image();
  picture.Line({0, 0}, {600, 600}, 4, LineKind::kSegment);
  EXPECT_TRUE(ink_of(before).isNull());
  EXPECT_FALSE(ink_of(picture.image()).isNull());
}

TEST(PictureSize, ImagesOfAnUnchangedPictureShareTheirPixels) {
  const Picture picture({40, 40});
  EXPECT_EQ(picture.image().constBits(), picture.image().constBits());
}

}  // namespace
}  // namespace kurv
