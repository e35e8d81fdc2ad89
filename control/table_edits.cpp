#include "control/table_edits.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "control/control_state.h"
#include "control/redraw.h"
#include "control/undo.h"
#include "model/axis_range.h"
#include "model/data_set.h"

namespace kurv {

namespace {

// Two missing values are equal here: the table shows them alike.
bool is_same(Double left, Double right) {
  return left == right || (std::isnan(left) && std::isnan(right));
}

}  // namespace

TableSize table_size(const GraphDocument& document) {
  const Matrix<Double>& data = table_data(document);
  const int rows =
      std::min<int>({document.NumData, data.upper_point(), document.sorted_places.upper()});
  const int columns = std::min<int>(document.NumY + 1, data.upper_column());
  if (rows < 1 || columns < 1) return {};
  return {rows, columns};
}

const Matrix<Double>& table_data(const GraphDocument& document) {
  return document.SortXY ? document.xyArrSorted : document.xyArrUnsorted;
}

int point_of_row(const GraphDocument& document, int row) {
  return document.SortXY ? document.sorted_places(row) : row;
}

std::optional<String> apply_table_edits(ControlState& state, std::vector<CellEdit> edits) {
  GraphDocument& document = state.document;
  Matrix<Double>& data = document.xyArrUnsorted;
  std::erase_if(edits, [&](const CellEdit& edit) {
    return is_same(std::as_const(data)(edit.column, edit.point), edit.value);
  });
  if (edits.empty()) return std::nullopt;

  const StepRecorder step(state, {"Edit Cells"});
  // After the exchange an edit holds the old value, so a second exchange undoes it.
  const auto exchange = [&](CellEdit& edit) {
    std::swap(data(edit.column, edit.point), edit.value);
  };
  std::for_each(edits.begin(), edits.end(), exchange);
  if (const std::optional<String> refusal = validate_points(document)) {
    std::for_each(edits.rbegin(), edits.rend(), exchange);
    return refusal;
  }

  ++state.cell_edits;
  document.xyArr = data;
  refresh_sorted_data(document, *state.services.swap);
  if (document.Autoscale) {
    basKurvGraph01::compute_axis_range(document, *state.services.numeric);
  }
  // The redraw does this too, but not for a graph that is not valid, whose file lacks the edits
  // too.
  document.GraphSaved = false;
  build_the_graph(state);
  return std::nullopt;
}

}  // namespace kurv
