#include "qt/widget/plot_menu.h"

#include <QAction>

#include "control/control_state.h"
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

void undo_last(Control& control) {
  control.undo();
}

void redo_next(Control& control) {
  control.redo();
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

// No letter is left for the mnemonic of redo.
constexpr MenuEntry kUndo{"mnuUndo", "&Undo", undo_last};
constexpr MenuEntry kRedo{"mnuRedo", "Redo", redo_next};

using RunCommand = std::function<void(PlotCommand)>;

// Queued, so that no prompt is open inside the menu's own code, under which the window may go.
QAction* add_entry(QMenu& menu, const MenuEntry& entry, QWidget& owner, const RunCommand& run) {
  QAction* const action = menu.addAction(QString::fromUtf8(entry.text));
  action->setObjectName(QLatin1String(entry.name));
  QObject::connect(
      action, &QAction::triggered, &owner, [run, command = entry.command] { run(command); },
      Qt::QueuedConnection);
  return action;
}

void name_step(QAction& action, const std::optional<String>& step) {
  action.setEnabled(step.has_value());
  if (!step) return;
  const QString name = QString::fromStdString(*step).replace(u'&', QStringLiteral("&&"));
  action.setText(action.text() + u' ' + name);
}

}  // namespace

QMenu* new_plot_menu(QWidget& owner, Control& graph, const RunCommand& run) {
  auto* const menu = new QMenu(&owner);
  menu->setObjectName(QStringLiteral("mnuPlot"));
  menu->setAccessibleName(QStringLiteral("Graph"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (graph.undo_enabled()) {
    name_step(*add_entry(*menu, kUndo, owner, run), graph.undo_text());
    name_step(*add_entry(*menu, kRedo, owner, run), graph.redo_text());
    menu->addSeparator();
  }
  const bool can_derive = graph.state().document.NumY < kMaxCurves;
  for (const MenuEntry& entry : kMenuEntries) {
    if (!entry.text) {
      menu->addSeparator();
      continue;
    }
    QAction* const action = add_entry(*menu, entry, owner, run);
    action->setEnabled(can_derive || entry.command != add_derived_curve);
  }
  return menu;
}

}  // namespace kurv
