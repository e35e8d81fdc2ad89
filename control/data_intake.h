// How a data set comes into the document.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include "model/graph_document.h"

namespace kurv {

struct ControlState;

// The scalar arguments that all intakes share.
struct IntakeSettings {
  String title;
  Integer num_data;
  Integer num_y;
  Integer num_functions;
  Boolean connected;
  Boolean draw_markers;
};

// From separate arrays, yarr(curve, point) and xarr(point), all counted from 1; every curve
// visible. Data that cannot be plotted stay in the document, which is then not valid, and a message
// says why. Throws kSubscriptOutOfRange for an array shorter than its count and for more than 149
// curves, kOverflow for a count of curves that has no successor; what was written until then stays.
void scatter_graph(ControlState& state, const IntakeSettings& settings, const Matrix<Double>& yarr,
                   const List<Double>& xarr, const String& x_name, const List<String>& y_names,
                   const List<String>& functions);

// From one matrix xyarr(column, point) of which column 1 is x, with names alike and a visibility
// flag per curve. More than 149 curves are cut to 149. The data count as the host's even if they
// are refused.
void scatter_graph2(ControlState& state, const IntakeSettings& settings,
                    const Matrix<Double>& xyarr, const List<String>& names,
                    const List<Boolean>& visible, const List<String>& functions);

// Whether data that scatter_graph2() has refused have been edited since and could be drawn now. One
// curve has to be visible: without any, no intake finds limits.
bool has_mended_data(const GraphDocument& document);
// Draws such data, as if they had just been handed over.
void show_mended_data(ControlState& state);

// The data set that a fresh control holds, random each time. Loaded, never drawn: it neither
// validates nor redraws nor counts as the host's.
void load_demonstration_graph(ControlState& state);

}  // namespace kurv
