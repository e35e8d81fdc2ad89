#include "app/window/main_menu.h"

#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QUndoGroup>
#include <filesystem>

#include "app/base/message_text.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

QString recent_label(const std::string& path, int number) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  const QString text = file_label(path) + QStringLiteral(" \u2013 ") +
                       QFile::decodeName(on_one_line(folder).c_str());
  const QString mnemonic = number < 10 ? '&' + QString::number(number) + ' ' : QString("1&0 ");
  return mnemonic + menu_label(text);
}

}  // namespace

MainMenu::MainMenu(QMainWindow& window, MenuCommands commands)
    : m_window(window), m_commands(std::move(commands)) {
  make_file_menu();
  make_edit_menu();
  make_graph_menu();
  make_help_menu();
}

void MainMenu::enable(bool has_data, bool has_graph) {
  for (const Entry& entry : m_entries) {
    if (entry.needs == Needs::kData) entry.action->setEnabled(has_data);
    if (entry.needs == Needs::kGraph) entry.action->setEnabled(has_graph);
  }
}

void MainMenu::enable_paste(bool on) {
  for (const Entry& entry : m_entries) {
    if (entry.needs == Needs::kTableText) entry.action->setEnabled(on);
  }
}

QMenu* MainMenu::menu(const QString& text, const char* name) {
  QMenu* const result = m_window.menuBar()->addMenu(text);
  result->setObjectName(name);
  return result;
}

void MainMenu::check_round_limits(bool on) {
  m_round_limits->setChecked(on);
}

void MainMenu::enable_show_all(bool on) {
  m_show_all->setEnabled(on);
}

QAction* MainMenu::add(QMenu* menu, const char* name, const QString& text, const QKeySequence& key,
                       Needs needs, const QString& tip, std::function<void()> work) {
  QAction* const action = menu->addAction(text);
  action->setObjectName(name);
  action->setShortcut(key);
  action->setStatusTip(tip);
  QObject::connect(action, &QAction::triggered, &m_window, std::move(work));
  m_entries.push_back({action, needs});
  return action;
}

std::function<void()> MainMenu::command(const char* word) const {
  return [run = m_commands.run_command, word] { run(word); };
}

void MainMenu::make_file_menu() {
  QMenu* const file = menu("&File", "mnuFile");
  add(file, "mnuNewWindow", "&New Window", QKeySequence("Ctrl+N"), Needs::kNothing,
      "Open another, empty window", m_commands.new_window);
  add(file, "mnuOpen", "&Open\u2026", QKeySequence("Ctrl+O"), Needs::kNothing,
      "Open tables or graph files", m_commands.open);
  QMenu* const recent = file->addMenu("Open &Recent");
  recent->setObjectName("mnuRecent");
  QObject::connect(recent, &QMenu::aboutToShow, recent, [this, recent] { fill_recent(recent); });
  file->addSeparator();
  add(file, "mnuSave", "&Save", QKeySequence("Ctrl+S"), Needs::kData,
      "Save the graph, with its data and formatting, in its graph file", m_commands.save);
  add(file, "mnuSaveAs", "Save &As\u2026", QKeySequence("Ctrl+Shift+S"), Needs::kData,
      "Save the graph in another file", m_commands.save_as);
  add(file, "mnuExportPicture", "&Export Picture\u2026", QKeySequence("Ctrl+E"), Needs::kGraph,
      "Save a picture of the graph", m_commands.export_picture);
  add(file, "mnuPrint", "&Print\u2026", QKeySequence("Ctrl+P"), Needs::kGraph, "Print the graph",
      command("print"));
  file->addSeparator();
  add(file, "mnuClose", "&Close Window", QKeySequence("Ctrl+W"), Needs::kNothing,
      "Close this window", m_commands.close);
  add(file, "mnuQuit", "&Quit", QKeySequence("Ctrl+Q"), Needs::kNothing, "Close all windows",
      m_commands.quit);
}

