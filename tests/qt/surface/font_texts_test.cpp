// Texts without a toolkit beside those of Qt: the same extents, so that a graph has the same
// layout, and the same pixels outside of the letters.
#include <gtest/gtest.h>

#include <KurvGraph/control.h>
#include <KurvGraph/font_text_painter.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/picture.h>
#include <KurvGraph/png_file.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "qt/surface/qt_text_painter.h"

namespace kurv {
namespace {

// Passes texts on, and keeps the boxes between their measured extents.
class BoxedTexts final : public TextPainter {
 public:
  Double text_width(const Font& font, std::string_view text) override {
    return m_texts.text_width(font, text);
  }
  Double text_height(const Font& font, std::string_view text) override {
    return m_texts.text_height(font, text);
  }
  PixelBox bounds(const PlacedText& text, const PictureSize& picture) override {
    return m_texts.bounds(text, picture);
  }
  void paint(const PlacedText& text, const PictureSize& picture,
             const TextTarget& target) override {
    constexpr int kOverhang = 2;
    const auto pixel = [&](double twips) {
      return int(std::floor(twips / picture.twips_per_pixel));
    };
    boxes.push_back({pixel(text.at.x) - kOverhang, pixel(text.at.y) - kOverhang,
                     pixel(text.at.x + text_width(text.font, text.text)) + 1 + kOverhang,
                     pixel(text.at.y + text_height(text.font, text.text)) + 1 + kOverhang});
    m_texts.paint(text, picture, target);
  }

  std::vector<PixelBox> boxes;

 private:
  FontTextPainter m_texts;
};

void draw_graph(PlotSurface& surface, bool has_texts) {
  HeadlessContainer container(surface);
  HeadlessShell shell;
  Control graph(container, shell, surface);
  graph.first_placement();
  graph.show();
  graph.set_X_grid(true);
  graph.set_Y_grid(true);
  constexpr int kPoints = 300;
  Matrix<Double> columns(1, 4, 1, kPoints);
  std::vector<Double> x, values;
  for (int i = 0; i < kPoints; ++i) x.push_back(i);
  columns.set_column(1, x);
  for (int curve = 1; curve <= 3; ++curve) {
    values.clear();
    for (const Double at : x) values.push_back(std::sin(at / 30 * curve) * curve);
    columns.set_column(curve + 1, values);
  }
  const char* const name = has_texts ? "Absorbance (a.u.)" : "";
  graph.scatter_graph2(has_texts ? "Three waves" : "", columns,
                       {1, {String(name), String(name), String(name), String(name)}}, kPoints, 3,
                       {1, {Boolean(true), Boolean(true), Boolean(true)}}, 0, {}, true, true);
}

std::size_t differences(const PixelView& a, const PixelView& b,
                        const std::vector<PixelBox>& except = {}) {
  EXPECT_EQ(a.width, b.width);
  EXPECT_EQ(a.height, b.height);
  std::size_t count = 0;
  for (int y = 0; y < a.height; ++y) {
    for (int x = 0; x < a.width; ++x) {
      const auto has = [&](const PixelBox& box) {
        return x >= box.left && x < box.right && y >= box.top && y < box.bottom;
      };
      if (a.row(y)[x] != b.row(y)[x] && std::none_of(except.begin(), except.end(), has)) ++count;
    }
  }
  return count;
}

const std::vector<std::string> kTexts = {
    "",
    "x",
    "Absorbance (a.u.)",
    "0.125",
    "-12.5",
    "WAVE AV To fjord",
    "fill office",
    "\xC3\x85ngstr\xC3\xB6m \xE2\x88\x9A",
    "two\nlines of text",
};

TEST(FontTexts, HaveTheExtentsOfQt) {
  FontTextPainter own;
  QtTextPainter qt;
  for (const Single points : {6.0F, 8.0F, 8.25F, 9.75F, 12.0F, 31.3F, 100.0F}) {
    for (const bool bold : {false, true}) {
      for (const bool italic : {false, true}) {
        const Font font{"Liberation Sans", points, bold, italic};
        for (const std::string& text : kTexts) {
          EXPECT_NEAR(own.text_width(font, text), qt.text_width(font, text), 0.5)
              << text << ' ' << points;
          EXPECT_EQ(own.text_height(font, text), qt.text_height(font, text))
              << text << ' ' << points;
        }
      }
    }
  }
}

TEST(FontTexts, AGraphWithoutTextsIsTheSameToTheByte) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    Picture with_qt({640, 480}, ratio);
    const auto texts = std::make_shared<BoxedTexts>();
    PixelPicture without(texts, 640, 480, ratio);
    draw_graph(with_qt, false);
    draw_graph(without, false);
    // Ticks have labels always.
    EXPECT_EQ(differences(with_qt.pixels(), without.pixels(), texts->boxes), 0U) << ratio;
  }
}

TEST(FontTexts, AGraphIsTheSameOutsideOfItsTexts) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    Picture with_qt({640, 480}, ratio);
    const auto texts = std::make_shared<BoxedTexts>();
    PixelPicture without(texts, 640, 480, ratio);
    draw_graph(with_qt, true);
    draw_graph(without, true);
    EXPECT_GT(texts->boxes.size(), 20U);
    EXPECT_EQ(differences(with_qt.pixels(), without.pixels(), texts->boxes), 0U) << ratio;
    EXPECT_GT(differences(with_qt.pixels(), PixelPicture(texts, 640, 480, ratio).pixels()), 1000U);
  }
}

TEST(FontTexts, APngFileIsReadByQt) {
  Picture picture({64, 48}, 1.5);
  picture.Print(100, 100, "Kurve");
  const String bytes = png_bytes(picture.pixels());
  const QImage read = QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
  EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), picture.image().copy());
  EXPECT_EQ(read.dotsPerMeterX(), picture.image().dotsPerMeterX());
}

}  // namespace
}  // namespace kurv
