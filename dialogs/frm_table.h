#pragma once

#include "dialogs/graph_window.h"

namespace kurv {

class frmTable final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmTable(QWidget* parent);

 protected:
  void fill() override;
};

}  // namespace kurv
