// What the control asks of the desktop.
#pragma once

#include <string_view>

namespace kurv {

// Flags of a message box: the icon and the buttons.
inline constexpr int kCriticalStop = 16;  // stop icon, OK

class Shell {
 public:
  virtual ~Shell() = default;
  // Shows a modal box and returns when it was closed. Text is UTF-8, lines end in CR LF or CR.
  virtual void message_box(std::string_view text, int flags, std::string_view title) = 0;
};

}  // namespace kurv
