// The menu that a right click or the menu key opens on the plot.
#pragma once

#include <KurvGraph/control.h>

#include <QMenu>
#include <functional>

namespace kurv {

using PlotCommand = void (*)(Control&);

// A menu of the windows that a double click opens and of everything that a prompt can change. `run`
// gets the chosen command when the menu has closed, unless `owner` is gone by then. The menu
// deletes itself once it is closed. It begins with undo and redo where the host has turned them on.
QMenu* new_plot_menu(QWidget& owner, Control& graph, const std::function<void(PlotCommand)>& run);

}  // namespace kurv
