// The surface of pixels without a toolkit, compared with Qt's.
#include <gtest/gtest.h>

#include <KurvGraph/picture.h>

#include <QBuffer>
#include <memory>
#include <string>
#include <vector>

#include "qt/surface/qt_text_painter.h"

namespace kurv {
namespace {

QImage image_of(const PixelPicture& picture) {
  const PixelView view = picture.pixels();
  return QImage(reinterpret_cast<const uchar*>(view.pixels), view.width, view.height,
                view.stride * 4, QImage::Format_RGB32)
      .copy();
}

void draw(PlotSurface& surface) {
  surface.Line({50, 40}, {900, 700}, 12, LineKind::kSegment);
  surface.DrawWidth(3);
  surface.Line({100, 100}, {800, 600}, 9, LineKind::kBox);
  surface.Circle({400, 300}, 200, 2);
  surface.Print(120, 130, "Kurve\nfjord");
  std::vector<Double> x;
  for (int i = 0; i < 100; ++i) x.push_back(10 * i);
  surface.Repeat({x, x}, 60, [](PlotSurface& on, FigureCentre centre) {
    on.Circle({static_cast<Single>(centre.x), static_cast<Single>(centre.y)}, 50, 4);
  });
}

TEST(PixelPicture, DrawsTheSamePixelsInMemoryAndInAnImage) {
  for (const double ratio : {1.0, 1.25, 2.0}) {
    Picture picture({61, 47}, ratio);
    PixelPicture in_memory(std::make_shared<QtTextPainter>(), 61, 47, ratio);
    draw(picture);
    draw(in_memory);
    EXPECT_EQ(image_of(in_memory), image_of(picture)) << ratio;
    EXPECT_EQ(image_of(in_memory), picture.image().copy()) << ratio;
    EXPECT_EQ(in_memory.pixels().pixels_per_metre, picture.image().dotsPerMeterX());
  }
}

TEST(PixelPicture, PixelsAreThoseOfTheImageWithoutACopy) {
  const Picture picture({61, 47});
  EXPECT_EQ(reinterpret_cast<const uchar*>(picture.pixels().pixels), picture.image().constBits());
}

TEST(PixelPicture, BitmapHasTheBytesOfQtsWriter) {
  for (int width = 1; width <= 5; ++width) {
    Picture picture({width, 20}, 1.5);
    draw(picture);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(picture.image().save(&buffer, "BMP"));
    EXPECT_EQ(picture.bitmap(), bytes.toStdString()) << width;
  }
}

TEST(PixelPicture, ResizesAndStartsWhite) {
  PixelPicture picture(std::make_shared<QtTextPainter>(), 10, 10);
  picture.Line({-100, -100}, {900, 900}, 0, LineKind::kFilledBox);
  EXPECT_EQ(picture.pixels().row(9)[9], 0xFF000000);
  picture.resize(30, 20, 2);
  EXPECT_EQ(picture.pixels().width, 60);
  EXPECT_EQ(picture.pixels().height, 40);
  EXPECT_EQ(picture.pixels().row(39)[59], 0xFFFFFFFF);
}

}  // namespace
}  // namespace kurv
