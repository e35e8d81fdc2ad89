// Colours of the import window's views, which can be read on light and dark desktops.
#pragma once

#include <QBrush>

namespace kurv::app {

// Behind a cell that was not understood.
QBrush refused_cell();
// Behind a cell that is missing.
QBrush missing_cell();
// Text that is not part of the table.
QBrush grey_text();

}  // namespace kurv::app
