#include "raster/sprite_batch.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace kurv::raster {
namespace {

constexpr int kPhaseBits = 2;
// A coordinate of a figure that is not there.
constexpr int kNowhere = -(1 << 30);
static_assert(Stamps::kPhases == 1 << kPhaseBits);

// Four pixels, or numbers that belong to them.
using Pixels [[gnu::vector_size(16)]] = std::uint32_t;
using Halves [[gnu::vector_size(16)]] = std::uint16_t;

// The kept part of a channel and what is added to it never exceed 255 together.
Pixels through(Pixels below, Pixels kept, Pixels added) {
  constexpr std::uint32_t kLow = 0x00FF00FF;
  const auto parts = [kept](Pixels channels) {
    // Divided by 255, to the nearest.
    const Halves sum = reinterpret_cast<Halves>(channels) * reinterpret_cast<Halves>(kept) + 128;
    return reinterpret_cast<Pixels>(sum + (sum >> 8));
  };
  return ((parts(below & kLow) >> 8 & kLow) | (parts(below >> 8 & kLow) & ~kLow)) + added;
}

// The places of up to four bits of a set that has some, the last of them more than once where there
// are fewer: nobody could foretell the end of a loop over single ones. They leave the set.
std::array<std::size_t, 4> take_four(std::uint64_t& bits) {
  std::array<std::size_t, 4> places;
  std::uint64_t rest = bits;
  for (std::size_t k = 0; k < 4; ++k) {
    places[k] = static_cast<std::size_t>(std::countr_zero(rest));
    bits = rest & (rest - 1);
    rest = bits | ((rest ^ bits) & (0 - static_cast<std::uint64_t>(bits == 0)));
  }
  return places;
}

// The sum is counted from far to the left, so that cutting off rounds down. The loop has neither
// branches nor calls, so that the compiler can take several values at a time.
void find_phases(std::span<const double> values, double units_per_pixel, std::vector<int>& phases) {
  constexpr double kFar = -kNowhere;
  phases.resize(values.size());
  int* const found = phases.data();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double from_left = values[i] / units_per_pixel * Stamps::kPhases + 0.5 + kFar;
    const bool is_near = (from_left >= 0) & (from_left < 2 * kFar);
    found[i] = static_cast<int>(is_near ? from_left : 0) + kNowhere;
  }
}

}  // namespace

// One more than asked for, because one that does not count is written all the same.
Stamps::Visible* Stamps::VisibleList::make_room(std::size_t more) {
  if (room.size() < count + more + 1) room.resize(std::max(count + more + 1, 2 * room.size()));
  return room.data() + count;
}

void Stamps::VisibleList::end_at(const Visible* end) {
  count = static_cast<std::size_t>(end - room.data());
}

bool Stamps::Layer::is_nowhere(std::size_t i) const {
  return (*x)[i] == kNowhere || y[i] == kNowhere;
}

void Stamps::Layer::make_stamps(const StampOf& stamp_of) {
  constexpr unsigned kAll = (1U << kPhases * kPhases) - 1;
  unsigned needed = 0;
  most_blocks = 0;
  has_veils = false;
  for (std::size_t i = 0; i < y.size() && needed != kAll; ++i) {
    if (!is_nowhere(i)) needed |= 1U << phase_of((*x)[i], y[i]);
  }
  for (int phase_y = 0; phase_y < kPhases; ++phase_y) {
    for (int phase_x = 0; phase_x < kPhases; ++phase_x) {
      const std::size_t phase = phase_of(phase_x, phase_y);
      stamps[phase] = (needed >> phase & 1) != 0 ? stamp_of(phase_x, phase_y) : Stamp();
      most_blocks = std::max(most_blocks, stamps[phase].blocks().size());
      for (const Stamp::Block& block : stamps[phase].blocks()) has_veils |= block.veiled != 0;
    }
  }
}

