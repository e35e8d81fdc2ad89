#include <QBuffer>
#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "qt/surface/picture_state.h"

namespace kurv {
namespace {

constexpr double kTwipsPerInch = 1440;

}  // namespace

QImage white_image(const Resolution& resolution) {
  QImage image(resolution.width, resolution.height, QImage::Format_RGB32);
  if (image.isNull()) throw std::bad_alloc();
  image.fill(Qt::white);
  image.setDevicePixelRatio(resolution.device_pixel_ratio);
  const double per_metre = kTwipsPerInch / resolution.twips_per_pixel / 0.0254;
  const int dots = static_cast<int>(std::clamp(std::round(per_metre), 1.0, 1e9));
  image.setDotsPerMeterX(dots);
  image.setDotsPerMeterY(dots);
  return image;
}

Picture::Picture(QSize logical_size, double device_pixel_ratio)
    : m_pixels(std::make_unique<Pixels>(resolution_of(logical_size, device_pixel_ratio))) {}

Picture::Picture(std::unique_ptr<Pixels> pixels) : m_pixels(std::move(pixels)) {}

Picture::~Picture() = default;

void Picture::resize(QSize logical_size, double device_pixel_ratio) {
  const Resolution resolution = resolution_of(logical_size, device_pixel_ratio);
  QImage image = white_image(resolution);
  raster::Coverage mask(resolution.width, resolution.height);
  raster::NarrowSegments narrow_segments(resolution.width, resolution.height);
  raster::MonotonePolylines polylines(resolution.width, resolution.height);
  m_pixels->resolution = resolution;
  m_pixels->image = std::move(image);
  m_pixels->mask = std::move(mask);
  m_pixels->narrow_segments = std::move(narrow_segments);
  m_pixels->polylines = std::move(polylines);
  m_pixels->front_to_back.reset();
  m_pixels->texts = {};
  m_pixels->pending_colour.reset();
  m_pixels->sprites.clear();
}

QImage Picture::image() const {
  m_pixels->flush();
  return m_pixels->image;
}

QSize Picture::device_size() const {
  return m_pixels->image.size();
}

double Picture::twips_per_device_pixel() const {
  return m_pixels->resolution.twips_per_pixel;
}

Double Picture::ScaleWidth() const {
  return m_pixels->resolution.scale_width();
}

Double Picture::ScaleHeight() const {
  return m_pixels->resolution.scale_height();
}

void Picture::Cls() {
  m_pixels->mask.clear();
  m_pixels->narrow_segments.clear();
  m_pixels->polylines.clear();
  m_pixels->pending_colour.reset();
  m_pixels->sprites.clear();
  m_pixels->fill(kWhite);
}

void Picture::DrawWidth(Integer pixels) {
  if (pixels == m_pixels->draw_width) return;
  m_pixels->flush();
  m_pixels->draw_width = pixels;
}

String Picture::bitmap() const {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image().save(&buffer, "BMP")) throw std::bad_alloc();
  return bytes.toStdString();
}

}  // namespace kurv
