// Data of a host that grow while the graph is shown: new points come, and everything else that the
// user or the host has set stays.
#pragma once

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include <utility>
#include <vector>

namespace kurv {

struct ControlState;

// Where the columns of the document come from. Choosing another x exchanges two of them, and
// derived curves are appended.
struct ColumnSources {
  // A curve that was computed from others: its number, and the names of the columns that its
  // expression could use, with their numbers.
  struct Derivation {
    int number;
    String expression;
    std::vector<std::pair<String, int>> variables;

    friend bool operator==(const Derivation&, const Derivation&) = default;
  };

  // Columns of the host, x among them; they have the numbers 1 to this one, and derived curves
  // those after it.
  int host_columns = 0;
  // As the host passed them; element 1 is the name of x.
  std::vector<String> host_names;
  // Element c - 1 is the number of column c of the document.
  std::vector<int> numbers;
  std::vector<Derivation> derivations;

  friend bool operator==(const ColumnSources&, const ColumnSources&) = default;
};

// After an intake: the columns are those of the host.
void reset_column_sources(ControlState& state);
// After x and another column have been exchanged.
void exchange_sources_with_x(ControlState& state, int column);
// Before a derived curve is appended.
void add_derivation(ControlState& state, const String& expression);

// See Control, which has members of these names.
void append_points(ControlState& state, const Matrix<Double>& points);
void replace_points(ControlState& state, const Matrix<Double>& points, const List<String>& names);

// Chooses label formats as an intake does, and keeps in mind which ones.
void choose_first_formats(ControlState& state);
// The same for limits that have changed; formats that the user has set stay.
void choose_formats_again(ControlState& state);
// From now on the formats that there are count as chosen, not as set by the user.
void keep_formats_as_chosen(ControlState& state);

}  // namespace kurv