void Stamps::find_x(std::span<const double> x, double units_per_pixel) {
  const bool is_known = m_x && units_per_pixel == m_units_per_pixel &&
                        x.size() == m_given_x.size() &&
                        std::memcmp(x.data(), m_given_x.data(), x.size_bytes()) == 0;
  if (is_known) return;
  m_given_x.assign(x.begin(), x.end());
  m_units_per_pixel = units_per_pixel;
  std::vector<int> phases;
  find_phases(x, units_per_pixel, phases);
  m_x = std::make_shared<const std::vector<int>>(std::move(phases));
}

void Stamps::add(std::span<const double> x, std::span<const double> y, double units_per_pixel,
                 const StampOf& stamp_of) {
  find_x(x, units_per_pixel);
  if (m_layers_used == m_layers.size()) m_layers.emplace_back();
  Layer& layer = m_layers[m_layers_used];
  layer.x = m_x;
  find_phases(y, units_per_pixel, layer.y);
  layer.make_stamps(stamp_of);
  ++m_layers_used;
}

bool Stamps::is_full() const {
  constexpr std::size_t kMany = 500'000, kManyBlocks = 20'000;
  std::size_t places = 0, blocks = 0;
  for (std::size_t i = 0; i < m_layers_used; ++i) {
    places += m_layers[i].y.size();
    blocks += m_layers[i].most_blocks * m_layers[i].stamps.size();
  }
  return places > kMany || blocks > kManyBlocks;
}

void Stamps::clear() {
  m_solid.count = m_veiled.count = 0;
  for (Layer& layer : m_layers) layer.stamps.fill(Stamp());
  m_layers_used = 0;
}

// From the last figure to the first, because what hides something comes later.
void Stamps::flush(const Canvas& canvas) {
  if (is_empty()) return;
  for (std::size_t i = 0; i < m_offsets.size(); ++i) {
    m_offsets[i] = static_cast<std::ptrdiff_t>(i / HiddenPixels::kSide) * canvas.stride +
                   static_cast<std::ptrdiff_t>(i % HiddenPixels::kSide);
  }
  const HiddenPixels hidden(canvas.width, canvas.height, m_tiles);
  // What is left where memory ran out in the middle refers to figures that are gone.
  m_solid.count = m_veiled.count = 0;
  for (std::size_t used = m_layers_used; used > 0; --used) {
    const Layer& layer = m_layers[used - 1];
    m_before_x = m_before_y = kNowhere;
    // Few at a time, so that what was found is still at hand when it is painted.
    constexpr std::size_t kFew = 1024;
    for (std::size_t end = layer.y.size(); end > 0;) {
      const std::size_t first = end - std::min(end, kFew);
      find_visible(layer, first, end, hidden, canvas.stride);
      paint_solid(canvas);
      end = first;
    }
  }
  paint_veils(canvas);
  clear();
}

