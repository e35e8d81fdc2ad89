#include "ui/commands.h"

#include "core/control_state.h"
#include "core/redraw.h"
#include "render/legend_titles.h"
#include "ui/export.h"
#include "ui/graph_file_commands.h"
#include "ui/pages.h"

namespace kurv {

namespace {

void refresh(ControlState& state) {
  SizeTitleHandles(state.document, state.layout, state.surface);
  place_titles(state.document, state.layout);
  place_legend(state.document, state.layout);
  build_the_graph(state);
}

}  // namespace

void ChartOptions(ControlState& state, std::string_view command) {
  state.container.set_MousePointer(kHourglassPointer);
  if (command == "refresh") refresh(state);
  if (command == "print") print_graph(state);
  if (command == "copy") copy_graph(state);
  if (command == "save") Save_graph(state);
  if (command == "saveas") save_dialog(state);
  if (command == "open") open_graph(state);
  if (command == "setup") state.shell.show_window(Window::kProperties, kGeneralPage);
  if (command == "titles") state.shell.show_window(Window::kProperties, kTitlesPage);
  if (command == "curves") state.shell.show_window(Window::kCurves, 0);
  if (command == "table") state.shell.show_window(Window::kTable, 0);
  state.container.set_MousePointer(kDefaultPointer);
}

}  // namespace kurv
