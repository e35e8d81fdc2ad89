// A small picture that is put down many times, such as a marker.
#pragma once

#include <cstdint>
#include <vector>

#include "raster/canvas.h"

namespace kurv::raster {

class Stamp {
 public:
  // What a figure looks like on a white and on a black canvas of the same size; where the two
  // differ the ground shows through. The middle is the pixel that later lies where the stamp is
  // put.
  Stamp(const Canvas& on_white, const Canvas& on_black, int middle_x, int middle_y);

  // The same as drawing the figure there, wherever that is.
  void put(const Canvas& canvas, int x, int y) const;

 private:
  // A run of pixels that hide what lies below. Places are relative to the middle.
  struct Run {
    int x;
    int y;
    int count;
    std::size_t first;  // of its pixels
  };
  // One through which the ground shows: its own part of the colour, and how much of the ground
  // stays.
  struct Veil {
    int x;
    int y;
    std::uint32_t colour;
    std::uint32_t kept;  // of 255
  };

  void put_clipped(const Canvas& canvas, int x, int y) const;

  std::vector<Run> m_runs;
  std::vector<std::uint32_t> m_pixels;
  std::vector<Veil> m_veils;
  int m_left = 0;  // the pixels are within m_left..m_right and m_top..m_bottom of the middle
  int m_top = 0;
  int m_right = 0;
  int m_bottom = 0;
};

}  // namespace kurv::raster
