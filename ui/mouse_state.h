// What the mouse is about to do on the plot.
#pragma once

#include <KurvGraph/values.h>

#include <vector>

namespace kurv {

// The parts of the axes that a press marks, in the order in which a point is tested against them.
enum class Region { kXCaption, kXLabels, kYLabels, kFrame };

struct MouseState {
  // Where the last button went down: twips of the surface or of the item that it went down on.
  Single GrabX = 0;
  Single GrabY = 0;
  // Whose outlines are shown, from a press inside them until the next release on the surface.
  std::vector<Region> marked;
};

}  // namespace kurv
