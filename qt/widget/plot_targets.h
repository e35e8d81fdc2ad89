// The hit targets of the plot as its user meets them: in the order of Tab, with names and hints.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "control/hit_test.h"

namespace kurv {

// Those that are shown now, at least one, in the order in which Tab visits them.
std::vector<HitTarget> targets_in_tab_order(const ControlState& state);

// "Title", "Labels of the x axis".
QString name_of(const HitTarget& target);
// What the mouse does there; without a target, what it does on the plain plot.
QString hint_of(const std::optional<HitTarget>& target);

}  // namespace kurv
