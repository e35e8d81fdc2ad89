#include "qt/widget/plot_menu.h"

#include <QAction>

#include "control/mouse.h"

namespace kurv {

namespace {

struct MenuEntry {
  const char* name;
  const char* text;  // null: a separator
  PlotCommand command;
};

template <PromptedSetting setting>
void prompt_for(Control& control) {
  control.prompt(setting);
}

template <Region region>
void open_editor_of(Control& control) {
  open_editor(control.state(), region);
}

void curves(Control& control) {
  control.ChartOptions("curves");
}

void titles(Control& control) {
  control.ChartOptions("titles");
}

void table(Control& control) {
  control.ChartOptions("table");
}

void add_function(Control& control) {
  control.add_function();
}

void add_derived_curve(Control& control) {
  control.add_derived_curve();
}

constexpr MenuEntry kSeparator{nullptr, nullptr, nullptr};
// No mnemonic is used twice.
constexpr MenuEntry kMenuEntries[] = {
    {"mnuCurves", "&Curves and Functions…", curves},
    {"mnuTitles", "Titles and F&onts…", titles},
    {"mnuAxes", "Ax&es…", open_editor_of<Region::kXLabels>},
    {"mnuLines", "Li&nes and Markers…", open_editor_of<Region::kFrame>},
    {"mnuTable", "&Table…", table},
    kSeparator,
    {"mnuMarkerSize", "&Marker Size…", prompt_for<PromptedSetting::kMarkerSize>},
    kSeparator,
    {"mnuLeftMargin", "&Left Margin…", prompt_for<PromptedSetting::kLeftMargin>},
    {"mnuRightMargin", "&Right Margin…", prompt_for<PromptedSetting::kRightMargin>},
    {"mnuTopMargin", "To&p Margin…", prompt_for<PromptedSetting::kTopMargin>},
    {"mnuBottomMargin", "&Bottom Margin…", prompt_for<PromptedSetting::kBottomMargin>},
    kSeparator,
    {"mnuXAxisTitle", "&X Axis Title…", prompt_for<PromptedSetting::kXAxisTitle>},
    {"mnuAxisFont", "&Axis Font…", prompt_for<PromptedSetting::kAxisFont>},
    {"mnuTitleFont", "T&itle Font…", prompt_for<PromptedSetting::kTitleFont>},
    {"mnuSubTitleFont", "&Subtitle Font…", prompt_for<PromptedSetting::kSubtitleFont>},
    kSeparator,
    {"mnuAddFunction", "Add &Function…", add_function},
    {"mnuAddDerivedCurve", "Add &Derived Curve…", add_derived_curve},
};

}  // namespace

QMenu* new_plot_menu(QWidget& owner, bool can_derive, const std::function<void(PlotCommand)>& run) {
  auto* const menu = new QMenu(&owner);
  menu->setObjectName(QStringLiteral("mnuPlot"));
  menu->setAccessibleName(QStringLiteral("Graph"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const MenuEntry& entry : kMenuEntries) {
    if (!entry.text) {
      menu->addSeparator();
      continue;
    }
    QAction* const action = menu->addAction(QString::fromUtf8(entry.text));
    action->setObjectName(QLatin1String(entry.name));
    action->setEnabled(can_derive || entry.command != add_derived_curve);
    // Queued, so that no prompt is open inside the menu's own code, under which the window may go.
    QObject::connect(
        action, &QAction::triggered, &owner, [run, command = entry.command] { run(command); },
        Qt::QueuedConnection);
  }
  return menu;
}

}  // namespace kurv
