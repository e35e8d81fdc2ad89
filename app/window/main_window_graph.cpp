#include "app/window/main_window_graph.h"

#include <QAction>
#include <algorithm>
#include <iterator>
#include <utility>

namespace kurv::app {

namespace {

// A command word, and the action of the menu that is triggered in its place.
struct CommandAction {
  const char* word;
  const char* action;
};

constexpr CommandAction kCommandActions[] = {
    {"refresh", "mnuRefresh"},     {"save", "mnuSave"},    {"saveas", "mnuSaveAs"},
    {"open", "mnuOpen"},           {"print", "mnuPrint"},  {"copy", "mnuCopy"},
    {"curves", "mnuCurves"},       {"setup", "mnuDesign"}, {"table", "mnuTable"},
    {"help", "mnuGettingStarted"},
};

// The actions of the window in the context menu.
constexpr const char* kMenuActions[] = {"mnuCopy", "mnuExportPicture", "mnuPrint"};

}  // namespace

MainWindowGraph::MainWindowGraph(const QMainWindow& window) : m_window(window) {
  set_extended_menu(true);
  for (const char* name : kMenuActions) addAction(window.findChild<QAction*>(name));
  for (const CommandAction& command : kCommandActions) {
    auto* const button = findChild<QAction*>(QStringLiteral("tbrGraph.") + command.word);
    // Not every command word has a button.
    if (button == nullptr) continue;
    const auto* const action = window.findChild<QAction*>(command.action);
    button->setEnabled(action->isEnabled());
    connect(action, &QAction::enabledChanged, button, &QAction::setEnabled);
  }
}

// QAction::trigger() does nothing where the action is disabled.
void MainWindowGraph::run_command(const QString& word) {
  const auto has_word = [&](const CommandAction& command) {
    return word == QLatin1String(command.word);
  };
  const auto* const command =
      std::find_if(std::begin(kCommandActions), std::end(kCommandActions), has_word);
  if (command == std::end(kCommandActions)) return KurvGraph::run_command(word);
  auto* const action = m_window.findChild<QAction*>(command->action);
  QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

void MainWindowGraph::showEvent(QShowEvent* event) {
  if (!std::exchange(m_was_shown, true)) KurvGraph::showEvent(event);
}

}  // namespace kurv::app
