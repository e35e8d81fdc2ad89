#include "control/graph_file_commands.h"

#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/text.h>

#include <utility>

#include "control/control_state.h"
#include "control/data_intake.h"
#include "control/picture_export.h"
#include "control/redraw.h"
#include "io/graph_file_reader.h"
#include "io/graph_file_writer.h"
#include "model/round_axis_range.h"

namespace kurv {

namespace {

void mark_saved(ControlState& state, const String& path) {
  GraphDocument& document = state.document;
  document.FileName = path;
  document.SavedTitle = document.Title;
  document.GraphSaved = true;
  state.history.note_saved(state);
  state.container.filed();
}

GraphFile read_from(ControlState& state, const String& path) {
  state.open_file.reset();
  InputFile& file = state.open_file.emplace(path);
  GraphFile graph =
      read_graph_file(file, state.document, *state.services.text_field, state.decimal_separator);
  state.open_file.reset();
  return graph;
}

// Takes the data out of `graph`.
void pass_to_intake(ControlState& state, GraphFile& graph) {
  const IntakeSettings settings{state.document.Title, graph.num_data,  graph.num_y,
                                graph.num_functions,  graph.Connected, graph.DrawMarkers};
  load_data(state, settings, std::move(graph.xyarr), graph.names, graph.visible, graph.functions);
}

void restore_view(ControlState& state, const GraphFile& graph) {
  state.container.set_Height(graph.height);
  state.container.set_Width(graph.width);
  apply_deferred(graph, state.document, state.layout);
}

struct LabelFormats {
  String x;
  String y;
};

// The intake has chosen formats as without round limits. Those of the file return where it was
// saved with round limits.
void restore_round_limits(GraphDocument& document, const LabelFormats& of_file) {
  bool& is_on = document.round_limits.is_on;
  const LabelFormats chosen{document.AxisLabelFormatX, document.AxisLabelFormatY};
  if (!is_on) return;
  document.AxisLabelFormatX = of_file.x;
  document.AxisLabelFormatY = of_file.y;
  is_on = has_exact_labels(document);
  if (is_on) return keep_settings_as_chosen(document);
  document.AxisLabelFormatX = chosen.x;
  document.AxisLabelFormatY = chosen.y;
}

bool begins_as_graph_file(const String& path) {
  InputFile file(path);
  return file.next_line().value_or("").starts_with(kGraphFileTag);
}

}  // namespace

// The view is restored also where the intake has refused the data, so that a user who repairs the
// data in the table, and then saves, does not lose the rest of the file.
void file_load(ControlState& state, const String& path) {
  state.used_file = path;
  GraphFile graph = read_from(state, path);
  const LabelFormats formats{state.document.AxisLabelFormatX, state.document.AxisLabelFormatY};
  pass_to_intake(state, graph);
  restore_view(state, graph);
  restore_round_limits(state.document, formats);
  build_the_graph(state);
  mark_saved(state, path);
  state.used_file.clear();
}

void Save_graph(ControlState& state) {
  if (state.document.GraphSaved) return;
  if (state.document.FileName.empty()) {
    save_dialog(state);
  } else {
    save_graph_file(state, state.document.FileName);
  }
}

void save_graph_file(ControlState& state, const String& path) {
  state.open_file.reset();
  state.used_file = path;
  const Container& container = state.container;
  write_graph_file(path, state.document, state.layout, {container.Height(), container.Width()},
                   state.decimal_separator);
  mark_saved(state, path);
  state.used_file.clear();
}

// The extension is the part after the first dot of the whole path, as the service that hosts can
// replace returns it. A dot in a folder's name hides it; the first line of the file identifies a
// graph file even then.
void open_graph(ControlState& state) {
  const FileChoice choice = state.shell.open_file(
      {"Open Graph File", "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*", "gdf"});
  if (trim_blanks(choice.path).empty()) return;
  const bool has_tag = begins_as_graph_file(choice.path);
  const String extension = state.services.text_field->GetField(choice.path, 2, ".");
  if (has_tag || equals_ignoring_case(extension, "gdf")) file_load(state, choice.path);
  build_the_graph(state);
}

}  // namespace kurv
