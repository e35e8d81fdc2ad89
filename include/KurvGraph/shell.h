// What the control needs of the desktop. Every member returns when the user has answered.
// HeadlessShell of headless.h is one without a user.
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

// The windows in which the user works on a graph. A process has one of each, whatever the number of
// its controls.
enum class Window { kCurves, kTable, kProperties };

class KURV_EXPORT Shell {
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
  // Empties the clipboard and puts the picture there, the bytes of a Windows bitmap file; none of
  // them where the surface has no pixels.
  virtual void copy_picture(std::string_view bitmap) = 0;

  // A shell without windows does not override the following members.
  // Makes the control that this shell belongs to the client of all three windows. One that is
  // visible for another client closes first.
  virtual void load_windows() {}
  // Shows a window for this control, loaded again where it has been unloaded. `page` is the tab
  // that the properties show first. Returns at once, except for the curves, which are modal: then
  // it returns when the user has closed them.
  virtual void show_window(Window window, Integer page) {
    static_cast<void>(window);
    static_cast<void>(page);
  }
  // Takes all three windows from whichever control they serve and unloads them.
  virtual void unload_windows() {}
  // Called at the end of the control: unloads only the windows that serve it.
  virtual void release_windows() {}
};

}  // namespace kurv
