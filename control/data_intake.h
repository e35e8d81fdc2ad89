// Copies a data set into the document.
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

// Data of a host are copied: the document shares no memory with its arrays.
//
// From separate arrays, yarr(curve, point) and xarr(point), all counted from 1; every curve
// visible. Data that cannot be plotted stay in the document, which is then not valid, and a message
// says why. Throws kSubscriptOutOfRange for an array shorter than its count and for more than 149
// curves, kOverflow for a count of curves that has no successor; what was written until then stays.
void scatter_graph(ControlState& state, const IntakeSettings& settings, const Matrix<Double>& yarr,
                   const List<Double>& xarr, const String& x_name, const List<String>& y_names,
                   const List<String>& functions);

// From one matrix xyarr(column, point) of which column 1 is x, with names alike and a visibility
// flag per curve. More than 149 curves are cut to 149. DataFromHost is set even if they are
// refused.
void scatter_graph2(ControlState& state, const IntakeSettings& settings,
                    const Matrix<Double>& xyarr, const List<String>& names,
                    const List<Boolean>& visible, const List<String>& functions);

// The same for a matrix of a file, whose points are 0 to the count and which is moved in: nobody
// has a view of it, so its columns become the document's without a copy.
void load_data(ControlState& state, const IntakeSettings& settings, Matrix<Double> xyarr,
               const List<String>& names, const List<Boolean>& visible,
               const List<String>& functions);

// Whether data that scatter_graph2() has refused have been repaired by edits and can be drawn now.
// At least one curve has to be visible, because the limits are computed from visible curves.
bool has_repaired_data(const GraphDocument& document);
// Draws such data as an intake would.
void draw_repaired_data(ControlState& state);
// The same, as a part of the last step: for edits that were steps, which are undone with it.
void show_repaired_data(ControlState& state);

// The data set that a fresh control holds, random each time. It is neither validated nor drawn, and
// DataFromHost stays False.
void load_demonstration_graph(ControlState& state);

}  // namespace kurv
