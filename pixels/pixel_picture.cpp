#include <utility>

#include "pixels/bitmap_file.h"
#include "pixels/pixel_picture_state.h"

namespace kurv {

PixelPicture::PixelPicture(std::unique_ptr<State> state) : m_state(std::move(state)) {}

PixelPicture::PixelPicture(std::unique_ptr<PixelStore> store, std::shared_ptr<TextPainter> texts,
                           double width, double height, double device_pixel_ratio)
    : m_state(std::make_unique<State>(resolution_of(width, height, device_pixel_ratio),
                                      std::move(store), std::move(texts))) {}

PixelPicture::PixelPicture(std::shared_ptr<TextPainter> texts, int width, int height,
                           double device_pixel_ratio)
    : PixelPicture(std::make_unique<MemoryStore>(), std::move(texts), width, height,
                   device_pixel_ratio) {}

PixelPicture::~PixelPicture() = default;

void PixelPicture::resize(int width, int height, double device_pixel_ratio) {
  const Resolution resolution = resolution_of(width, height, device_pixel_ratio);
  raster::Coverage mask(resolution.width, resolution.height);
  raster::NarrowSegments narrow_segments(resolution.width, resolution.height);
  raster::MonotonePolylines polylines(resolution.width, resolution.height);
  m_state->store->reset(resolution);
  m_state->resolution = resolution;
  m_state->mask = std::move(mask);
  m_state->narrow_segments = std::move(narrow_segments);
  m_state->polylines = std::move(polylines);
  m_state->front_to_back.reset();
  m_state->painted_texts = {};
  m_state->pending_colour.reset();
  m_state->sprites.clear();
}

const PixelStore& PixelPicture::store() const {
  m_state->flush();
  return *m_state->store;
}

PixelView PixelPicture::pixels() const {
  const Resolution& resolution = m_state->resolution;
  return {store().pixels(), resolution.width, resolution.height, resolution.width,
          resolution.pixels_per_metre()};
}

double PixelPicture::twips_per_device_pixel() const {
  return m_state->resolution.twips_per_pixel;
}

Double PixelPicture::ScaleWidth() const {
  return m_state->resolution.scale_width();
}

Double PixelPicture::ScaleHeight() const {
  return m_state->resolution.scale_height();
}

void PixelPicture::Cls() {
  m_state->mask.clear();
  m_state->narrow_segments.clear();
  m_state->polylines.clear();
  m_state->pending_colour.reset();
  m_state->sprites.clear();
  m_state->fill(kWhite);
}

void PixelPicture::DrawWidth(Integer pixels) {
  if (pixels == m_state->draw_width) return;
  m_state->flush();
  m_state->draw_width = pixels;
}

String PixelPicture::bitmap() const {
  return bitmap_file(pixels());
}

}  // namespace kurv
