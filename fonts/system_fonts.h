// The fonts of the system.
#pragma once

#include <optional>

#include <KurvGraph/plot_surface.h>

#include "fonts/font_face.h"

namespace kurv {

struct SystemFont {
  String path;
  unsigned index = 0;  // in a collection
  Synthesis synthesis;
};

// The font of that name and style, or the most similar one. Nothing where the system has no fonts.
std::optional<SystemFont> system_font(const Font& font);

// A similar one that has the character.
std::optional<SystemFont> system_font_with(const Font& font, char32_t character);

}  // namespace kurv
