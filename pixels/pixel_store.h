// Where a PixelPicture has its pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pixels/resolution.h"
#include "raster/canvas.h"

namespace kurv {

class PixelStore {
 public:
  virtual ~PixelStore() = default;

  // Takes the size and drops the contents: every pixel is white. Throws std::bad_alloc; the store
  // is then as it was.
  virtual void reset(const Resolution& resolution) = 0;
  // For drawing. Valid until the next call.
  virtual raster::Canvas canvas() = 0;
  // For reading: row after row, without copying them.
  virtual const std::uint32_t* pixels() const = 0;
};

class MemoryStore final : public PixelStore {
 public:
  void reset(const Resolution& resolution) override {
    constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;
    const std::size_t size =
        static_cast<std::size_t>(resolution.width) * static_cast<std::size_t>(resolution.height);
    m_pixels = std::vector<std::uint32_t>(size, kWhitePixel);
    m_width = resolution.width;
    m_height = resolution.height;
  }
  raster::Canvas canvas() override { return {m_pixels.data(), m_width, m_height, m_width}; }
  const std::uint32_t* pixels() const override { return m_pixels.data(); }

 private:
  std::vector<std::uint32_t> m_pixels;
  int m_width = 0;
  int m_height = 0;
};

}  // namespace kurv
