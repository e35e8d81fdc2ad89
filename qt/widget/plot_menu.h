// The menu that a right click or the menu key opens on the plot.
#pragma once

#include <KurvGraph/control.h>

#include <QMenu>
#include <functional>
#include <optional>

#include "control/hit_test.h"

namespace kurv {

using PlotCommand = std::function<void(Control&)>;
using RunPlotCommand = std::function<void(const PlotCommand&)>;

// A menu of the windows that a double click opens and of everything that a prompt can change. `run`
// gets the chosen command when the menu has closed, unless `owner` is gone by then. The menu
// deletes itself once it is closed. It begins with undo and redo where the host has turned them on,
// and "Show All" where the user can zoom.
QMenu* new_plot_menu(QWidget& owner, Control& graph, bool can_zoom, const RunPlotCommand& run);

// What the menu is opened on. A curve takes precedence over the target, such as the legend.
struct Clicked {
  std::optional<int> curve;
  std::optional<HitTarget> target;
};

// The same with what was clicked at its top, commands for the picture, and fonts and margins in
// menus of their own. The actions of `owner` take the place of the commands for the picture.
QMenu* new_extended_menu(QWidget& owner, Control& graph, bool can_zoom, const Clicked& clicked,
                         const RunPlotCommand& run);

}  // namespace kurv
