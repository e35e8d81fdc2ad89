// Font dialogs that say which font is asked for.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/plot_surface.h>

namespace kurv {

// A shell that is one of these is asked here. It is no member of Shell, because a host's own shell
// is called as ever.
class TitledFontDialog {
 public:
  virtual ~TitledFontDialog() = default;
  // As Shell::choose_font(), with a title for the dialog.
  virtual std::optional<Font> choose_font(const Font& preset, std::string_view title) = 0;
};

}  // namespace kurv
