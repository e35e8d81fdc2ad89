#include <KurvGraph/picture.h>

#include <memory>

#include "qt/surface/image_store.h"
#include "qt/surface/qt_text_painter.h"

namespace kurv {

Picture::Picture(QSize logical_size, double device_pixel_ratio)
    : PixelPicture(std::make_unique<ImageStore>(), std::make_shared<QtTextPainter>(),
                   logical_size.width(), logical_size.height(), device_pixel_ratio) {}

void Picture::resize(QSize logical_size, double device_pixel_ratio) {
  PixelPicture::resize(logical_size.width(), logical_size.height(), device_pixel_ratio);
}

QImage Picture::image() const {
  return static_cast<const ImageStore&>(store()).image();
}

QSize Picture::device_size() const {
  const PixelView view = pixels();
  return {view.width, view.height};
}

}  // namespace kurv
