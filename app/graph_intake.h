// How a data file and the choices of the command line come into a graph, be it a control on a
// picture or a widget in a window.
#pragma once

#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/control.h>

#include <QImage>
#include <filesystem>
#include <string>

#include "app/command_line.h"
#include "app/data_columns.h"

namespace kurv::app {

// Throws UserError when there is nothing in the file that can be drawn.
DataSet load(const std::string& path, const Selection& selection);

// Sets a property by its row of the table; the value converts to the property's type.
void let(Control& graph, const Member& property, const Variant& value);
void let(KurvGraph& graph, const Member& property, const Variant& value);

template <class AnyGraph>
void hand_over(const GraphChoice& choice, const std::string& path, const DataSet& data,
               AnyGraph& graph) {
  const int curves = data.values.upper_column() - 1;
  List<Boolean> visible(1, curves);
  for (int curve = 1; curve <= curves; ++curve) visible(curve) = true;
  const std::string title = choice.title.value_or(std::filesystem::path(path).stem().string());
  let(graph, *find_property("SortXY"), Variant(Boolean(choice.sort)));
  let(graph, *find_property("SubTitle"), Variant(choice.subtitle));
  graph.scatter_graph2(title, data.values, data.names,
                       static_cast<Integer>(data.values.upper_point()),
                       static_cast<Integer>(curves), visible, 0, {}, choice.lines, choice.markers);
}

// Some of a picture depends on the picture before, such as the length of the grid lines: it is
// drawn until it stays the same. `source` is what the graph is drawn in.
template <class AnyGraph, class Source>
void settle(AnyGraph& graph, const Source& source) {
  constexpr int kMostRounds = 8;
  graph.ChartOptions("refresh");
  QImage before = source.image();
  for (int round = 1; round < kMostRounds; ++round) {
    graph.ChartOptions("refresh");
    const QImage after = source.image();
    if (after == before) break;
    before = after;
  }
}

// The choices that need the data to be there first, and the picture as it stays.
template <class AnyGraph, class Source>
void finish_looks(const GraphChoice& choice, AnyGraph& graph, const Source& source) {
  graph.ChartOptions("refresh");
  for (const Setting& setting : choice.settings) {
    let(graph, *setting.property, Variant(setting.value));
  }
  settle(graph, source);
}

// The graph drawn without a window, at `scale` device pixels per logical one. Needs a
// QGuiApplication. Throws UserError where the graph would show a message box or fail.
QImage picture_of(const GraphChoice& choice, const std::string& path, const DataSet& data,
                  double scale);

}  // namespace kurv::app
