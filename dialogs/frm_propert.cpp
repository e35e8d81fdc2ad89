#include "dialogs/frm_propert.h"

namespace kurv {

frmPropert::frmPropert(QWidget* parent) : GraphWindow(parent) {
  setObjectName(QStringLiteral("frmPropert"));
}

void frmPropert::fill() {}

}  // namespace kurv
