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

// While it lives no limits are rounded, because the limits, the ticks and the formats of a file are
// its own. Begins when the label formats are those of the file.
class RoundLimitsPause {
 public:
  explicit RoundLimitsPause(ControlState& state)
      : m_state(state),
        m_x_format(state.document.AxisLabelFormatX),
        m_y_format(state.document.AxisLabelFormatY) {
    RoundLimitsSwitch& rounding = state.document.round_limits;
    state.round_limits_after_load = std::exchange(rounding.is_on, false);
    rounding.x_unit = AxisUnit::kNumbers;
  }
  // After a fault they are on as before, unless a handler has turned them off meanwhile.
  ~RoundLimitsPause() { m_state.document.round_limits.is_on = m_state.round_limits_after_load; }
  RoundLimitsPause(const RoundLimitsPause&) = delete;
  RoundLimitsPause& operator=(const RoundLimitsPause&) = delete;

  // When the limits and the ticks are those of the file. The intake has chosen formats as without
  // round limits. Those of the file return where it was saved with round limits; any other file
  // turns them off.
  void restore_formats() {
    GraphDocument& document = m_state.document;
    if (!m_state.round_limits_after_load) return;
    std::swap(document.AxisLabelFormatX, m_x_format);
    std::swap(document.AxisLabelFormatY, m_y_format);
    m_state.round_limits_after_load = has_exact_labels(document);
    if (m_state.round_limits_after_load) return keep_settings_as_chosen(document);
    document.AxisLabelFormatX = m_x_format;
    document.AxisLabelFormatY = m_y_format;
  }

 private:
  ControlState& m_state;
  String m_x_format;
  String m_y_format;
};

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
  {
    RoundLimitsPause pause(state);
    pass_to_intake(state, graph);
    restore_view(state, graph);
    pause.restore_formats();
  }
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
