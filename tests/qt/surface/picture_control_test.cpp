// A whole control on real pixels.
#include <KurvGraph/picture.h>
#include <gtest/gtest.h>

#include <QImage>
#include <set>

#include "control/control_state.h"
#include "render/axes.h"
#include "render/markers.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

constexpr QRgb kGrey = 0xFF808080;
constexpr QRgb kWhitePixel = 0xFFFFFFFF;
constexpr QRgb kBlackPixel = 0xFF000000;

struct PictureHost {
  explicit PictureHost(double ratio) : picture(QSize(400, 300), ratio) {
    control.first_placement();
    control.show();
    control.scatter_graph(test::columns({{0, 20}}), test::points({0, 10}), 2, 1, String(""), "x",
                          test::names({"y"}), 0, {});
  }

  test::PlainContainer container;
  test::ScriptedShell shell;
  Picture picture;
  Control control{container, shell, picture};
};

TEST(PictureOfAControl, TicksGridAndFrameAreCrisp) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    PictureHost host(ratio);
    host.control.set_X_grid(true);
    host.control.set_Y_grid(true);
    host.control.build_the_graph();
    host.control.build_the_graph();
    host.picture.Cls();
    // The axes alone: between the labels nothing but grey, black and white.
    DrawAxes(host.control.state().document, *library_services().numeric,
             host.control.state().layout, host.picture);
    const QImage image = host.picture.image();
    const PlotRect& plot = host.control.state().layout.plot;
    const double twips = host.picture.twips_per_device_pixel();
    const int left = static_cast<int>(plot.PlotLeft / twips) - 2;
    const int right = static_cast<int>((plot.PlotLeft + plot.PlotWidth) / twips) + 2;
    const int top = static_cast<int>(plot.PlotTop / twips) - 2;
    const int bottom = static_cast<int>((plot.PlotTop + plot.PlotHeight) / twips) + 2;
    int grey = 0;
    for (int y = top; y <= bottom; ++y) {
      for (int x = left; x <= right; ++x) {
        const QRgb pixel = image.pixel(x, y);
        ASSERT_TRUE(pixel == kGrey || pixel == kWhitePixel || pixel == kBlackPixel)
            << ratio << ": " << x << ' ' << y << ' ' << std::hex << pixel;
        grey += pixel == kGrey;
      }
    }
    EXPECT_GT(grey, 12 * (right - left)) << "nine lines or more each way";
  }
}

TEST(PictureOfAControl, FortyMarkersArePairwiseDistinctAlsoAtTheirDefaultSize) {
  for (const Double size : {40.0, 100.0}) {
    GraphDocument document;
    set_marker_size(document, size);
    std::set<QByteArray> pictures;
    for (int kind = 0; kind < kMarkerKinds; ++kind) {
      Picture picture(QSize(30, 30));
      // Kinds repeat after 40 curves and colours after 14, so each kind comes in black or in dark
      // blue, which have the same red.
      int number = kind;
      while (number % 14 > 1) number += kMarkerKinds;
      DrawMarker(document, picture, number, 226, 229, false);
      const QImage image = picture.image();
      QByteArray shape;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          shape.append(static_cast<char>(qRed(image.pixel(x, y)) / 16));
        }
      }
      pictures.insert(shape);
    }
    EXPECT_EQ(pictures.size(), 40U) << size;
  }
}

}  // namespace
}  // namespace kurv
