#include "tests/story/screen_text.h"

#include <QApplication>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "tests/story/desktop.h"

namespace kurv::test {

namespace {

constexpr int kBetweenLooks = 50;   // ms
constexpr int kInk = 64;            // at most so bright is what counts as ink, of 255
constexpr int kBlankAfter = 3;      // pixels, so that a longer text is another one
constexpr int kLeastContrast = 80;  // of ink, to the ground around it
constexpr int kEvenGround = 8;      // by which the ground may differ

// What of a text is ink and what is ground. The edges of letters are neither.
struct Shape {
  std::vector<QPoint> ink;
  std::vector<QPoint> ground;
  QSize size;
};

QImage drawn(const QString& text) {
  const QFont font = QApplication::font();
  const QSize size = QFontMetrics(font).size(Qt::TextShowMnemonic, text);
  QImage image(size + QSize(2 * kBlankAfter, 0), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(image.rect(), Qt::AlignLeft | Qt::TextSingleLine | Qt::TextShowMnemonic, text);
  return image;
}

Shape shape_of(const QString& text) {
  const QImage image = drawn(text);
  QRect letters;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 255) letters |= QRect(x, y, 1, 1);
    }
  }
  letters.setWidth(letters.width() + kBlankAfter);
  Shape shape;
  shape.size = letters.size();
  for (int y = letters.top(); y <= letters.bottom(); ++y) {
    for (int x = letters.left(); x <= letters.right(); ++x) {
      const int grey = x < image.width() ? qGray(image.pixel(x, y)) : 255;
      if (grey <= kInk) shape.ink.push_back(QPoint(x, y) - letters.topLeft());
      if (grey == 255) shape.ground.push_back(QPoint(x, y) - letters.topLeft());
    }
  }
  return shape;
}

int difference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                   std::abs(qBlue(a) - qBlue(b))});
}

bool is_at(const Shape& shape, const QImage& screen, QPoint place) {
  const auto pixel = [&](QPoint at) {
    const QPoint on_screen = place + at;
    return reinterpret_cast<const QRgb*>(screen.constScanLine(on_screen.y()))[on_screen.x()];
  };
  const QRgb ground = pixel(shape.ground.front());
  const auto is_ink = [&](QPoint at) { return difference(pixel(at), ground) >= kLeastContrast; };
  const auto is_ground = [&](QPoint at) { return difference(pixel(at), ground) <= kEvenGround; };
  return std::all_of(shape.ink.begin(), shape.ink.end(), is_ink) &&
         std::all_of(shape.ground.begin(), shape.ground.end(), is_ground);
}

bool is_on(const QImage& screen, const Shape& shape) {
  for (int y = 0; y + shape.size.height() <= screen.height(); ++y) {
    for (int x = 0; x + shape.size.width() <= screen.width(); ++x) {
      if (is_at(shape, screen, {x, y})) return true;
    }
  }
  return false;
}

}  // namespace

testing::AssertionResult comes_to_show(const QString& text) {
  const Shape shape = shape_of(text);
  if (shape.ink.empty()) return testing::AssertionFailure() << "there is no text to look for";
  return comes_true("the screen shows \"" + text + '"', [&] {
    if (is_on(screen_image(), shape)) return true;
    QTest::qWait(kBetweenLooks);
    return false;
  });
}

}  // namespace kurv::test
