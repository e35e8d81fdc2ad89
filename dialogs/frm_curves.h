#pragma once

#include "dialogs/graph_window.h"

namespace kurv {

class frmCurves final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmCurves(QWidget* parent);

 protected:
  void fill() override;
};

}  // namespace kurv
