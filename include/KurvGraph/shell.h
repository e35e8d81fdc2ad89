/// @file
/// What the control needs of the desktop. Every member returns when the user has answered.
/// HeadlessShell of headless.h is one without a user.
///
/// Texts are UTF-8, their lines end in CR LF or CR. A filter is a list of captions and patterns,
/// "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*", and is counted from 1.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

namespace kurv {

/// @name Flags of a message box
/// Its icon and buttons.
/// @{

inline constexpr int kCriticalStop = 16;   ///< stop icon, OK
inline constexpr int kExclamation = 48;    ///< exclamation icon, OK
inline constexpr int kYesNoQuestion = 36;  ///< question icon, Yes and No

/// @}

/// How a message box was closed.
enum class Answer {
  kOk,   ///< by OK
  kYes,  ///< by Yes
  kNo    ///< by No, or by closing a question without an answer
};

/// What the user is asked when a file is to be opened.
struct OpenDialog {
  String title;              ///< of the window
  String filter;             ///< the kinds of files
  String default_extension;  ///< of a name without one, without a point
};

/// What the user is asked when a file is to be saved.
struct SaveDialog {
  String title;              ///< of the window
  String filter;             ///< the kinds of files
  String default_extension;  ///< of a name without one, without a point
  String file_name;          ///< proposed
  int flags = 0;             ///< 2: ask before an existing file is replaced
};

/// The file that the user has chosen.
struct FileChoice {
  String path;     ///< empty when cancelled
  int filter = 1;  ///< the filter that was chosen, counted from 1
};

/// The windows in which the user works on a graph. A process has one of each, whatever the number
/// of its controls.
enum class Window {
  kCurves,     ///< curves and functions
  kTable,      ///< the numbers
  kProperties  ///< the settings
};

/// The desktop of a control: message boxes, prompts, dialogs, the clipboard and the three windows.
class KURV_EXPORT Shell {
 public:
  virtual ~Shell() = default;
  /// Shows a message box with kCriticalStop, kExclamation or kYesNoQuestion as its flags.
  virtual Answer message_box(std::string_view text, int flags, std::string_view title) = 0;
  /// A one-line input with a prompt above it; the empty text when cancelled.
  virtual String input_prompt(std::string_view text, std::string_view title,
                              std::string_view default_text) = 0;
  /// Beeps, so that the user notices a value that is not accepted.
  virtual void beep() = 0;
  /// Asks for a file to read.
  virtual FileChoice open_file(const OpenDialog& dialog) = 0;
  /// Asks for a file to write.
  virtual FileChoice save_file(const SaveDialog& dialog) = 0;
  /// Asks for a font, and begins with `preset`. Nothing when cancelled.
  virtual std::optional<Font> choose_font(const Font& preset) = 0;
  /// Empties the clipboard and puts the picture there, the bytes of a Windows bitmap file; none of
  /// them where the surface has no pixels.
  virtual void copy_picture(std::string_view bitmap) = 0;

  /// @name Windows
  /// A shell without windows does not override these members.
  /// @{

  /// Makes the control that this shell belongs to the client of all three windows. One that is
  /// visible for another client closes first.
  virtual void load_windows() {}
  /// Shows a window for this control, loaded again where it has been unloaded. `page` is the tab
  /// that the properties show first. Returns at once, except for the curves, which are modal: then
  /// it returns when the user has closed them.
  virtual void show_window(Window window, Integer page) {
    static_cast<void>(window);
    static_cast<void>(page);
  }
  /// Takes all three windows from whichever control they serve and unloads them.
  virtual void unload_windows() {}
  /// Called at the end of the control: unloads only the windows that serve it.
  virtual void release_windows() {}

  /// @}
};

}  // namespace kurv
