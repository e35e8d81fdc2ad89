#include "dialogs/frm_curves.h"

namespace kurv {

frmCurves::frmCurves(QWidget* parent) : GraphWindow(parent) {
  setObjectName(QStringLiteral("frmCurves"));
}

void frmCurves::fill() {}

}  // namespace kurv
