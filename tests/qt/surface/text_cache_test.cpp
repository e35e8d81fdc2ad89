#include "pixels/text_cache.h"

#include <gtest/gtest.h>

#include <KurvGraph/picture.h>

#include <QGuiApplication>
#include <QPainter>
#include <cmath>

#include "model/palette.h"
#include "qt/surface/text_layout.h"
#include "tests/qt/surface/picture_pixels.h"

namespace kurv {
namespace {

Font sized(Single points, bool bold = false) {
  Font font;
  font.FontSize = points;
  font.FontBold = bold;
  return font;
}

struct Sample {
  Single x;
  Single y;
  std::string text;
  Font font;
  int colour;
};

const std::vector<Sample> kSamples = {
    {100, 100, "Absorbance (a.u.)", sized(8), 0},
    {100.3F, 399.9F, "fjords, WAVE", sized(9.75F), 12},
    {-180, -60, "cut off", sized(14, true), 1},
    {2600, 700, "cut off on the right", sized(11), 5},
    {900, 300, "two\r\nlines", sized(8.25F), 0},
    {300, 500, "\xC3\x85ngstr\xC3\xB6m \xE2\x88\x9A", sized(24), 7},
    {200, 800, "huge", sized(300), 3},
    {9000, 9000, "nowhere", sized(8), 0},
    {500, 500, "", sized(8), 0},
    {500, 500, "   ", sized(8), 0},
};

void print(Picture& picture, const Sample& sample) {
  picture.set_font(sample.font);
  picture.set_ForeColor(sample.colour);
  picture.Print(sample.x, sample.y, sample.text);
}

// Painted directly by QPainter.
QImage painted(const Picture& like, const Sample& sample, QRgb backdrop) {
  QImage image(like.device_size(), QImage::Format_RGB32);
  image.fill(backdrop);
  const TextLayout layout(sample.font);
  const double pixels = 1 / like.twips_per_device_pixel();
  QPainter painter(&image);
  painter.setFont(layout.font());
  painter.setPen(QColor::fromRgb(palette_rgb(sample.colour)));
  const double scale = layout.twips_per_font_pixel() * pixels;
  const QSizeF page = QSizeF(image.size()) / pixels;
  layout.place({sample.x, sample.y}, sample.text, page, [&](const PlacedPiece& piece) {
    painter.setTransform(QTransform(scale, 0, 0, scale, piece.left * pixels,
                                    std::floor(piece.baseline * pixels + 0.5)));
    painter.drawText(QPointF(0, 0), piece.text);
  });
  return image;
}

TEST(TextCache, LooksLikeTextPaintedDirectly) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    for (const Sample& sample : kSamples) {
      for (const int backdrop : {15, 6, 0}) {
        Picture picture({200, 90}, ratio);
        picture.Line({-100, -100}, {9000, 9000}, backdrop, LineKind::kFilledBox);
        print(picture, sample);
        EXPECT_LE(
            largest_difference(picture.image(), painted(picture, sample, palette_rgb(backdrop))), 1)
            << sample.text << ' ' << ratio << ' ' << backdrop;
      }
    }
  }
}

TEST(TextCache, PaintsAgainAfterAChangeOfFonts) {
  const int before = font_generation();
  EXPECT_EQ(font_generation(), before);
  emit qGuiApp->fontDatabaseChanged();
  EXPECT_NE(font_generation(), before);
  Picture picture({200, 90});
  print(picture, kSamples[0]);
  const QImage image = picture.image();
  emit qGuiApp->fontDatabaseChanged();
  picture.Cls();
  print(picture, kSamples[0]);
  EXPECT_EQ(picture.image(), image);
}

TEST(TextCache, GivesTheSamePixelsEachTime) {
  Picture used({200, 90}, 1.25);
  for (int round = 0; round < 3; ++round) {
    for (const Sample& sample : kSamples) {
      Picture fresh({200, 90}, 1.25);
      print(fresh, sample);
      used.Cls();
      print(used, sample);
      ASSERT_EQ(used.image(), fresh.image()) << sample.text << ' ' << round;
    }
  }
}

TEST(TextCache, DistinguishesAllThatAffectsThePixels) {
  const Sample plain = kSamples.front();
  std::vector<Sample> others(7, plain);
  others[0].x += 1;
  others[1].y += 15;
  others[2].text += ".";
  others[3].font.FontSize += 1;
  others[4].font.FontBold = true;
  others[5].font.FontItalic = true;
  others[6].colour = 4;
  Picture used({200, 90});
  print(used, plain);
  const QImage before = used.image();
  for (const Sample& other : others) {
    used.Cls();
    print(used, other);
    EXPECT_NE(used.image(), before);
  }
}

TEST(TextCache, FollowsTheSizeOfThePicture) {
  Picture used({200, 90}), fresh({300, 120}, 2);
  print(used, kSamples[3]);
  used.resize({300, 120}, 2);
  print(used, kSamples[3]);
  print(fresh, kSamples[3]);
  EXPECT_EQ(used.image(), fresh.image());
}

// More than are cached.
TEST(TextCache, SurvivesAnyNumberOfTexts) {
  Picture used({600, 500});
  for (int round = 0; round < 2; ++round) {
    used.Cls();
    for (int i = 0; i < 3000; ++i) {
      print(used, {static_cast<Single>(i % 70) * 100, static_cast<Single>(i / 70) * 150,
                   "number " + std::to_string(i), sized(12), i % 15});
    }
  }
  const Sample last{100, 100, "the last", sized(12), 0};
  Picture fresh({600, 500});
  used.Cls();
  print(used, last);
  print(fresh, last);
  EXPECT_EQ(used.image(), fresh.image());
}

}  // namespace
}  // namespace kurv
