// Which cells of a column count as missing although they are not empty.
#pragma once

#include <cstdint>
#include <string_view>

#include "app/csv/cell_value.h"
#include "app/csv/column_survey.h"

namespace kurv::app {

// Why a cell has no value in its column of numbers or dates, such as "not a number"; empty where it
// has one, is missing, or where the column is of another kind.
std::string_view refusal_of(const CellValue& cell, const ColumnSurvey& survey);
// How many cells of the column refusal_of() has a reason for.
std::uint32_t refused_cells(const ColumnSurvey& survey);

}  // namespace kurv::app
