#include "app/window/main_window_graph.h"

#include <QAction>
#include <algorithm>
#include <iterator>

namespace kurv::app {

namespace {

struct Twin {
  const char* word;
  const char* entry;
};

constexpr Twin kTwins[] = {
    {"refresh", "mnuRefresh"},     {"save", "mnuSave"},    {"saveas", "mnuSaveAs"},
    {"open", "mnuOpen"},           {"print", "mnuPrint"},  {"copy", "mnuCopy"},
    {"curves", "mnuCurves"},       {"setup", "mnuDesign"}, {"table", "mnuTable"},
    {"help", "mnuGettingStarted"},
};

}  // namespace

WindowGraph::WindowGraph(const QMainWindow& window) : m_window(window) {
  for (const Twin& twin : kTwins) {
    const auto* const entry = window.findChild<QAction*>(twin.entry);
    auto* const button = findChild<QAction*>(QStringLiteral("tbrGraph.") + twin.word);
    button->setEnabled(entry->isEnabled());
    connect(entry, &QAction::enabledChanged, button, &QAction::setEnabled);
  }
}

// QAction::trigger() does nothing where the action is disabled.
void WindowGraph::run_command(const QString& word) {
  const auto is_it = [&](const Twin& twin) { return word == QLatin1String(twin.word); };
  const auto* const twin = std::find_if(std::begin(kTwins), std::end(kTwins), is_it);
  if (twin == std::end(kTwins)) return KurvGraph::run_command(word);
  auto* const entry = m_window.findChild<QAction*>(twin->entry);
  QMetaObject::invokeMethod(entry, &QAction::trigger, Qt::QueuedConnection);
}

}  // namespace kurv::app
