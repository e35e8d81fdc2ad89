// Loads a file and the choices of the command line into a graph: a control on a picture or a widget
// in a window.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>

#include <QImage>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_data.h"
#include "app/graph/graph_choice.h"
#include "app/graph/graph_file.h"
#include "app/graph/picture_file.h"

namespace kurv::app {

// A file of the command line.
struct GraphSource {
  std::string path;
  // Nothing for a graph file, which the graph loads itself.
  std::optional<TableData> data;
};

// Throws UserError when the file has nothing that can be drawn, and with kUsageFailure when it is a
// graph file and the choice selects columns or rows.
GraphSource load(const std::string& path, const GraphChoice& choice);

// Throws UserError with kUsageFailure where an option is about a table, and the file is a graph
// file.
void refuse_table_options(const TableOptions& table, const std::string& path);

// How the read-out of a widget writes the values of x; nothing where they are no dates.
AxisText date_texts(const TableData& data);

// Sets a property by its row of the table; the value converts to the property's type.
void set_property_value(Control& graph, const Member& property, const Variant& value);
void set_property_value(KurvGraph& graph, const Member& property, const Variant& value);

// The locale determines the decimal separator of graph files.
void set_locale(Control& graph, const QLocale& locale);
void set_locale(KurvGraph& graph, const QLocale& locale);

template <class AnyGraph>
void plot_table(const GraphChoice& choice, const std::string& path, const TableData& data,
                AnyGraph& graph) {
  const int curves = data.values.upper_column() - 1;
  List<Boolean> visible(1, curves);
  for (int curve = 1; curve <= curves; ++curve) visible(curve) = true;
  const std::string title = choice.title.value_or(std::filesystem::path(path).stem().string());
  set_property_value(graph, *find_property("SortXY"),
                     Variant(Boolean(choice.table.selection.sort)));
  set_property_value(graph, *find_property("SubTitle"), Variant(choice.subtitle.value_or("")));
  graph.set_round_limits(choice.round_limits.value_or(true));
  graph.set_x_unit(x_unit(data));
  graph.set_fitted_items(true);
  const bool is_scattered =
      !choice.lines && !choice.markers && !choice.table.selection.sort && has_unsorted_x(data);
  graph.scatter_graph2(title, data.values, data.names,
                       static_cast<Integer>(data.values.upper_point()),
                       static_cast<Integer>(curves), visible, 0, {},
                       choice.lines.value_or(!is_scattered), choice.markers.value_or(is_scattered));
}

// Overrides what a graph file says by what was chosen.
template <class AnyGraph>
void apply_overrides(const GraphChoice& choice, AnyGraph& graph) {
  if (choice.title) set_property_value(graph, *find_property("Title"), Variant(*choice.title));
  if (choice.subtitle)
    set_property_value(graph, *find_property("SubTitle"), Variant(*choice.subtitle));
  if (choice.lines)
    set_property_value(graph, *find_property("Connected"), Variant(Boolean(*choice.lines)));
  if (choice.markers)
    set_property_value(graph, *find_property("DrawMarkers"), Variant(Boolean(*choice.markers)));
}

template <class AnyGraph>
void fill(const GraphChoice& choice, const GraphSource& source, AnyGraph& graph) {
  if (choice.locale) set_locale(graph, *choice.locale);
  if (source.data) {
    plot_table(choice, source.path, *source.data, graph);
  } else {
    // Stays on for a file that was saved with it.
    graph.set_round_limits(true);
    graph.set_fitted_items(true);
    load_graph_file(graph, source.path);
    apply_overrides(choice, graph);
  }
}

// A graph file keeps the places of titles and legend, which "refresh" would reset.
template <class AnyGraph>
void redraw(const GraphSource& source, AnyGraph& graph) {
  if (source.data) {
    graph.ChartOptions("refresh");
  } else {
    graph.build_the_graph();
  }
}

// Adds the curves that are computed from others and the functions of x. Throws UserError with the
// evaluator's or the graph's own sentence about what cannot be one.
void add_curves(const GraphChoice& choice, Control& graph);
void add_curves(const GraphChoice& choice, KurvGraph& graph);

// Round limits of a table are fitted to the number of ticks that was chosen; limits that were
// chosen too come after that, and a graph file has limits of its own.
template <class AnyGraph>
void fit_to_ticks(const GraphChoice& choice, const GraphSource& source, AnyGraph& graph) {
  if (!source.data || !graph.round_limits()) return;
  for (const Setting& setting : choice.settings) {
    if (setting.property->name != "NumTicks") continue;
    set_property_value(graph, *setting.property, Variant(setting.value));
    graph.update_limits();
  }
}

// Adds the curves, sets the properties, which need the data, and redraws. Some of a picture depends
// on the redraw before, such as the length of the grid lines, so it is drawn until it stays the
// same. `drawn` is what the graph is drawn in.
template <class AnyGraph, class Drawn>
void apply_settings(const GraphChoice& choice, const GraphSource& source, AnyGraph& graph,
                    const Drawn& drawn) {
  constexpr int kMaxRedraws = 8;
  add_curves(choice, graph);
  fit_to_ticks(choice, source, graph);
  for (const Setting& setting : choice.settings) {
    set_property_value(graph, *setting.property, Variant(setting.value));
  }
  redraw(source, graph);
  if (choice.settings.empty()) return;
  QImage before = drawn.image();
  for (int round = 1; round < kMaxRedraws; ++round) {
    redraw(source, graph);
    const QImage after = drawn.image();
    if (after == before) break;
    before = after;
  }
}

// A sentence where the legend has no room for as many curves as this; nothing for none.
std::optional<std::string> legend_warning(int unlisted_curves);

// Gets sentences about what the user would not expect.
using WarningSink = std::function<void(const std::string&)>;

// The bytes of a picture of the graph, drawn without a window at `scale` device pixels per logical
// one (ignored for vector formats). Needs a QGuiApplication. Throws UserError where the graph
// would show a message box or fail. `warn` gets the legend_warning().
QByteArray render_picture(const GraphChoice& choice, const GraphSource& source,
                          PictureFormat format, double scale, const WarningSink& warn = {});
// Throws as render_picture() does, and makes no picture.
void check_picture(const GraphChoice& choice, const GraphSource& source);

// The same graph into a graph file. An existing one is kept as NAME~ until the new one is complete.
// Before it is written, `warn` gets a sentence for each text that does not come back from it.
void save_graph(const GraphChoice& choice, const GraphSource& source, const std::string& path,
                const WarningSink& warn = {});

}  // namespace kurv::app
