// The options that say how a table is read.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "app/csv/table_options.h"

namespace kurv::app {

// The texts of the options, as they were given.
struct TableOptionTexts {
  std::optional<std::string> sheet;
  std::optional<std::string> separator;
  std::optional<std::string> decimal;
  std::optional<std::string> thousands;
  std::optional<std::string> header;
  std::optional<std::string> skip;
  std::optional<std::string> comment;
  std::optional<std::string> missing;
  std::optional<std::string> encoding;
  std::optional<std::string> dates;
};

void add_table_options(CLI::App& command, TableOptionTexts& texts);

// Writes what was given into the options. Throws UserError with kUsageFailure for what cannot be
// understood.
void parse_table_options(const TableOptionTexts& texts, TableOptions& options);

}  // namespace kurv::app
