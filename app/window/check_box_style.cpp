#include "app/window/check_box_style.h"

#include <KurvGraph/indicator_style.h>

#include <QPalette>

namespace kurv::app {

// Qt's Fusion style outlines a check box in a darker shade of the window's colour, in which an
// empty box on a dark desktop cannot be seen.
void make_boxes_visible(QWidget& widget) {
  QPalette colours = widget.palette();
  colours.setColor(QPalette::Window, Qt::gray);
  widget.setPalette(colours);
  scale_indicators(widget);
}

}  // namespace kurv::app
