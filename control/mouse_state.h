// What the mouse is doing on the plot.
#pragma once

#include <KurvGraph/item.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/values.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "control/hit_test.h"

namespace kurv {

// Each button is followed separately. A host that reports presses without their gestures uses kAny
// for all of them: a press then never becomes a drag, and the last press counts.
enum class MouseButton { kAny, kLeft, kRight, kMiddle };
inline constexpr std::size_t kMouseButtons = 4;

// Who received the press of a button and therefore gets its release.
enum class PressOwner { kNobody, kSurface, kItem, kIgnored };

// An item under the pressed left button.
struct ItemDrag {
  Item item = Item::kLegend;
  SurfacePoint grab;       // in the item's own coordinates
  SurfacePoint at;         // where the pointer is now
  bool has_begun = false;  // until then it may still become a click
};

// The second press of a double click, on an item or else on the surface.
struct DoubleClick {
  std::optional<Item> item;
};

struct MouseState {
  // Where the last button went down: twips of the surface or of the item that it went down on.
  Single press_x = 0;
  Single press_y = 0;
  // The regions whose outlines are shown, each once, from a press inside them until the next
  // release on the surface.
  std::vector<Region> outlined;
  std::array<PressOwner, kMouseButtons> owners{};
  std::optional<ItemDrag> drag;
  std::optional<DoubleClick> double_click;  // until the button is released

  PressOwner& owner(MouseButton button) { return owners[static_cast<std::size_t>(button)]; }
};

}  // namespace kurv