// What can be seen of the places first..end - 1 is written down always and counted at times: nobody
// could foretell the branch.
void Stamps::find_visible(const Layer& layer, std::size_t first, std::size_t end,
                          const HiddenPixels& all_hidden, std::ptrdiff_t stride) {
  Visible* solid = m_solid.make_room((end - first) * layer.most_blocks);
  Visible* veiled = m_veiled.make_room((end - first) * layer.most_blocks);
  const HiddenPixels hidden = all_hidden;  // a copy can stay in registers
  const bool has_veils = layer.has_veils;
  const auto look_at = [&](const Stamp::Block& block, int phases_x, int phases_y) {
    const int x = (phases_x >> kPhaseBits) + block.x, y = (phases_y >> kPhaseBits) + block.y;
    if (!hidden.meets(x, y)) return;
    const HiddenPixels::Place place = hidden.place_of(x, y);
    const auto across = static_cast<std::size_t>(place.across);
    const std::uint64_t pixels = HiddenPixels::joined(
        hidden.visible(place, block.touched_cut[across], block.solid_cut[across]), place.across);
    const std::ptrdiff_t at = y * stride + x;
    *solid = {pixels & block.solid, &block, at};
    solid += (pixels & block.solid) != 0 ? 1 : 0;
    if (!has_veils) return;
    *veiled = {pixels & block.veiled, &block, at};
    veiled += (pixels & block.veiled) != 0 ? 1 : 0;
  };
  if (layer.most_blocks == 1) {
    std::array<const Stamp::Block*, std::size_t{kPhases} * kPhases> only{};
    for (std::size_t i = 0; i < only.size(); ++i) {
      if (!layer.stamps[i].blocks().empty()) only[i] = layer.stamps[i].blocks().data();
    }
    for_each_place(layer, first, end, [&](int phases_x, int phases_y) {
      const Stamp::Block* const block = only[phase_of(phases_x, phases_y)];
      if (block) look_at(*block, phases_x, phases_y);
    });
  } else {
    for_each_place(layer, first, end, [&](int phases_x, int phases_y) {
      for (const Stamp::Block& block : layer.stamps[phase_of(phases_x, phases_y)].blocks()) {
        look_at(block, phases_x, phases_y);
      }
    });
  }
  m_solid.end_at(solid);
  m_veiled.end_at(veiled);
}

// From the last to the first; of those that stand where the one behind them does only that one.
template <class Visit>
void Stamps::for_each_place(const Layer& layer, std::size_t first, std::size_t end,
                            const Visit& visit) {
  const int* const all_x = layer.x->data();
  const int* const all_y = layer.y.data();
  int before_x = m_before_x, before_y = m_before_y;
  for (std::size_t i = end; i-- > first;) {
    const int phases_x = all_x[i], phases_y = all_y[i];
    if (phases_x == kNowhere || phases_y == kNowhere) continue;
    if (phases_x == before_x && phases_y == before_y) continue;
    before_x = phases_x;
    before_y = phases_y;
    visit(phases_x, phases_y);
  }
  m_before_x = before_x;
  m_before_y = before_y;
}

// No two of them are the same pixel, so their order is free: four of each block in turn until none
// is left.
void Stamps::paint_solid(const Canvas& canvas) {
  while (m_solid.count > 0) {
    std::size_t left = 0;
    for (std::size_t i = 0; i < m_solid.count; ++i) {
      Visible visible = m_solid.room[i];
      for (const std::size_t place : take_four(visible.pixels)) {
        canvas.pixels[visible.at + m_offsets[place]] =
            static_cast<std::uint32_t>(visible.block->looks[place]);
      }
      m_solid.room[left] = visible;
      left += visible.pixels != 0 ? 1 : 0;
    }
    m_solid.count = left;
  }
}

// What lies above the topmost solid pixel are veils alone, and those found last lie lowest.
void Stamps::paint_veils(const Canvas& canvas) {
  for (; m_veiled.count > 0; --m_veiled.count) {
    Visible visible = m_veiled.room[m_veiled.count - 1];
    while (visible.pixels != 0) {
      const std::array<std::size_t, 4> places = take_four(visible.pixels);
      const auto pixel = [&](std::size_t k) -> std::uint32_t& {
        return canvas.pixels[visible.at + m_offsets[places[k]]];
      };
      const auto look = [&](std::size_t k) { return visible.block->looks[places[k]]; };
      const auto added = [&](std::size_t k) { return static_cast<std::uint32_t>(look(k)); };
      const auto kept = [&](std::size_t k) { return static_cast<std::uint32_t>(look(k) >> 32); };
      const Pixels above = through(Pixels{pixel(0), pixel(1), pixel(2), pixel(3)},
                                   Pixels{kept(0), kept(1), kept(2), kept(3)},
                                   Pixels{added(0), added(1), added(2), added(3)});
      for (std::size_t k = 0; k < 4; ++k) pixel(k) = above[k];
    }
  }
}

}  // namespace kurv::raster
