#include "qt/surface/image_store.h"

#include <new>
#include <utility>

namespace kurv {

void ImageStore::reset(const Resolution& resolution) {
  QImage image(resolution.width, resolution.height, QImage::Format_RGB32);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(Qt::white);
  image.setDevicePixelRatio(resolution.device_pixel_ratio);
  image.setDotsPerMeterX(resolution.pixels_per_metre());
  image.setDotsPerMeterY(resolution.pixels_per_metre());
  m_image = std::move(image);
}

raster::Canvas ImageStore::canvas() {
  // bits() detaches the image from copies that were handed out.
  return {reinterpret_cast<std::uint32_t*>(m_image.bits()), m_image.width(), m_image.height(),
          static_cast<std::ptrdiff_t>(m_image.bytesPerLine() / 4)};
}

const std::uint32_t* ImageStore::pixels() const {
  return reinterpret_cast<const std::uint32_t*>(m_image.constBits());
}

}  // namespace kurv
