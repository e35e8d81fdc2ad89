// The sixteen colours of the palette: black, six dark colours, two greys, six bright ones and
// white.
#pragma once

#include <array>
#include <cstdint>

namespace kurv {

inline constexpr int kBlack = 0;
inline constexpr int kDarkGrey = 8;
inline constexpr int kWhite = 15;

// 0x00RRGGBB by index.
inline constexpr std::array<std::uint32_t, 16> kPalette = {
    0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
    0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF,
};

// Any integer picks a colour: only the lowest four bits count.
constexpr std::uint32_t palette_rgb(int index) {
  return kPalette[static_cast<unsigned>(index) % 16];
}

}  // namespace kurv
