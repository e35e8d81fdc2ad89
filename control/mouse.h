// The router of the mouse on the plot, for the widget and for hosts that report the mouse by the
// members of Control. It decides who gets a press, when a press becomes a drag, to whom a release
// belongs, what a double click opens and which pointer is shown. A new gesture goes here.
//
// What depends on a toolkit stays with the caller: pixels, the drag threshold, cursors, and when it
// is safe to open a window. Points are in twips of the surface unless said otherwise.
#pragma once

#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

#include <optional>

#include "control/hit_test.h"
#include "control/mouse_state.h"

namespace kurv {

struct ControlState;

// -- Press ------------------------------------------------------------------------------------
// A press on an item grabs it, and with the left button may become a drag. A press on the surface
// outlines the first region there. Returns false for a press that is ignored: while an item is
// dragged, other buttons do nothing, not even when they are released after the drag.
bool press(ControlState& state, MouseButton button, SurfacePoint at);
// The second press of a double click, where the toolkit reports one instead of a press. It marks as
// a press does, but never becomes a drag; with the left button the release carries the double
// click.
bool double_press(ControlState& state, MouseButton button, SurfacePoint at);

// -- Drag -------------------------------------------------------------------------------------
// The pointer has moved with the left button down. The drag begins with the first call that is
// beyond the caller's threshold. Returns whether there is a drag that has begun.
bool drag_to(ControlState& state, SurfacePoint at, bool is_beyond_threshold);
// The item stays where it was; the release that follows does nothing.
void cancel_drag(ControlState& state);
// As cancel_drag(), and a double click opens nothing either.
void cancel_gestures(ControlState& state);
// The outline that follows the pointer, while a drag has begun.
std::optional<Rect> dragged_rect(const ControlState& state);

// -- Release ----------------------------------------------------------------------------------
enum class ReleaseKind {
  kIgnored,  // so was the press
  kClick,    // of an item: nothing happens
  kMouseUp,  // of the surface: hides the outlines and raises the event
  kDrop,     // the end of a drag
};

struct Release {
  ReleaseKind kind = ReleaseKind::kIgnored;
  ItemDrag drag;                            // of kDrop
  std::optional<DoubleClick> double_click;  // to be opened after the release is delivered

  // Whether deliver() does anything.
  bool has_effect() const { return kind == ReleaseKind::kMouseUp || kind == ReleaseKind::kDrop; }
};

// Ends the press of the button and says what the release means. It goes to who received the press,
// wherever the pointer is by now. Without a press it belongs to the surface; that of kAny, to what
// is at the point.
Release end_press(ControlState& state, MouseButton button, SurfacePoint at);
// Raises the event or drops the item; throws what a redraw throws.
void deliver(ControlState& state, const Release& release, Integer Button, Integer Shift,
             SurfacePoint at);

// -- Double click -----------------------------------------------------------------------------
// Opens the editor of the item if there is one, else that of the region of the last press.
// After a press on an item that point is in the item's own coordinates, and is compared with the
// regions all the same.
void open_double_click(ControlState& state, const DoubleClick& click);
// Opens the window in which the target is edited: the titles or the curves by their commands, else
// the axes, the lines, or the curves.
void open_editor(ControlState& state, const HitTarget& target);

// -- Pointer ----------------------------------------------------------------------------------
enum class PointerKind { kPlain, kCanGrab, kGrabbing, kCanEdit };
// For a pointer at this point, or outside the plot.
PointerKind pointer_at(const ControlState& state, std::optional<SurfacePoint> at);

// -- Members of Control -----------------------------------------------------------------------
// All buttons are one here, see MouseButton::kAny.
void press_mouse(ControlState& state, SurfacePoint at);
void release_mouse(ControlState& state, Integer Button, Integer Shift, SurfacePoint at);
void double_click(ControlState& state, SurfacePoint at);
// A whole drag: grabs the item at a point of its own and drops it at a point of the surface or of
// the item `on`. Does nothing for an item that is not shown.
void drag(ControlState& state, Item item, SurfacePoint grab, SurfacePoint at,
          std::optional<Item> on = {});
// What moving the item is called.
const char* drop_name(Item item);
// Moves the item so that the point at which it was grabbed is at `at`, and redraws. Throws
// kOverflow, and moves nothing, for a position that no Single holds.
void drop(ControlState& state, Item item, SurfacePoint at);

}  // namespace kurv
