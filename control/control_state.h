// The state of one control. The control's member functions are one line each; the work is done by
// free functions over this record, which is private: no host can include it.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <KurvGraph/automation.h>
#include <KurvGraph/container.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/services.h>
#include <KurvGraph/shell.h>

#include "control/growing_data.h"
#include "control/history.h"
#include "control/lazy_evaluator.h"
#include "control/mouse_state.h"
#include "control/zoom_state.h"
#include "io/text_file.h"
#include "model/graph_document.h"
#include "model/layout.h"

namespace kurv {

// What the last complete redraw has drawn. Refused data replace the document, but the picture
// stays.
struct LastPicture {
  Layout layout;
  bool has_legend = false;
};

struct ControlState {
  Container& container;
  Shell& shell;
  PlotSurface& surface;
  const Services& services;
  GraphDocument document{};
  Layout layout{};
  // Nothing while the surface is blank.
  std::optional<LastPicture> last_picture{};
  char decimal_separator = '.';  // in graph files
  // The graph file that is being read. A load that fails leaves it open; the next load or save
  // begins by closing it.
  std::optional<InputFile> open_file{};
  // The graph file that is being loaded or saved; it stays here where that fails. The widget names
  // it in the fault.
  String used_file{};
  // Three evaluators, so that none sees the variables or the expression of another. A fourth, the
  // library's, checks edited functions, and each function that is added is checked by a new one.
  LazyEvaluator function_evaluator{};  // draws function curves
  LazyEvaluator derived_evaluator{};   // computes derived curves
  LazyEvaluator wizard_evaluator{};    // checks names and expressions of derived curves
  MouseState mouse{};
  ZoomState zoom{};
  // What has to be known when more points come: the columns, and the label formats that the control
  // has chosen to suit the data.
  ColumnSources columns{};
  FittedSetting<String> x_format{};
  FittedSetting<String> y_format{};
  unsigned cell_edits = 0;  // since the last intake
  // What round limits are after the graph file that is being loaded.
  bool round_limits_after_load = false;
  History history{};
  bool is_terminated = false;
  std::vector<EventListener> listeners = {};
  std::unique_ptr<PicturePrinter> printer = {};  // made at the first print
};

}  // namespace kurv
