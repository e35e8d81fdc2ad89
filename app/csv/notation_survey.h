// Finds out from all cells of a table how its numbers and dates are written.
#pragma once

#include <string>
#include <vector>

#include "app/csv/csv_table.h"
#include "app/csv/number_notation.h"

namespace kurv::app {

struct Notation {
  NumberNotation numbers;
  DateOrder dates = DateOrder::kDayFirst;
  // Whole sentences about what could have been read otherwise.
  std::vector<std::string> notes;
};

// One decimal sign and one sign between thousands for the whole table: a number such as "3,14" or
// "1.234.567" says what its signs mean, and decides about those that do not, such as "1.001". Where
// no number of the table says it, one is grouped if its column has numbers of three digits and none
// of more without a group; otherwise its sign is a decimal one. What the options say is not
// guessed.
Notation find_notation(const CsvTable& table, const TableOptions& options);

}  // namespace kurv::app
