/// @file
/// Check boxes as large as the letters beside them.
#pragma once

#include <KurvGraph/export.h>

#include <QWidget>

namespace kurv {

/// Gives a check box, or a list of items with check boxes, the application's style with indicators
/// that grow with the widget's font: those of Qt's Fusion style have the same size beside any font.
/// Other metrics stay the style's own.
KURV_EXPORT void scale_indicators(QWidget& widget);

}  // namespace kurv
