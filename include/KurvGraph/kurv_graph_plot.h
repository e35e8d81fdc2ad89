/// @file
/// The data of a whole graph, for KurvGraph::plot().
#pragma once

#include <QString>
#include <vector>

namespace kurv {

/// The values of one curve, one for each x. NaN is a missing value.
struct Series {
  QString name = {};                ///< in the legend and in expressions
  std::vector<double> values = {};  ///< in the order of Graph::x, and as many
};

/// A whole graph, for plot().
struct Graph {
  QString title = {};                     ///< above the plot
  QString x_name = QStringLiteral("x");   ///< the name of x and the title of its axis
  std::vector<double> x = {};             ///< of each point
  std::vector<Series> y = {};             ///< the scatter curves
  std::vector<QString> expressions = {};  ///< functions of x, such as "x^2"
  bool connected = true;                  ///< lines between the points
  bool markers = false;                   ///< a marker at each point
};

}  // namespace kurv
