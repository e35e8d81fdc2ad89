// The parts of the picture that a user can drag.
#pragma once

namespace kurv {

enum class Item { kLegend, kTitle, kSubTitle };

}  // namespace kurv
