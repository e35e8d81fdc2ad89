// What a user sets about a graph whose data grow.
#pragma once

#include "app/window/clean_state.h"

namespace kurv::app {

// The text of a graph file without what its data decide: the number of points, their values, the
// formats of the labels, and the limits where these follow the data.
TextSource settings_text(TextSource text, bool limits_follow);

}  // namespace kurv::app
