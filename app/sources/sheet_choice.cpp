#include "app/sources/sheet_choice.h"

#include <KurvGraph/text.h>

#include "app/base/message_text.h"

namespace kurv::app {

int sheet_rank(const std::string& wanted, std::string_view name, std::size_t index) {
  if (wanted == name) return 3;
  if (equals_ignoring_case(wanted, name)) return 2;
  return wanted == std::to_string(index + 1) ? 1 : 0;
}

UserError missing_sheet(const std::string& path, const std::string& wanted,
                        const std::vector<std::string>& sheets) {
  constexpr std::size_t kNamesInMessage = 5;
  return UserError(path + " has no sheet " + in_quotes(wanted) + "; name one of " +
                   enumeration(sheets, kNamesInMessage) + ", or give its number.");
}

UserError no_cells(const std::string& path) {
  return UserError(path +
                   " has no cell with a value; it needs a row of names and rows of numbers.");
}

}  // namespace kurv::app
