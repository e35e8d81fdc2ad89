// Figures at many places: the same as one stamp after the other, but what later ones hide of
// earlier ones is never painted, which among many points is most of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "raster/canvas.h"
#include "raster/hidden_pixels.h"
#include "raster/sprite.h"

namespace kurv::raster {

class Stamps {
 public:
  // Where figures are told apart within a pixel, in either direction.
  static constexpr int kPhases = 4;
  // How a figure looks with its centre at that part of a pixel.
  using StampOf = std::function<Stamp(int phase_x, int phase_y)>;

  // Collects a figure at places in this many units a pixel from the corner of a canvas: each time
  // at the nearest phase, and only once where it stands as it did before. It is nowhere where a
  // coordinate is NaN. Asks for each stamp that is needed, once.
  void add(std::span<const double> x, std::span<const double> y, double units_per_pixel,
           const StampOf& stamp_of);
  bool is_empty() const { return m_layers_used == 0; }
  // Whether it is time to paint, because more would take much memory.
  bool is_full() const;
  void clear();

  // Paints all figures in turn and forgets them.
  void flush(const Canvas& canvas);

 private:
  // A figure and its places, in phases. The figures of a graph often share their x.
  struct Layer {
    std::shared_ptr<const std::vector<int>> x;
    std::vector<int> y;
    std::array<Stamp, std::size_t{kPhases} * kPhases> stamps;  // row by row
    std::size_t most_blocks = 0;                               // of a stamp
    bool has_veils = false;

    bool is_nowhere(std::size_t i) const;
    void make_stamps(const StampOf& stamp_of);
  };
  // What can be seen of a block that was put down.
  struct Visible {
    std::uint64_t pixels;
    const Stamp::Block* block;
    std::ptrdiff_t at;  // of the block's first pixel, which may lie outside
  };
  // From the last to the first.
  struct VisibleList {
    std::vector<Visible> room;
    std::size_t count = 0;

    // Where the next ones go, and that they are there.
    Visible* make_room(std::size_t more);
    void end_at(const Visible* end);
  };

  static std::size_t phase_of(int x, int y) {
    return static_cast<std::size_t>((y & (kPhases - 1)) * kPhases + (x & (kPhases - 1)));
  }
  void find_x(std::span<const double> x, double units_per_pixel);
  void find_visible(const Layer& layer, std::size_t first, std::size_t end,
                    const HiddenPixels& all_hidden, std::ptrdiff_t stride);
  template <class Visit>
  void for_each_place(const Layer& layer, std::size_t first, std::size_t end, const Visit& visit);
  void paint_solid(const Canvas& canvas);
  void paint_veils(const Canvas& canvas);

  std::vector<Layer> m_layers;  // those not in use keep their memory
  std::size_t m_layers_used = 0;
  // The last x as they were given.
  std::vector<double> m_given_x;
  double m_units_per_pixel = 0;
  std::shared_ptr<const std::vector<int>> m_x;

  std::vector<std::uint64_t> m_tiles;
  // Where the figure stands that was looked at last, of the places behind it.
  int m_before_x = 0;
  int m_before_y = 0;
  VisibleList m_solid;
  VisibleList m_veiled;
  std::array<std::ptrdiff_t, 64> m_offsets{};  // of the pixels of a block, from its first
};

}  // namespace kurv::raster