void MainMenu::make_edit_menu() {
  QMenu* const edit = menu("&Edit", "mnuEdit");
  add_undo(*edit);
  edit->addSeparator();
  add(edit, "mnuCopy", "&Copy Picture", QKeySequence("Ctrl+C"), Needs::kGraph,
      "Copy a picture of the graph to the clipboard", m_commands.copy);
  add(edit, "mnuPaste", "&Paste as New Graph\u2026", QKeySequence("Ctrl+Shift+V"),
      Needs::kTableText, "Draw a table that was copied in another program", m_commands.paste);
  edit->addSeparator();
  add(edit, "mnuTable", "Data &Table\u2026", QKeySequence("Ctrl+T"), Needs::kData,
      "See and edit the numbers", command("table"));
}

// The group enables the two and names the step in their texts.
void MainMenu::add_undo(QMenu& edit) {
  QAction* const undo = m_commands.undo->createUndoAction(&m_window, "&Undo");
  undo->setObjectName("mnuUndo");
  undo->setShortcut(QKeySequence("Ctrl+Z"));
  undo->setStatusTip("Take back the last change of the graph");
  edit.addAction(undo);
  QAction* const redo = m_commands.undo->createRedoAction(&m_window, "&Redo");
  redo->setObjectName("mnuRedo");
  redo->setShortcuts({QKeySequence("Ctrl+Shift+Z"), QKeySequence("Ctrl+Y")});
  redo->setStatusTip("Make the change again that was taken back");
  edit.addAction(redo);
}

void MainMenu::make_graph_menu() {
  QMenu* const graph = menu("&Graph", "mnuGraph");
  add(graph, "mnuCurves", "&Curves and Functions\u2026", QKeySequence("Ctrl+U"), Needs::kData,
      "Show, hide, rename and add curves and functions", command("curves"));
  add(graph, "mnuTitles", "&Titles and Fonts\u2026", QKeySequence(), Needs::kData,
      "Change titles and fonts", command("titles"));
  add(graph, "mnuDesign", "&Design\u2026", QKeySequence("Ctrl+D"), Needs::kData,
      "Change axes, limits, grids, lines and markers", command("setup"));
  graph->addSeparator();
  add(graph, "mnuRefresh", "&Refresh", QKeySequence("F5"), Needs::kGraph,
      "Put the titles and the legend where they fit, and redraw", command("refresh"));
  m_show_all =
      add(graph, "mnuShowAll", "Show &All", QKeySequence("Ctrl+0"), Needs::kNothing,
          "Take back all zooming and moving: show the limits of before", m_commands.show_all);
  graph->addSeparator();
  m_round_limits = add(graph, "mnuRoundLimits", "Round &Limits", QKeySequence(), Needs::kGraph,
                       "Keep the limits of the axes, and all ticks between them, round numbers",
                       [this] { m_commands.set_round_limits(m_round_limits->isChecked()); });
  m_round_limits->setCheckable(true);
  QAction* const toolbar = graph->addAction("Show Tool&bar");
  toolbar->setObjectName("mnuShowToolbar");
  toolbar->setStatusTip("Show or hide the buttons above the graph");
  toolbar->setCheckable(true);
  toolbar->setChecked(true);
  QObject::connect(toolbar, &QAction::toggled, &m_window, m_commands.show_toolbar);
}

void MainMenu::make_help_menu() {
  QMenu* const help = menu("&Help", "mnuHelp");
  add(help, "mnuGettingStarted", "&Getting Started", QKeySequence("F1"), Needs::kNothing,
      "What can be dragged and double-clicked", m_commands.getting_started);
  add(help, "mnuAbout", "&About kurv", QKeySequence(), Needs::kNothing, "Version and licence",
      m_commands.about);
}

void MainMenu::fill_recent(QMenu* menu) {
  menu->clear();
  int number = 0;
  for (const std::string& path : m_commands.recent()) {
    QAction* const action = menu->addAction(recent_label(path, ++number));
    action->setObjectName("mnuRecent" + QString::number(number));
    QObject::connect(action, &QAction::triggered, &m_window,
                     [open = m_commands.open_recent, path] { open(path); });
  }
  menu->addSeparator();
  QAction* const clear = menu->addAction("&Clear List");
  clear->setObjectName("mnuClearRecent");
  clear->setEnabled(number > 0);
  QObject::connect(clear, &QAction::triggered, &m_window, m_commands.clear_recent);
}

}  // namespace kurv::app
