// Check boxes that are seen while they are empty.
#pragma once

#include <QPalette>

namespace kurv {

// The toolkit's own style outlines a check box in a shade of the window's colour that is darker
// still: on a dark desktop nobody sees an empty one. A box that takes its window for grey is seen
// on any; nothing else of it has to do with that colour.
inline void outline_boxes(QPalette& palette) {
  palette.setColor(QPalette::Window, Qt::gray);
}

}  // namespace kurv
