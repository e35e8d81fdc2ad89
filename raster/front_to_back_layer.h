// What has been drawn from the front to the back: each new colour comes below all that is there.
//
// What can no longer be seen need not be drawn. Where curves are dense that is most of them.
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

  // Whether nothing more of the tile could be seen in rows first..end-1. Rows that are none are
  // never seen.
  bool occludes(int strip, int first, int end) const;
  // Puts the colour, 0xFFRRGGBB, below what the row of the tile holds.
  void blend_under(int strip, int y, const RowCoverage& coverage, std::uint32_t colour);
  // Puts all that is there onto the canvas, of the size this was made for, and forgets it.
  void flush(const Canvas& canvas);
  void clear();

 private:
  // Two pixels: three channels each, of 256 a step, and how much of what lies below still shows,
  // of 65535.
  using TwoPixels = U16x8;
  static constexpr std::size_t kInRow = 8;
  using Row = std::array<TwoPixels, kInRow>;
  struct Content {
    std::vector<Row> rows;                   // of which first..end-1 hold anything
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
