#pragma once

#include "dialogs/graph_window.h"

namespace kurv {

class frmPropert final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmPropert(QWidget* parent);

 protected:
  void fill() override;
};

}  // namespace kurv
