// What a user may say about a table instead of leaving it to be guessed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/text_encoding.h"

namespace kurv::app {

// Separators that are no single character.
inline constexpr char kBlanks = ' ';       // any number of spaces and tabs
inline constexpr char kFixedWidth = '\0';  // columns at the same places in each line

// How the dates of a table are written.
enum class DateOrder {
  kDayFirst,     // 31/12/2012
  kMonthFirst,   // 12/31/2012
  kYearFirst,    // 2012/12/31; so are the others where the year has four digits
  kUnixSeconds,  // the numbers of x are seconds since 1970
  kUnixMilliseconds,
  kNone,  // there are none: such texts are words, and numbers are numbers
};

enum class HeaderChoice { kNone, kNames, kNamesAndUnits };

// The columns and rows to draw; all optional. A column is given by its name, or by its number from
// 1 on; several curves also as "3-7".
struct Selection {
  std::optional<std::string> x;
  // x is the row number, whatever columns there are.
  bool row_numbers = false;
  std::vector<std::string> y;
  // Each n-th row is drawn, beginning with the first one.
  std::size_t every = 1;
  // The points are sorted by x, so more rows than a graph holds are thinned out in that order.
  bool sort = false;
};

// What is set here is not guessed.
struct TableOptions {
  // The name of a sheet, or its number from 1 on.
  std::optional<std::string> sheet;
  std::optional<Encoding> encoding;
  std::optional<char> separator;
  // The number of lines before the table.
  std::optional<std::size_t> skip;
  // Lines that begin with this text are no rows; empty where there are none.
  std::optional<std::string> comment;
  std::optional<HeaderChoice> header;
  std::optional<char> decimal;
  // The sign between groups of three digits: '.', ',', '\'', or ' ' for any kind of blank; '\0' for
  // none.
  std::optional<char> thousands;
  // The texts that stand for no value. An empty field always does.
  std::optional<std::vector<std::string>> missing;
  std::optional<DateOrder> dates;
  Selection selection;
};

}  // namespace kurv::app
