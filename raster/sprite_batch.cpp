#include "raster/sprite_batch.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "raster/pixel_math.h"

namespace kurv::raster {
namespace {

constexpr int kPhaseBits = 2;
// The coordinate of a figure that is left out.
constexpr int kMissing = -(1 << 30);
static_assert(SpriteBatch::kPhases == 1 << kPhaseBits);

// Four pixels, or numbers that belong to them.
using U32x4 [[gnu::vector_size(16)]] = std::uint32_t;
using U16x8 [[gnu::vector_size(16)]] = std::uint16_t;

// Porter-Duff "over" for four pixels, with premultiplied colours. A channel and its transmittance
// together never exceed 255, so the sum cannot overflow.
U32x4 blend_over(U32x4 backdrop, U32x4 transmittance, U32x4 colour) {
  constexpr std::uint32_t kLow = 0x00FF00FF;
  const auto parts = [transmittance](U32x4 channels) {
    // Divides by 255, rounded to the nearest.
    const U16x8 sum =
        reinterpret_cast<U16x8>(channels) * reinterpret_cast<U16x8>(transmittance) + 128;
    return reinterpret_cast<U32x4>(sum + (sum >> 8));
  };
  return ((parts(backdrop & kLow) >> 8 & kLow) | (parts(backdrop >> 8 & kLow) & ~kLow)) + colour;
}

// Removes up to four bits from a non-empty set and returns their indices, the last one repeatedly
// where there are fewer. A loop over single bits would mispredict its end.
std::array<std::size_t, 4> take_four_bits(std::uint64_t& bits) {
  std::array<std::size_t, 4> indices;
  std::uint64_t rest = bits;
  for (std::size_t k = 0; k < 4; ++k) {
    indices[k] = static_cast<std::size_t>(std::countr_zero(rest));
    bits = rest & (rest - 1);
    rest = bits | ((rest ^ bits) & (0 - static_cast<std::uint64_t>(bits == 0)));
  }
  return indices;
}

// The sum is made positive, so that truncation rounds down. The loop has neither branches nor
// calls, so that compilers vectorise it.
void find_phases(std::span<const double> values, double units_per_pixel, std::vector<int>& phases) {
  constexpr double kBias = -kMissing;
  phases.resize(values.size());
  int* const found = phases.data();
  for (std::size_t i = 0; i < values.size(); ++i) {
    const double biased = values[i] / units_per_pixel * SpriteBatch::kPhases + 0.5 + kBias;
    const bool is_near = (biased >= 0) & (biased < 2 * kBias);
    found[i] = static_cast<int>(is_near ? biased : 0) + kMissing;
  }
}

}  // namespace

// One item more than asked for: the writer fills an item before it knows whether it counts.
SpriteBatch::VisibleBlock* SpriteBatch::VisibleBlocks::reserve(std::size_t more) {
  if (items.size() < count + more + 1) items.resize(std::max(count + more + 1, 2 * items.size()));
  return items.data() + count;
}

void SpriteBatch::VisibleBlocks::end_at(const VisibleBlock* end) {
  count = static_cast<std::size_t>(end - items.data());
}

bool SpriteBatch::FigureSeries::is_missing(std::size_t i) const {
  return (*x)[i] == kMissing || y[i] == kMissing;
}

void SpriteBatch::FigureSeries::make_sprites(const MakeSprite& make_sprite) {
  constexpr unsigned kAll = (1U << kPhases * kPhases) - 1;
  unsigned needed = 0;
  max_blocks = 0;
  has_translucent = false;
  for (std::size_t i = 0; i < y.size() && needed != kAll; ++i) {
    if (!is_missing(i)) needed |= 1U << phase_of((*x)[i], y[i]);
  }
  for (int phase_y = 0; phase_y < kPhases; ++phase_y) {
    for (int phase_x = 0; phase_x < kPhases; ++phase_x) {
      const std::size_t phase = phase_of(phase_x, phase_y);
      sprites[phase] = (needed >> phase & 1) != 0 ? make_sprite(phase_x, phase_y) : Sprite();
      max_blocks = std::max(max_blocks, sprites[phase].blocks().size());
      for (const Sprite::Block& block : sprites[phase].blocks()) {
        has_translucent |= block.translucent != 0;
      }
    }
  }
}

void SpriteBatch::find_x(std::span<const double> x, double units_per_pixel) {
  const bool is_known = m_shared_x_phases && units_per_pixel == m_units_per_pixel &&
                        x.size() == m_shared_x.size() &&
                        std::memcmp(x.data(), m_shared_x.data(), x.size_bytes()) == 0;
  if (is_known) return;
  m_shared_x.assign(x.begin(), x.end());
  m_units_per_pixel = units_per_pixel;
  std::vector<int> phases;
  find_phases(x, units_per_pixel, phases);
  m_shared_x_phases = std::make_shared<const std::vector<int>>(std::move(phases));
}

void SpriteBatch::add(std::span<const double> x, std::span<const double> y, double units_per_pixel,
                      const MakeSprite& make_sprite) {
  find_x(x, units_per_pixel);
  if (m_series_used == m_series.size()) m_series.emplace_back();
  FigureSeries& series = m_series[m_series_used];
  series.x = m_shared_x_phases;
  find_phases(y, units_per_pixel, series.y);
  series.make_sprites(make_sprite);
  ++m_series_used;
}

bool SpriteBatch::is_full() const {
  constexpr std::size_t kMaxPositions = 500'000, kMaxBlocks = 20'000;
  std::size_t positions = 0, blocks = 0;
  for (std::size_t i = 0; i < m_series_used; ++i) {
    positions += m_series[i].y.size();
    blocks += m_series[i].max_blocks * m_series[i].sprites.size();
  }
  return positions > kMaxPositions || blocks > kMaxBlocks;
}

void SpriteBatch::clear() {
  m_solid.count = m_translucent.count = 0;
  for (FigureSeries& series : m_series) series.sprites.fill(Sprite());
  m_series_used = 0;
}

// Front to back: from the last figure to the first.
void SpriteBatch::flush(const Canvas& canvas) {
  if (is_empty()) return;
  for (std::size_t i = 0; i < m_offsets.size(); ++i) {
    m_offsets[i] = static_cast<std::ptrdiff_t>(i / OcclusionMask::kSide) * canvas.stride +
                   static_cast<std::ptrdiff_t>(i % OcclusionMask::kSide);
  }
  const OcclusionMask hidden(canvas.width, canvas.height, m_tiles);
  // After a failed allocation in an earlier flush, the lists refer to sprites that no longer exist.
  m_solid.count = m_translucent.count = 0;
  for (std::size_t used = m_series_used; used > 0; --used) {
    const FigureSeries& series = m_series[used - 1];
    m_last_x = m_last_y = kMissing;
    // In small chunks, so that the blocks found are still in the cache when they are painted.
    constexpr std::size_t kChunk = 1024;
    for (std::size_t end = series.y.size(); end > 0;) {
      const std::size_t first = end - std::min(end, kChunk);
      find_visible(series, first, end, hidden, canvas.stride);
      paint_solid(canvas);
      end = first;
    }
  }
  paint_translucent(canvas);
  clear();
}

// Collects what is visible at positions first..end - 1. Each item is written, and counted only if
// it is not empty: a branch would be mispredicted.
void SpriteBatch::find_visible(const FigureSeries& series, std::size_t first, std::size_t end,
                               const OcclusionMask& occlusion, std::ptrdiff_t stride) {
  VisibleBlock* solid = m_solid.reserve((end - first) * series.max_blocks);
  VisibleBlock* translucent = m_translucent.reserve((end - first) * series.max_blocks);
  const OcclusionMask hidden = occlusion;  // a copy can stay in registers
  const bool has_translucent = series.has_translucent;
  const auto add_block = [&](const Sprite::Block& block, int phases_x, int phases_y) {
    const int x = (phases_x >> kPhaseBits) + block.x, y = (phases_y >> kPhaseBits) + block.y;
    if (!hidden.intersects(x, y)) return;
    const OcclusionMask::BlockPosition at = hidden.locate(x, y);
    const auto across = static_cast<std::size_t>(at.across);
    const std::uint64_t pixels = OcclusionMask::join(
        hidden.take_visible(at, block.touched_split[across], block.solid_split[across]), at.across);
    const std::ptrdiff_t first_pixel = y * stride + x;
    *solid = {pixels & block.solid, &block, first_pixel};
    solid += (pixels & block.solid) != 0 ? 1 : 0;
    if (!has_translucent) return;
    *translucent = {pixels & block.translucent, &block, first_pixel};
    translucent += (pixels & block.translucent) != 0 ? 1 : 0;
  };
  if (series.max_blocks == 1) {
    std::array<const Sprite::Block*, std::size_t{kPhases} * kPhases> only{};
    for (std::size_t i = 0; i < only.size(); ++i) {
      if (!series.sprites[i].blocks().empty()) only[i] = series.sprites[i].blocks().data();
    }
    for_each_position(series, first, end, [&](int phases_x, int phases_y) {
      const Sprite::Block* const block = only[phase_of(phases_x, phases_y)];
      if (block) add_block(*block, phases_x, phases_y);
    });
  } else {
    for_each_position(series, first, end, [&](int phases_x, int phases_y) {
      for (const Sprite::Block& block : series.sprites[phase_of(phases_x, phases_y)].blocks()) {
        add_block(block, phases_x, phases_y);
      }
    });
  }
  m_solid.end_at(solid);
  m_translucent.end_at(translucent);
}

// From the last to the first. Of consecutive figures at the same position only the last one is
// visited.
template <class Visit>
void SpriteBatch::for_each_position(const FigureSeries& series, std::size_t first, std::size_t end,
                                    const Visit& visit) {
  const int* const all_x = series.x->data();
  const int* const all_y = series.y.data();
  int last_x = m_last_x, last_y = m_last_y;
  for (std::size_t i = end; i-- > first;) {
    const int phases_x = all_x[i], phases_y = all_y[i];
    if (phases_x == kMissing || phases_y == kMissing) continue;
    if (phases_x == last_x && phases_y == last_y) continue;
    last_x = phases_x;
    last_y = phases_y;
    visit(phases_x, phases_y);
  }
  m_last_x = last_x;
  m_last_y = last_y;
}

// No pixel occurs twice, so any order is right: four pixels of each block in turn, until none is
// left.
void SpriteBatch::paint_solid(const Canvas& canvas) {
  while (m_solid.count > 0) {
    std::size_t left = 0;
    for (std::size_t i = 0; i < m_solid.count; ++i) {
      VisibleBlock visible = m_solid.items[i];
      for (const std::size_t index : take_four_bits(visible.pixels)) {
        canvas.pixels[visible.first_pixel + m_offsets[index]] =
            static_cast<std::uint32_t>(visible.block->texels[index]);
      }
      m_solid.items[left] = visible;
      left += visible.pixels != 0 ? 1 : 0;
    }
    m_solid.count = left;
  }
}

// Only translucent pixels above the topmost solid one are in the list. Those found last are lowest,
// so they are painted first.
void SpriteBatch::paint_translucent(const Canvas& canvas) {
  for (; m_translucent.count > 0; --m_translucent.count) {
    VisibleBlock visible = m_translucent.items[m_translucent.count - 1];
    while (visible.pixels != 0) {
      const std::array<std::size_t, 4> indices = take_four_bits(visible.pixels);
      const auto pixel = [&](std::size_t k) -> std::uint32_t& {
        return canvas.pixels[visible.first_pixel + m_offsets[indices[k]]];
      };
      const auto texel = [&](std::size_t k) { return visible.block->texels[indices[k]]; };
      const auto colour = [&](std::size_t k) { return static_cast<std::uint32_t>(texel(k)); };
      const auto transmittance = [&](std::size_t k) {
        return static_cast<std::uint32_t>(texel(k) >> 32);
      };
      const U32x4 above =
          blend_over(U32x4{pixel(0), pixel(1), pixel(2), pixel(3)},
                     U32x4{transmittance(0), transmittance(1), transmittance(2), transmittance(3)},
                     U32x4{colour(0), colour(1), colour(2), colour(3)});
      for (std::size_t k = 0; k < 4; ++k) pixel(k) = above[k];
    }
  }
}

}  // namespace kurv::raster
