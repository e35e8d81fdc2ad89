#include "raster/stamp.h"

#include <algorithm>

namespace kurv::raster {
namespace {

constexpr std::uint32_t kBlackPixel = 0xFF000000;
constexpr std::uint32_t kOneChannel = 255;

bool is_inside(const Canvas& canvas, int x, int y) {
  return x >= 0 && x < canvas.width && y >= 0 && y < canvas.height;
}

// The kept part of a channel and what is added to it never exceed 255 together.
std::uint32_t kept_channel(std::uint32_t below, std::uint32_t kept, int shift) {
  return ((((below >> shift) & kOneChannel) * kept + 127) / 255) << shift;
}

std::uint32_t through(std::uint32_t below, std::uint32_t kept, std::uint32_t colour) {
  return kBlackPixel | (colour + kept_channel(below, kept, 16) + kept_channel(below, kept, 8) +
                        kept_channel(below, kept, 0));
}

}  // namespace

Stamp::Stamp(const Canvas& on_white, const Canvas& on_black, int middle_x, int middle_y) {
  for (int y = 0; y < on_white.height; ++y) {
    bool in_run = false;
    for (int x = 0; x < on_white.width; ++x) {
      const std::uint32_t white = on_white.row(y)[x], black = on_black.row(y)[x];
      const std::uint32_t kept = (white & kOneChannel) - (black & kOneChannel);
      if (kept == 0) {
        if (!in_run) m_runs.push_back({x - middle_x, y - middle_y, 0, m_pixels.size()});
        ++m_runs.back().count;
        m_pixels.push_back(white);
      } else if (kept != kOneChannel) {
        m_veils.push_back({x - middle_x, y - middle_y, black & 0x00FFFFFF, kept});
      }
      in_run = kept == 0;
    }
  }
  const auto include = [this](int x, int y, int count) {
    m_left = std::min(m_left, x);
    m_right = std::max(m_right, x + count - 1);
    m_top = std::min(m_top, y);
    m_bottom = std::max(m_bottom, y);
  };
  for (const Run& run : m_runs) include(run.x, run.y, run.count);
  for (const Veil& veil : m_veils) include(veil.x, veil.y, 1);
}

void Stamp::put(const Canvas& canvas, int x, int y) const {
  if (!is_inside(canvas, x + m_left, y + m_top) || !is_inside(canvas, x + m_right, y + m_bottom)) {
    return put_clipped(canvas, x, y);
  }
  for (const Run& run : m_runs) {
    std::uint32_t* const to = canvas.row(y + run.y) + x + run.x;
    const std::uint32_t* const from = m_pixels.data() + run.first;
    for (int i = 0; i < run.count; ++i) to[i] = from[i];
  }
  for (const Veil& veil : m_veils) {
    std::uint32_t& pixel = canvas.row(y + veil.y)[x + veil.x];
    pixel = through(pixel, veil.kept, veil.colour);
  }
}

void Stamp::put_clipped(const Canvas& canvas, int x, int y) const {
  for (const Run& run : m_runs) {
    for (int i = 0; i < run.count; ++i) {
      if (!is_inside(canvas, x + run.x + i, y + run.y)) continue;
      canvas.row(y + run.y)[x + run.x + i] = m_pixels[run.first + static_cast<std::size_t>(i)];
    }
  }
  for (const Veil& veil : m_veils) {
    if (!is_inside(canvas, x + veil.x, y + veil.y)) continue;
    std::uint32_t& pixel = canvas.row(y + veil.y)[x + veil.x];
    pixel = through(pixel, veil.kept, veil.colour);
  }
}

}  // namespace kurv::raster
