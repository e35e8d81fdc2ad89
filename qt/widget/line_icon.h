// The icons of the buttons: line drawings in the colour of the desktop's text.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace kurv {

// The drawing of this name, in the palette's colour for texts on buttons, greyed where the button
// is disabled, and sharp at every size and resolution. An icon keeps the palette that it was made
// with. Needs a QGuiApplication to be drawn.
QIcon line_icon(const QString& name, const QPalette& palette);

}  // namespace kurv
