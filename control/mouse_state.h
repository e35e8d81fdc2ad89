// What the mouse is about to do on the plot.
#pragma once

#include <KurvGraph/values.h>

#include <vector>

#include "control/hit_test.h"

namespace kurv {

// Who a release goes to: whoever got the press before it, wherever the pointer is by then.
enum class MouseHolder { kNobody, kSurface, kItem };

struct MouseState {
  // Where the last button went down: twips of the surface or of the item that it went down on.
  Single GrabX = 0;
  Single GrabY = 0;
  // Whose outlines are shown, from a press inside them until the next release on the surface.
  // Each of them once.
  std::vector<Region> marked;
  MouseHolder holder = MouseHolder::kNobody;
};

}  // namespace kurv
