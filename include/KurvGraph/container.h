/// @file
/// What the control needs of the host that contains it. HeadlessContainer of headless.h is one
/// without a window.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

/// For Container::set_MousePointer(): the pointer that the host shows otherwise.
inline constexpr Integer kDefaultPointer = 0;
/// For Container::set_MousePointer(): an hourglass, while a command runs.
inline constexpr Integer kHourglassPointer = 11;

/// The host of a control: its pointer, its size and what it is notified of.
class KURV_EXPORT Container {
 public:
  virtual ~Container() = default;
  /// False while a form designer shows the control.
  virtual bool run_mode() const = 0;
  /// Shows a pointer over the control, kDefaultPointer or kHourglassPointer.
  virtual void set_MousePointer(Integer pointer) = 0;
  /// The control's outer height in twips.
  virtual Single Height() const = 0;
  /// The control's outer width in twips.
  virtual Single Width() const = 0;
  /// Asks for another height. The host answers a change with Control::resize().
  virtual void set_Height(Single twips) = 0;
  /// Asks for another width. The host answers a change with Control::resize().
  virtual void set_Width(Single twips) = 0;
  /// Called at the end of each redraw that has drawn the whole graph.
  virtual void redrawn() {}
  /// The graph has just been loaded from its file or written to it, and nothing has changed it
  /// since. The control is not done yet: the host may read the graph and must not change it.
  virtual void filed() {}
  /// The control's one event: a mouse button was released over the plot. Button is 1 left, 2 right,
  /// 4 middle; Shift adds up 1 shift, 2 control, 4 alt; the point is in twips of the surface.
  virtual void MouseUp(Integer Button, Integer Shift, Single x, Single Y) = 0;
};

}  // namespace kurv
