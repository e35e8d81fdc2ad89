// The pixels of a picture in a QImage, which shares them with the images that are handed out.
#pragma once

#include <QImage>

#include "pixels/pixel_store.h"

namespace kurv {

class ImageStore final : public PixelStore {
 public:
  void reset(const Resolution& resolution) override;
  raster::Canvas canvas() override;
  const std::uint32_t* pixels() const override;

  const QImage& image() const { return m_image; }

 private:
  QImage m_image;
};

}  // namespace kurv
