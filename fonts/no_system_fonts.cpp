// For builds that find no fonts of the system.
#include "fonts/system_fonts.h"

namespace kurv {

std::optional<SystemFont> system_font(const Font&) {
  return std::nullopt;
}

std::optional<SystemFont> system_font_with(const Font&, char32_t) {
  return std::nullopt;
}

}  // namespace kurv
