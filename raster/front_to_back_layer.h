// A layer that is drawn front to back: each new colour is composited under what is there already
// (Porter-Duff "destination over").
//
// What opaque pixels hide need not be drawn at all. Where curves are dense that is most of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/canvas.h"
#include "raster/pixel_math.h"

namespace kurv::raster {

class FrontToBackLayer {
 public:
  FrontToBackLayer(int width, int height);

  // Whether all pixels of the strip in rows first..end-1 are opaque, so that nothing drawn there
  // would show. Rows outside the picture, and an empty range, count as occluded.
  bool occludes(int strip, int first, int end) const;
  // Composites the colour, 0xFFRRGGBB, under the row of the strip.
  void blend_under(int strip, int y, const RowCoverage& coverage, std::uint32_t colour);
  // Composites the layer over the canvas, which has its size, and clears it.
  void flush(const Canvas& canvas);
  void clear();

 private:
  // Two pixels, premultiplied: blue, green and red in 1/256 of a step, and the transmittance of the
  // pixel (1 - alpha), of 65535.
  using TwoPixels = U16x8;
  static constexpr std::size_t kInRow = 8;
  using Row = std::array<TwoPixels, kInRow>;
  struct Content {
    std::vector<Row> rows;                   // only first..end-1 have a meaning
    std::vector<std::uint64_t> opaque_rows;  // a bit for each row
    int first = 0;
    int end = 0;
  };

  Row& row(Content& content, int y);
  static bool is_opaque(const Row& row);
  static void composite(const Row& row, std::uint32_t* pixels);

  int m_width;
  int m_height;
  std::vector<Content> m_strips;
};

}  // namespace kurv::raster
