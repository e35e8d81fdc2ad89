// The points of a graph as the rows of a table, and the edits of its cells.
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

// The size of the data that the document has. The counts are larger after an intake that has failed
// midway.
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
// and redraws once; edits that change nothing are ignored. Where fewer than two different finite
// x values would be left, nothing is changed and the message for the user is returned. Throws
// kSubscriptOutOfRange for a cell outside the data; what was written until then stays.
std::optional<String> apply_table_edits(ControlState& state, std::vector<CellEdit> edits);

}  // namespace kurv
