// What a user sets about a graph, without what the program or the data decide.
#pragma once

#include "app/window/clean_state.h"

namespace kurv::app {

// Fields that are left out of the comparison with the saved graph.
struct IgnoredFields {
  // The number of points, their values, and the formats of the labels: they come by themselves.
  bool data = false;
  bool limits = false;
  bool ticks = false;
  // Where title, subtitle and legend are, and the settings that change with them.
  bool places = false;
};

// The text of a graph file without the lines of these fields.
TextSource settings_text(TextSource text, const IgnoredFields& ignored);

}  // namespace kurv::app
