/// @file
/// The parts of the picture that a user can drag.
#pragma once

namespace kurv {

/// A part of the picture that can be dragged.
enum class Item {
  kLegend,   ///< the legend
  kTitle,    ///< the title
  kSubTitle  ///< the subtitle
};

}  // namespace kurv
