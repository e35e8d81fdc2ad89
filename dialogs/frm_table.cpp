#include "dialogs/frm_table.h"

namespace kurv {

frmTable::frmTable(QWidget* parent) : GraphWindow(parent) {
  setObjectName(QStringLiteral("frmTable"));
}

void frmTable::fill() {}

}  // namespace kurv
