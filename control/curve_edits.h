// What the user does to the curves: which column is x, which curves are shown, what they are
// called.
//
// The lists may be asked for at any time, also after an intake that has failed half way: they hold
// what has both data and a name, and asking never fails. What changes the graph ends with a redraw.
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

// Exchanges x with the first of these columns that has the name, values and names, in both orders
// of the points, and computes the limits whatever Autoscale says: those of the old x mean nothing
// for the new one. The visibility flags stay in their places. Does nothing where there is no such
// column or it is x already.
void choose_x(ControlState& state, const String& name);

// Change the flag only where it says otherwise, non-zero counting as visible, and then compute the
// limits where Autoscale is on. Without a change there is no redraw either. They throw
// kSubscriptOutOfRange where there is no such flag.
void set_curve_visible(ControlState& state, int curve, bool visible);
void set_function_visible(ControlState& state, int slot, bool visible);
// The same for all scatter curves at once, but the limits stay as they are.
void set_all_curves_visible(ControlState& state, bool visible);

// Asks the user for another name. An answer of blanks is none, any other is taken as it is typed.
void rename_curve(ControlState& state, int curve);

}  // namespace kurv
