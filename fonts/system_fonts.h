// The fonts of the system.
#pragma once

#include <functional>
#include <vector>

#include <KurvGraph/plot_surface.h>

#include "fonts/font_face.h"

namespace kurv {

struct SystemFont {
  String path;
  unsigned index = 0;  // in a collection
  Synthesis synthesis;
  std::function<bool(char32_t)> has;
};

// The fonts that the system offers for that name and style, the most similar one first. Empty where
// the system has no fonts.
std::vector<SystemFont> system_fonts(const Font& font);

}  // namespace kurv
