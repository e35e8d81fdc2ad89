// Predicates and measures of the pixels of a picture.
#pragma once

#include <QImage>
#include <QRect>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "model/palette.h"

namespace kurv {

inline bool is_palette(const QImage& image, int x, int y, int colour) {
  return image.pixel(x, y) == (0xFF000000 | palette_rgb(colour));
}

// The bounds of the pixels that are not white; null where all are.
inline QRect ink_of(const QImage& image) {
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (!is_palette(image, x, y, kWhite)) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

// Every pixel of the rectangle has the palette colour.
inline bool is_filled(const QImage& image, const QRect& rect, int colour) {
  for (int y = rect.top(); y <= rect.bottom(); ++y) {
    for (int x = rect.left(); x <= rect.right(); ++x) {
      if (!is_palette(image, x, y, colour)) return false;
    }
  }
  return true;
}

// Sum of the darkness of a column, in whole black pixels.
inline double ink_in_column(const QImage& image, int x) {
  double ink = 0;
  for (int y = 0; y < image.height(); ++y) ink += (255 - qGray(image.pixel(x, y))) / 255.0;
  return ink;
}

// Between the channels of two pictures of the same size.
inline int largest_difference(const QImage& a, const QImage& b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
      largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q))});
    }
  }
  return largest;
}

}  // namespace kurv
