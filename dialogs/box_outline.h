// Makes unchecked check boxes visible on dark desktops.
#pragma once

#include <QPalette>

namespace kurv {

// Qt's Fusion style outlines a check box in a darker shade of the window's colour, which is
// invisible on a dark desktop. With a grey window colour in its palette the outline is visible on
// any desktop; the style uses that colour for nothing else in a check box.
inline void outline_check_boxes(QPalette& palette) {
  palette.setColor(QPalette::Window, Qt::gray);
}

}  // namespace kurv
