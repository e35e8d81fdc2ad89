// Check boxes that are visible on dark desktops and as large as the letters beside them.
#pragma once

#include <QWidget>

namespace kurv::app {

// For a check box, or a list of items with check boxes.
void make_boxes_visible(QWidget& widget);

}  // namespace kurv::app
