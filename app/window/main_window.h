// The main window: a graph, and everything that a desktop program does with its file.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <QUndoGroup>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/graph/graph_intake.h"
#include "app/window/clean_state.h"

class QLabel;
class QMimeData;
class QStackedLayout;

namespace kurv::app {

class MainMenu;
class NoticeBar;
class ReadOutLabel;

using Report = std::function<void(const std::string&)>;

// Deletes itself when it is closed. It begins empty, with a hint. Whether it has unsaved changes
// depends on the content alone: a graph that was drawn from a table and not changed since has none,
// and neither has one whose changes were undone.
class MainWindow final : public QMainWindow {
 public:
  // `report` gets the warnings, which a terminal shows as well. The locale is used for graph files.
  MainWindow(std::optional<QLocale> locale, Report report);
  ~MainWindow() override;

  // Those of the program. One may be closed, and so deleted, while the others are gone through.
  static std::vector<QPointer<MainWindow>> all();

  // The graph that is shown. Opening another file replaces it.
  KurvGraph& graph() const { return *m_graph; }

  // Shows the window and a graph of a source that was loaded before. Throws UserError and Fault
  // when it cannot be drawn; the window then keeps its graph.
  void show_graph(const GraphChoice& choice, const GraphSource& source);
  // Opens a file in this window, or in a new one if this one has unsaved changes. Asks which
  // columns of a table to draw, and shows errors in a box, both over this window. Returns whether a
  // window shows the file.
  bool open(const std::string& path);
  // The same for several, each in a window of its own.
  void open_all(const std::vector<std::string>& paths);
  // The same for what was copied or dragged: the files that it names, or else a table in its text,
  // which has no file until it is saved. Says where there is none.
  void open_transferred(const QMimeData& mime);

  // The window is shown without a graph yet, at the size that a plot will have.
  void show_empty(std::optional<QSize> size);
  // While there is no graph, this is shown in its place.
  void set_waiting_hint(const QString& text);
  // From here on the points of the graph come by themselves, so they are no changes that have to be
  // saved, and other files open in windows of their own.
  void begin_following();
  void end_following();
  // The bar above the plot says these; it is hidden where there are none. Where the graph was drawn
  // from the file of a table, they can be changed by importing that again.
  void show_notices(const std::vector<std::string>& warnings);
  // The status bar says this until it is called again; notes such as "Saved" cover it for a while.
  void show_status(const QString& text);
  // Changes the graph; one that had no unsaved changes has none afterwards.
  void change_unnoticed(const std::function<void(KurvGraph&)>& work);

  // Compares the content as it is now.
  bool is_saved() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  enum class Target { kThisWindow, kNewWindow };
  // Asks the user what is to be asked. Nothing where the user cancels; throws UserError.
  using Source = std::function<std::optional<GraphSource>(GraphChoice&)>;

  void make_menu();
  void make_status_bar();
  KurvGraph* new_graph();
  QByteArray content_hash(const KurvGraph& graph) const;
  void replace_graph(KurvGraph* graph, const QByteArray& saved, const std::string& path);
  void connect_graph(KurvGraph* graph);
  void resize_to_graph();
  void resize_to_plot(QSize size);
  void activate_layouts();

  bool has_data() const;
  void update_actions();
  void schedule_update_modified();
  void update_modified();
  void graph_changed();
  void graph_filed();
  void update_paste();

  bool run_guarded(const std::function<void()>& work);
  bool run_command(const char* word);
  void new_window();
  void choose_files();
  bool open_in(Target target, const std::string& path);
  bool show_source(Target target, const std::string& path, const Source& source);
  void open_text(const std::string& text);
  void copy_picture();
  void paste();
  void show_in_new_window(const GraphChoice& choice, const GraphSource& source) const;
  std::optional<GraphSource> ask_about_table(const std::string& path, std::string bytes,
                                             GraphChoice& choice);
  void open_recent(const std::string& path);
  bool save();
  void save_as();
  void note_saved(const std::function<void()>& work);
  bool confirm_commas();
  bool confirm_close();
  void export_picture();
  void show_error(const QString& text);
  void show_note(const QString& text);
  void show_file_note(const char* what, const std::string& path);
  void end_note();

  std::optional<QLocale> m_locale;
  Report m_report;
  QUndoGroup m_undo;
  std::unique_ptr<MainMenu> m_menu;
  NoticeBar* m_notices;
  QWidget* m_centre;  // all below the bar
  QStackedLayout* m_layout;
  QLabel* m_hint;
  ReadOutLabel* m_read_out;
  QPointer<KurvGraph> m_graph;
  CleanState m_clean_state;
  QTimer m_modified_timer;
  std::string m_table;  // the file that the graph was drawn from; empty where it is no such table
  std::string m_path;   // what the graph was made from, or saved to since; empty for pasted text
  // What the user knows that the graph's file does not keep.
  std::vector<std::string> m_accepted_changes;
  bool m_showing_error = false;
  bool m_has_toolbar = true;
  bool m_is_following = false;
  QString m_waiting_hint;
  unsigned m_times_filed = 0;  // how many times the graph was loaded or saved
  QString m_status;
  QString m_note;  // empty where none is shown
  QTimer m_note_timer;
};

}  // namespace kurv::app
