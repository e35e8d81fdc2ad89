// plot(): takes ordinary containers, and checks them before anything changes.
#include <KurvGraph/KurvGraph.h>
#include <KurvGraph/limits.h>

#include <QPointer>
#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "control/control_state.h"
#include "control/function_curve_commands.h"
#include "control/undo.h"
#include "qt/widget/kurv_graph_state.h"

namespace kurv {

namespace {

[[noreturn]] void refuse(const std::string& sentence) {
  throw std::invalid_argument(sentence);
}

std::string in_quotes(const QString& text) {
  return '"' + text.toStdString() + '"';
}

void check_counts(const Graph& graph) {
  if (graph.y.empty()) refuse("A graph needs at least one series of y values.");
  if (graph.y.size() > std::size_t{kMaxCurves}) {
    refuse("A graph has at most " + std::to_string(kMaxCurves) + " series, not " +
           std::to_string(graph.y.size()) + ".");
  }
  if (graph.expressions.size() > std::size_t{kMaxFunctions}) {
    refuse("A graph has at most " + std::to_string(kMaxFunctions) + " expressions, not " +
           std::to_string(graph.expressions.size()) + ".");
  }
  if (graph.x.size() < 2) {
    refuse("A graph needs at least two points, not " + std::to_string(graph.x.size()) + ".");
  }
  if (graph.x.size() > std::size_t{kMaxPoints}) {
    refuse("A graph has at most " + std::to_string(kMaxPoints) + " points, not " +
           std::to_string(graph.x.size()) + ".");
  }
}

void check_values(const std::string& owner, const std::vector<double>& values) {
  const auto infinite =
      std::find_if(values.begin(), values.end(), [](double value) { return std::isinf(value); });
  if (infinite != values.end()) {
    refuse("Value " + std::to_string(infinite - values.begin() + 1) + " of " + owner +
           " is infinite; NaN stands for a missing value.");
  }
}

bool is_number(double value) {
  return !std::isnan(value);
}

void check_x(const std::vector<double>& x) {
  check_values("x", x);
  const auto first = std::find_if(x.begin(), x.end(), is_number);
  const bool varies = std::any_of(
      first, x.end(), [&](double value) { return is_number(value) && value != *first; });
  if (!varies) refuse("A graph needs at least two different x values.");
}

void check_series(const Graph& graph) {
  bool any_number = false;
  for (const Series& series : graph.y) {
    const std::string owner = "the series " + in_quotes(series.name);
    if (series.values.size() != graph.x.size()) {
      refuse("There are " + std::to_string(graph.x.size()) + " x values, but " + owner + " has " +
             std::to_string(series.values.size()) + ".");
    }
    check_values(owner, series.values);
    any_number = any_number || std::any_of(series.values.begin(), series.values.end(), is_number);
  }
  if (!any_number) refuse("None of the series has a number in it.");
}

void check_expressions(const std::vector<QString>& expressions) {
  for (const QString& expression : expressions) {
    const std::optional<String> refusal = check_function(expression.toStdString());
    if (refusal) refuse("Expression " + in_quotes(expression) + ": " + *refusal);
  }
}

}  // namespace

void KurvGraph::plot(const Graph& graph) {
  check_counts(graph);
  check_x(graph.x);
  check_series(graph);
  check_expressions(graph.expressions);

  const int points = static_cast<int>(graph.x.size());
  const int curves = static_cast<int>(graph.y.size());
  Matrix<Double> values(1, curves, 1, points);
  List<String> names(1, curves);
  for (int k = 1; const Series& series : graph.y) {
    const Column<Double> column = values.column(k);
    for (int i = 1; const double value : series.values) column(i++) = value;
    names(k++) = series.name.toStdString();
  }
  const int count = static_cast<int>(graph.expressions.size());
  List<String> expressions(1, count);
  for (int k = 1; const QString& expression : graph.expressions) {
    expressions(k++) = expression.toStdString();
  }
  const QPointer<KurvGraph> alive = this;
  const QExplicitlySharedDataPointer<State> held = m_state;
  // The intake begins a new history, and what follows is a part of it.
  const StepRecorder loading(held->graph.state(), {"Plot"});
  scatter_graph(values, {1, graph.x}, points, curves, graph.title.toStdString(),
                graph.x_name.toStdString(), names, count, expressions, graph.connected,
                graph.markers);
  if (alive) ChartOptions(QStringLiteral("refresh"));
}

}  // namespace kurv
