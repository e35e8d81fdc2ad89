// What the control asks of the desktop. Every member returns when the user has answered.
//
// Texts are UTF-8, their lines end in CR LF or CR. A filter is a list of captions and patterns,
// "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*", and is counted from 1.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

namespace kurv {

// Flags of a message box: its icon and buttons.
inline constexpr int kCriticalStop = 16;   // stop icon, OK
inline constexpr int kExclamation = 48;    // exclamation icon, OK
inline constexpr int kYesNoQuestion = 36;  // question icon, Yes and No

enum class Answer { kOk, kYes, kNo };

struct OpenDialog {
  String title;
  String filter;
  String default_extension;
};

struct SaveDialog {
  String title;
  String filter;
  String default_extension;
  String file_name;  // proposed
  int flags = 0;     // 2: ask before an existing file is replaced
};

struct FileChoice {
  String path;     // empty when cancelled
  int filter = 1;  // the one chosen
};

class Shell {
 public:
  virtual ~Shell() = default;
  virtual Answer message_box(std::string_view text, int flags, std::string_view title) = 0;
  // A one-line input with a prompt above it; the empty text when cancelled.
  virtual String input_prompt(std::string_view text, std::string_view title,
                              std::string_view default_text) = 0;
  virtual void beep() = 0;
  virtual FileChoice open_file(const OpenDialog& dialog) = 0;
  virtual FileChoice save_file(const SaveDialog& dialog) = 0;
  // Nothing when cancelled.
  virtual std::optional<Font> choose_font(const Font& preset) = 0;
};

}  // namespace kurv
