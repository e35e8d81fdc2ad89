// What one control consists of. The control's members are one line each; the work is done by free
// functions over this record, which every room of the control may include and no host can.
#pragma once

#include <KurvGraph/container.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/services.h>
#include <KurvGraph/shell.h>

#include "core/graph_document.h"
#include "render/layout.h"

namespace kurv {

struct ControlState {
  Container& container;
  Shell& shell;
  PlotSurface& surface;
  const Services& services;
  GraphDocument document;
  Layout layout;
};

}  // namespace kurv
