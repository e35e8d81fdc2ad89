#include "control/commands.h"

#include <algorithm>
#include <iterator>

#include "control/control_state.h"
#include "control/fitted_items.h"
#include "control/graph_file_commands.h"
#include "control/picture_export.h"
#include "control/property_pages.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "render/legend_titles.h"

namespace kurv {

namespace {

void refresh(ControlState& state) {
  const StepRecorder step(state, {"Reset Positions"});
  SizeTitleHandles(state.document, state.layout, state.surface);
  if (state.document.fitted_items.is_on) {
    fit_items(state);
  } else {
    place_titles(state.document, state.layout);
    place_legend(state.document, state.layout);
  }
  build_the_graph(state);
}

void undo_step(ControlState& state) {
  undo(state);
}

void redo_step(ControlState& state) {
  redo(state);
}

template <Window window, Integer page>
void show_window(ControlState& state) {
  state.shell.show_window(window, page);
}

struct Command {
  std::string_view word;
  void (*run)(ControlState& state);
};

// "help" is accepted like any other word and does nothing, because there is no help to show.
constexpr Command kCommands[] = {
    {"refresh", refresh},
    {"print", print_graph},
    {"copy", copy_graph},
    {"save", Save_graph},
    {"saveas", save_dialog},
    {"open", open_graph},
    {"setup", show_window<Window::kProperties, kGeneralPage>},
    {"titles", show_window<Window::kProperties, kTitlesPage>},
    {"curves", show_window<Window::kCurves, 0>},
    {"table", show_window<Window::kTable, 0>},
    {"undo", undo_step},
    {"redo", redo_step},
};

}  // namespace

void ChartOptions(ControlState& state, std::string_view command) {
  state.container.set_MousePointer(kHourglassPointer);
  const auto has_word = [command](const Command& row) { return row.word == command; };
  const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands), has_word);
  if (found != std::end(kCommands)) found->run(state);
  state.container.set_MousePointer(kDefaultPointer);
}

}  // namespace kurv
