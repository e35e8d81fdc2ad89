// The pages of the properties window that a command can open.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// There is no page 3. A number without a page shows the first one.
inline constexpr Integer kGeneralPage = 0;
inline constexpr Integer kTitlesPage = 1;
inline constexpr Integer kAxesPage = 2;
inline constexpr Integer kLinesPage = 4;

}  // namespace kurv
