#include "qt/widget/plot_targets.h"

#include <algorithm>
#include <iterator>

namespace kurv {

namespace {

struct Texts {
  const char* name;
  const char* hint;
};

Texts texts_of(Item item) {
  switch (item) {
    case Item::kTitle:
      return {"Title", "Drag to move the title; double-click to edit titles and fonts"};
    case Item::kSubTitle:
      return {"Subtitle", "Drag to move the subtitle; double-click to edit titles and fonts"};
    case Item::kLegend:
      break;
  }
  return {"Legend", "Drag to move the legend; double-click to edit the curves"};
}

Texts texts_of(Region region) {
  switch (region) {
    case Region::kXCaption:
      return {"Name of the x axis", "Double-click to edit the names of the variables"};
    case Region::kXLabels:
      return {"Labels of the x axis", "Double-click to edit the axes"};
    case Region::kYLabels:
      return {"Labels of the y axis", "Double-click to edit the axes"};
    case Region::kFrame:
      break;
  }
  return {"Frame", "Double-click to edit lines and markers"};
}

Texts texts_of(EmptyPlot) {
  return {"Empty plot", "Double-click to edit the curves"};
}

Texts texts_of(const HitTarget& target) {
  return std::visit([](const auto& kind) { return texts_of(kind); }, target);
}

}  // namespace

std::vector<HitTarget> targets_in_tab_order(const ControlState& state) {
  const HitTarget all[] = {Item::kTitle,     Item::kSubTitle,  Item::kLegend,  Region::kXCaption,
                           Region::kXLabels, Region::kYLabels, Region::kFrame, EmptyPlot::kPlot};
  std::vector<HitTarget> shown;
  std::copy_if(std::begin(all), std::end(all), std::back_inserter(shown),
               [&](const HitTarget& target) { return is_shown(state, target); });
  return shown;
}

QString name_of(const HitTarget& target) {
  return QLatin1String(texts_of(target).name);
}

QString hint_of(const std::optional<HitTarget>& target) {
  if (!target) return QStringLiteral("Double-click to edit the curves; right-click for more");
  return QLatin1String(texts_of(*target).hint);
}

}  // namespace kurv
