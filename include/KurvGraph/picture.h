/// @file
/// A drawing surface of real pixels, at device resolution.
#pragma once

#include <QImage>
#include <QSize>

#include <KurvGraph/pixel_picture.h>

namespace kurv {

/// A PixelPicture in an image of Qt, with Qt's fonts. Needs a QGuiApplication for text, but no
/// window and no display server. To be used by one thread only.
class KURV_EXPORT Picture final : public PixelPicture {
 public:
  /// The size in logical pixels, and the device pixels per logical pixel in either direction.
  explicit Picture(QSize logical_size, double device_pixel_ratio = 1);

  /// As PixelPicture::resize().
  void resize(QSize logical_size, double device_pixel_ratio);

  /// What has been drawn, as RGB with `devicePixelRatio` and dots per metre set. Implicitly shared.
  QImage image() const;

  /// The size in device pixels.
  QSize device_size() const;
};

}  // namespace kurv
