// Which sheet of a workbook is read.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/base/user_error.h"

namespace kurv::app {

// A sheet's name, or its number from 1 on; without one, the first sheet that has cells.
using WantedSheet = std::optional<std::string>;

// How well a sheet matches `wanted`: 3 by its name, 2 by its name in another letter case, 1 by its
// number, 0 not at all.
int sheet_rank(const std::string& wanted, std::string_view name, std::size_t index);

UserError missing_sheet(const std::string& path, const std::string& wanted,
                        const std::vector<std::string>& sheets);
UserError no_cells(const std::string& path);

}  // namespace kurv::app
