// What the user does to the curves: which column is x, which curves are shown, what they are
// called.
//
// The lists may be asked for at any time, also after an intake that has failed midway: they hold
// what has both data and a name, and never throw. Every function that changes the graph redraws it.
#pragma once

#include <KurvGraph/values.h>

#include <vector>

#include "model/graph_document.h"

namespace kurv {

struct ControlState;

// A curve as a list shows it. `number` is that of the scatter curve or of the function's slot.
struct ListedCurve {
  int number = 0;
  String text;
  bool visible = false;

  friend bool operator==(const ListedCurve&, const ListedCurve&) = default;
};

// The names of the columns that can be x, the present one first: those that hold two different
// values. A missing value differs from nothing, so a column without any value is left out like a
// constant one.
std::vector<String> x_choices(const GraphDocument& document);
// The scatter curves that have a name, at most 149.
std::vector<ListedCurve> listed_curves(const GraphDocument& document);
// The functions that have an expression.
std::vector<ListedCurve> listed_functions(const GraphDocument& document);
// The empty text where there is no such curve.
String curve_name(const GraphDocument& document, int curve);

// Exchanges x with the first column of this name, both values and names, in both orders of the
// points, and computes the limits even where Autoscale is off, because the limits of the old x do
// not fit the new one. The visibility flags are not exchanged. Does nothing where there is no such
// column or it is x already.
void choose_x(ControlState& state, const String& name);

// Change the flag only where that changes the visibility, non-zero counting as visible, and then
// compute the limits where Autoscale is on and redraw. Without a change there is no redraw. They
// throw kSubscriptOutOfRange where there is no such flag.
void set_curve_visible(ControlState& state, int curve, bool visible);
void set_function_visible(ControlState& state, int slot, bool visible);
// The same for all scatter curves at once, but the limits stay as they are.
void set_all_curves_visible(ControlState& state, bool visible);

// Asks the user for another name. An empty or blank answer changes nothing; any other is stored as
// it was typed.
void rename_curve(ControlState& state, int curve);

}  // namespace kurv
