/// @file
/// The mouse wheel scrolls a window and does not change its fields in passing.
#pragma once

#include <KurvGraph/export.h>

#include <QWidget>

namespace kurv {

/// To be called when the fields of a window are there. From then on the wheel changes a list of
/// choices, a number box or a slider of this window only while that has the focus, and does not
/// give it the focus. Otherwise what is around the field scrolls.
KURV_EXPORT void guard_wheel(QWidget& window);

}  // namespace kurv
