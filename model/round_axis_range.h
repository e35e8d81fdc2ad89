// Round limits of a document, from its data.
#pragma once

#include "model/graph_document.h"

namespace kurv {

// When round limits are turned on and off: keeps the settings that they replace, makes both axes
// inexact, and restores these settings.
void begin_round_limits(GraphDocument& document);
void end_round_limits(GraphDocument& document);

// From here on the number of ticks and the label formats count as chosen, not as set by the user.
void keep_settings_as_chosen(GraphDocument& document);

// Whether the limits of neither axis are exact, and the label formats are those of
// choose_exact_label_formats(): so is a graph that was saved with round limits.
bool has_exact_labels(const GraphDocument& document);

// Sets the limits of the axes that are not exact as choose_round_limits() says, and NumTicks where
// the user has not set it since. With no visible curve all of them stay. Infinities do not count.
// Where all x values are equal, both limits
// of x are this value, so that an intake refuses the data.
void round_axis_range(GraphDocument& document);

// Chooses label formats that show all ticks exactly.
void choose_exact_label_formats(GraphDocument& document);
// The same while round limits are on, where the ticks are elsewhere than when the formats were
// chosen, and except for formats that the user has set since.
void renew_exact_label_formats(GraphDocument& document);

}  // namespace kurv
