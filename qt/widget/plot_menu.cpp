#include "qt/widget/plot_menu.h"

#include <QAction>
#include <QFontMetrics>
#include <span>

#include "control/control_state.h"
#include "control/curve_edits.h"
#include "control/mouse.h"
#include "control/zoom.h"

namespace kurv {

namespace {

struct MenuEntry {
  const char* name;
  const char* text;            // null: a separator
  void (*command)(Control&);   // null: the word is the command
  const char* word = nullptr;  // for ChartOptions()
  bool needs_free_curve = false;
};

template <PromptedSetting setting>
void prompt_for(Control& control) {
  control.prompt(setting);
}

template <Region region>
void open_editor_of(Control& control) {
  open_editor(control.state(), region);
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

void show_whole_graph(Control& control) {
  show_all(control.state());
}

constexpr MenuEntry kSeparator{nullptr, nullptr, nullptr};
// No mnemonic is used twice.
constexpr MenuEntry kMenuEntries[] = {
    {"mnuCurves", "&Curves and Functions…", nullptr, "curves"},
    {"mnuTitles", "Titles and F&onts…", nullptr, "titles"},
    {"mnuAxes", "Ax&es…", open_editor_of<Region::kXLabels>},
    {"mnuLines", "Li&nes and Markers…", open_editor_of<Region::kFrame>},
    {"mnuTable", "&Table…", nullptr, "table"},
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
    {"mnuAddDerivedCurve", "Add &Derived Curve…", add_derived_curve, nullptr, true},
};

// No letter is left for the mnemonic of redo.
constexpr MenuEntry kUndo{"mnuUndo", "&Undo", undo_last};
constexpr MenuEntry kRedo{"mnuRedo", "Redo", redo_next};
constexpr MenuEntry kShowAll{"mnuShowAll", "Sho&w All", show_whole_graph};

// -- The extended menu ----------------------------------------------------------------------------
// With these, no mnemonic is used twice either, nor with "Copy", "Export" and "Print" of a host.

constexpr MenuEntry kRedoWithMnemonic{"mnuRedo", "Re&do", redo_next};
constexpr MenuEntry kTitles{"mnuTitles", "T&itles and Fonts…", nullptr, "titles"};
constexpr MenuEntry kAxes{"mnuAxes", "Axe&s…", open_editor_of<Region::kXLabels>};
constexpr MenuEntry kLines{"mnuLines", "&Lines and Markers…", open_editor_of<Region::kFrame>};
constexpr MenuEntry kXAxisTitle{"mnuXAxisTitle", "&X Axis Title…",
                                prompt_for<PromptedSetting::kXAxisTitle>};
constexpr MenuEntry kCurves{"mnuCurves", "Curves and &Functions…", nullptr, "curves"};

constexpr MenuEntry kPictureEntries[] = {
    {"mnuCopy", "&Copy Picture", nullptr, "copy"},
    {"mnuSaveAs", "Sa&ve As…", nullptr, "saveas"},
    {"mnuPrint", "&Print…", nullptr, "print"},
};
constexpr MenuEntry kWindowEntries[] = {
    {"mnuProperties", "Pr&operties…", nullptr, "setup"},
    kCurves,
    {"mnuTable", "Data Ta&ble…", nullptr, "table"},
};
constexpr MenuEntry kFontEntries[] = {
    {"mnuAxisFont", "&Axis Font…", prompt_for<PromptedSetting::kAxisFont>},
    {"mnuTitleFont", "&Title Font…", prompt_for<PromptedSetting::kTitleFont>},
    {"mnuSubTitleFont", "&Subtitle Font…", prompt_for<PromptedSetting::kSubtitleFont>},
};
constexpr MenuEntry kMarginEntries[] = {
    {"mnuLeftMargin", "&Left Margin…", prompt_for<PromptedSetting::kLeftMargin>},
    {"mnuRightMargin", "&Right Margin…", prompt_for<PromptedSetting::kRightMargin>},
    {"mnuTopMargin", "&Top Margin…", prompt_for<PromptedSetting::kTopMargin>},
    {"mnuBottomMargin", "&Bottom Margin…", prompt_for<PromptedSetting::kBottomMargin>},
};
constexpr MenuEntry kMarkerSize{"mnuMarkerSize", "Marker Si&ze…",
                                prompt_for<PromptedSetting::kMarkerSize>};
constexpr MenuEntry kAddEntries[] = {
    {"mnuAddFunction", "&Add Function…", add_function},
    {"mnuAddDerivedCurve", "Add De&rived Curve…", add_derived_curve, nullptr, true},
};

// Where the target is edited.
const MenuEntry& entry_of(const HitTarget& target) {
  if (const Item* const item = std::get_if<Item>(&target)) {
    return *item == Item::kLegend ? kCurves : kTitles;
  }
  if (target == HitTarget(Region::kXCaption)) return kXAxisTitle;
  if (target == HitTarget(Region::kFrame)) return kLines;
  if (std::holds_alternative<Region>(target)) return kAxes;
  return kCurves;
}

// Queued, so that no prompt is open inside the menu's own code, under which the window may go.
QAction* add_action(QMenu& menu, const char* name, const QString& text, QWidget& owner,
                    const RunPlotCommand& run, const PlotCommand& command) {
  QAction* const action = menu.addAction(text);
  action->setObjectName(QLatin1String(name));
  QObject::connect(
      action, &QAction::triggered, &owner, [run, command] { run(command); }, Qt::QueuedConnection);
  return action;
}

QString escaped(QString text) {
  return text.replace(u'&', QLatin1String("&&"));
}

void name_step(QAction& action, const std::optional<String>& step) {
  action.setEnabled(step.has_value());
  if (step) action.setText(action.text() + u' ' + escaped(QString::fromStdString(*step)));
}

// The name in quotation marks, for an entry.
QString shown_name(const QMenu& menu, const String& name) {
  constexpr int kLongestName = 24;  // characters of average width
  const QFontMetrics metrics = menu.fontMetrics();
  const QString text = QString::fromStdString(name).simplified();
  const int width = kLongestName * metrics.averageCharWidth();
  return QStringLiteral("\u201c") + escaped(metrics.elidedText(text, Qt::ElideRight, width)) +
         QStringLiteral("\u201d");
}

// Adds entries to one menu.
class MenuFiller {
 public:
  MenuFiller(QMenu& menu, QWidget& owner, Control& graph, const RunPlotCommand& run)
      : m_menu(menu), m_owner(owner), m_graph(graph), m_run(run) {}

  QAction* add(const MenuEntry& entry) const {
    PlotCommand command = entry.command;
    if (entry.word) command = [word = entry.word](Control& graph) { graph.ChartOptions(word); };
    QAction* const action =
        add_action(m_menu, entry.name, QString::fromUtf8(entry.text), m_owner, m_run, command);
    const bool has_free_curve = m_graph.state().document.NumY < kMaxCurves;
    action->setEnabled(has_free_curve || !entry.needs_free_curve);
    return action;
  }
  void add_all(std::span<const MenuEntry> entries) const {
    for (const MenuEntry& entry : entries) add(entry);
  }
  // The same without the entry that the menu has already.
  void add_others(std::span<const MenuEntry> entries) const {
    for (const MenuEntry& entry : entries) {
      if (!m_menu.findChild<QAction*>(QLatin1String(entry.name))) add(entry);
    }
  }
  void add_menu(const char* name, const QString& text, std::span<const MenuEntry> entries) const {
    QMenu* const menu = m_menu.addMenu(text);
    menu->setObjectName(QLatin1String(name));
    MenuFiller(*menu, m_owner, m_graph, m_run).add_all(entries);
  }
  void add_undo(const MenuEntry& redo) const {
    if (!m_graph.undo_enabled()) return;
    name_step(*add(kUndo), m_graph.undo_text());
    name_step(*add(redo), m_graph.redo_text());
    m_menu.addSeparator();
  }
  void add_show_all() const {
    add(kShowAll)->setEnabled(is_zoomed(m_graph.state()));
    m_menu.addSeparator();
  }
  // The host may load other data while the menu is open.
  void add_curve(int curve) const {
    const String name = curve_name(m_graph.state().document, curve);
    const QString shown = shown_name(m_menu, name);
    const auto add_command = [&](const char* action, const QString& text,
                                 void (*command)(ControlState&, int)) {
      add_action(m_menu, action, text, m_owner, m_run, [curve, name, command](Control& control) {
        ControlState& state = control.state();
        if (curve_name(state.document, curve) == name) command(state, curve);
      });
    };
    add_command("mnuRenameCurve", QStringLiteral("Re&name ") + shown + QStringLiteral("\u2026"),
                rename_curve);
    add_command("mnuHideCurve", QStringLiteral("&Hide ") + shown,
                [](ControlState& state, int hidden) { set_curve_visible(state, hidden, false); });
  }

 private:
  QMenu& m_menu;
  QWidget& m_owner;
  Control& m_graph;
  const RunPlotCommand& m_run;
};

QMenu* new_menu(QWidget& owner) {
  auto* const menu = new QMenu(&owner);
  menu->setObjectName(QStringLiteral("mnuPlot"));
  menu->setAccessibleName(QStringLiteral("Graph"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

}  // namespace

QMenu* new_plot_menu(QWidget& owner, Control& graph, bool can_zoom, const RunPlotCommand& run) {
  QMenu* const menu = new_menu(owner);
  const MenuFiller filler(*menu, owner, graph, run);
  filler.add_undo(kRedo);
  if (can_zoom) filler.add_show_all();
  for (const MenuEntry& entry : kMenuEntries) {
    if (entry.text) {
      filler.add(entry);
    } else {
      menu->addSeparator();
    }
  }
  return menu;
}

QMenu* new_extended_menu(QWidget& owner, Control& graph, bool can_zoom, const Clicked& clicked,
                         const RunPlotCommand& run) {
  QMenu* const menu = new_menu(owner);
  const MenuFiller filler(*menu, owner, graph, run);
  if (clicked.curve) {
    filler.add_curve(*clicked.curve);
  } else if (clicked.target) {
    filler.add(entry_of(*clicked.target));
  }
  menu->addSeparator();
  filler.add_undo(kRedoWithMnemonic);
  if (can_zoom) filler.add_show_all();
  if (owner.actions().isEmpty()) {
    filler.add_all(kPictureEntries);
  } else {
    menu->addActions(owner.actions());
  }
  menu->addSeparator();
  filler.add_others(kWindowEntries);
  menu->addSeparator();
  filler.add_menu("mnuFonts", QStringLiteral("Fon&ts"), kFontEntries);
  filler.add_menu("mnuMargins", QStringLiteral("&Margins"), kMarginEntries);
  const MenuEntry prompts[] = {kMarkerSize, kXAxisTitle};
  filler.add_others(prompts);
  menu->addSeparator();
  filler.add_all(kAddEntries);
  return menu;
}

}  // namespace kurv
