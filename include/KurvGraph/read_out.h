/// @file
/// What a widget says about the point under the pointer, see KurvGraph::set_readout_enabled().
#pragma once

#include <QPointF>
#include <QString>
#include <functional>
#include <optional>

namespace kurv {

/// A point of a curve, for KurvGraph::pointed().
struct CurvePoint {
  QString name = {};         ///< of the curve, as in the legend
  bool is_function = false;  ///< a function curve
  int curve = 0;             ///< the curve, counted from 1; function curves are counted apart
  int point = 0;             ///< in the order of the host, counted from 1; 0 on a function curve
  double x = 0;              ///< its x
  double y = 0;              ///< its y

  /// Whether all members are equal.
  friend bool operator==(const CurvePoint&, const CurvePoint&) = default;
};

/// What is under the pointer, or where the keyboard is, for KurvGraph::pointed().
struct ReadOut {
  /// In data coordinates; nothing where the pointer is not in the plot.
  std::optional<QPointF> place = {};
  std::optional<CurvePoint> nearest = {};  ///< within 8 logical pixels
  QString x_text = {};  ///< the x of the nearest point, or of the place, as the axis shows it
  QString y_text = {};  ///< its y, likewise

  /// Whether all members are equal.
  friend bool operator==(const ReadOut&, const ReadOut&) = default;
};

/// Writes a value of x that is no plain number, such as a date. The resolution is how far two
/// values are apart that are a pixel apart, and 0 for a value of the data. An empty text leaves the
/// value to the label format.
using AxisText = std::function<QString(double value, double resolution)>;

}  // namespace kurv
