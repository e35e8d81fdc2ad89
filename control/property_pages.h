// The tabs that the properties can be told to show first.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

// The gap is where no tab is; another page shows the first tab.
inline constexpr Integer kGeneralPage = 0;
inline constexpr Integer kTitlesPage = 1;
inline constexpr Integer kAxesPage = 2;
inline constexpr Integer kLinesPage = 4;

}  // namespace kurv
