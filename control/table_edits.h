// The points of a graph as the rows of a table, and what the table writes back.
#pragma once

#include <optional>
#include <vector>

#include <KurvGraph/arrays.h>
#include <KurvGraph/values.h>

#include "model/graph_document.h"

namespace kurv {

struct ControlState;

// Rows are points, columns are x and the curves; both count from 1.
struct TableSize {
  int rows = 0;
  int columns = 0;

  friend bool operator==(const TableSize&, const TableSize&) = default;
};

// What the document has values for. An intake that failed on the way may have left counts that are
// larger.
TableSize table_size(const GraphDocument& document);
// The copy of the data that SortXY selects, which xyArr may not yet be.
const Matrix<Double>& table_data(const GraphDocument& document);
// The point in the host's order that a row shows.
int point_of_row(const GraphDocument& document, int row);

struct CellEdit {
  int point;  // in the host's order
  int column;
  Double value;
};

// Writes the values into the host's order, sorts anew, computes the limits where Autoscale is on,
// and redraws once; values that are there already count for nothing. Where two different finite x
// values would not be left, everything stays as it was, and what to tell the user comes back.
// Throws kSubscriptOutOfRange for a cell outside the data, what was written until then stays.
std::optional<String> apply_table_edits(ControlState& state, std::vector<CellEdit> edits);

}  // namespace kurv
