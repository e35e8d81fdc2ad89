// How a user names the columns of a table.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kurv::app {

// A message names at most so many columns.
inline constexpr std::size_t kNamesInASentence = 10;

// The column of this name, with or without its unit, or of this number, from 1 on. Throws
// UserError, which begins with `path`, where there is none.
std::size_t find_column(const std::vector<std::string>& names, const std::string& reference,
                        const std::string& path);

// The same for several columns, "3-7".
std::vector<std::size_t> find_columns(const std::vector<std::string>& names,
                                      const std::string& reference, const std::string& path);

// Whether the reference is "row" and no column is called so: the row number.
bool is_row_number(const std::vector<std::string>& names, const std::string& reference);

}  // namespace kurv::app
