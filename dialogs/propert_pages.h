// Builders of the pages of the properties window. Mnemonics may repeat between pages, but none may
// be one of the tabs or of the buttons below them: G, T, X, L, R, A, C.
#pragma once

#include "dialogs/propert_page.h"

namespace kurv {

// Order of the points, connection, scaling, margins.
void build_general_page(PropertPage& page);
// Title, subtitle and the three fonts.
void build_titles_page(PropertPage& page);
// Limits, number formats, ticks and grid lines.
void build_axes_page(PropertPage& page);
// Widths and markers.
void build_lines_page(PropertPage& page);

}  // namespace kurv
