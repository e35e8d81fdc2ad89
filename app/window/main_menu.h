// The menus of the main window: their texts, shortcuts and order.
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <string>
#include <vector>

class QMainWindow;
class QUndoGroup;

namespace kurv::app {

// What the menus do. `run_command` gets a command word of the graph.
struct MenuCommands {
  std::function<void()> new_window;
  std::function<void()> open;
  std::function<void(const std::string& path)> open_recent;
  std::function<std::vector<std::string>()> recent;
  std::function<void()> clear_recent;
  std::function<void()> save;
  std::function<void()> save_as;
  QUndoGroup* undo;
  std::function<void()> copy;
  std::function<void()> paste;
  std::function<void()> export_picture;
  std::function<void()> close;
  std::function<void()> quit;
  std::function<void(const char* word)> run_command;
  std::function<void(bool on)> show_toolbar;
  std::function<void(bool on)> set_round_limits;
  std::function<void()> show_all;
  std::function<void()> getting_started;
  std::function<void()> about;
};

// What an action needs to be enabled.
enum class Needs { kNothing, kData, kGraph, kTableText };

// Every action has an object name that begins with "mnu", such as mnuOpen, mnuSave, mnuSaveAs,
// mnuExportPicture; the files of mnuRecent are mnuRecent1 and so on.
class MainMenu {
 public:
  MainMenu(QMainWindow& window, MenuCommands commands);

  // There may be data that cannot be plotted.
  void enable(bool has_data, bool has_graph);
  void enable_paste(bool on);
  void check_round_limits(bool on);
  void enable_show_all(bool on);

 private:
  struct Entry {
    QAction* action;
    Needs needs;
  };

  void make_file_menu();
  void make_edit_menu();
  void add_undo(QMenu& edit);
  void make_graph_menu();
  void make_help_menu();
  QMenu* menu(const QString& text, const char* name);
  QAction* add(QMenu* menu, const char* name, const QString& text, const QKeySequence& key,
               Needs needs, const QString& tip, std::function<void()> work);
  std::function<void()> command(const char* word) const;
  void fill_recent(QMenu* menu);

  QMainWindow& m_window;
  MenuCommands m_commands;
  std::vector<Entry> m_entries;
  QAction* m_round_limits = nullptr;
  QAction* m_show_all = nullptr;
};

}  // namespace kurv::app
