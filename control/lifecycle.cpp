#include "control/lifecycle.h"

#include <utility>

#include <KurvGraph/limits.h>

#include "control/control_state.h"
#include "control/data_intake.h"
#include "control/fitted_items.h"
#include "control/graph_file_commands.h"
#include "control/redraw.h"
#include "render/legend_titles.h"

namespace kurv {

namespace {

constexpr Single kTitleFontEnlargement = 3;  // points

constexpr const char* kSaveQuestion =
    "The graph was not saved. Do you want to save it before closing ?";

Integer g_instance_counter = 0;

void set_all_fonts(GraphDocument& document, const Font& font) {
  document.TitleFontName = font.FontName;
  document.TitleFontBold = true;
  document.TitleFontItalic = font.FontItalic;
  document.TitleFontSize = font.FontSize + kTitleFontEnlargement;

  document.FontName = font.FontName;
  document.FontBold = font.FontBold;
  document.FontItalic = font.FontItalic;
  document.FontSize = font.FontSize;

  document.SubTitleFontName = font.FontName;
  document.SubTitleFontBold = font.FontBold;
  document.SubTitleFontItalic = font.FontItalic;
  document.SubTitleFontSize = font.FontSize;
}

}  // namespace

void initialise(ControlState& state) {
  g_instance_counter = to_integer(Double(g_instance_counter) + 1);
  // All other defaults are those of a new GraphDocument.
  set_all_fonts(state.document, state.surface.font());
  SizeTitleHandles(state.document, state.layout, state.surface);
  place_titles(state.document, state.layout);
  place_legend(state.document, state.layout);
  load_demonstration_graph(state);
  state.document.DataFromHost = false;
  state.shell.load_windows();
}

void first_placement(ControlState& state) {
  GraphDocument& document = state.document;
  for (int k = 1; k <= document.yVarName.upper() - 1; ++k) {
    document.y_visible(k) = !document.yVarName(k + 1).empty();
  }
  for (int k = 1; k <= kMaxFunctions; ++k) {
    document.y_func(k).visible = !document.y_func(k).expression.empty();
  }
  document.NumTicks = kDefaultNumTicks;
  document.Y_grid = false;
  document.X_grid = false;
  resize(state);
}

void show(ControlState& state) {
  if (!state.container.run_mode()) return;
  place_titles(state.document, state.layout);
  build_the_graph(state);
}

void lay_out(ControlState& state) {
  const GraphDocument& document = state.document;
  PlotRect& plot = state.layout.plot;
  const NumericService& numeric = *state.services.numeric;

  plot.PlotTop = document.Top_margine;
  plot.PlotLeft = document.Left_margine;
  const Double width = state.surface.ScaleWidth() - document.Right_margine - plot.PlotLeft;
  const Double height = state.surface.ScaleHeight() - document.Bottom_margine - plot.PlotTop;
  plot.PlotWidth = to_integer(numeric.larger_of(width, kMinPlotSide));
  plot.PlotHeight = to_integer(numeric.larger_of(height, kMinPlotSide));
  if (document.GraphValid && has_items_in_fitted_places(state)) fit_items(state);
}

void resize(ControlState& state) {
  GraphDocument& document = state.document;
  // A surface is blank once it has another size.
  state.last_picture.reset();
  document.GraphSaved = false;
  lay_out(state);
  if (!state.container.run_mode() || document.DataFromHost) build_the_graph(state);
}

void terminate(ControlState& state) {
  const bool is_first = !std::exchange(state.is_terminated, true);
  const GraphDocument& document = state.document;
  if (!is_first) return;
  state.shell.release_windows();
  if (document.GraphSaved || !document.QueryForSave) return;
  const Answer answer = state.shell.message_box(kSaveQuestion, kYesNoQuestion, "KURV Guide");
  if (answer == Answer::kYes) Save_graph(state);
}

}  // namespace kurv
